#include "extraction.h"
#include "DbLine.h"
#include "support/system.h"
#include "sys/library.h"
#include <fstream>
#include <gmock/gmock.h>
#include <sstream>

namespace fs = std::filesystem;

Extraction::Extraction() {
  session.setDialogUser(static_cast<ui::DialogUser*>(&user));
  const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
  std::string name = std::string(test.test_suite_name()) + "." + test.name();
  std::replace(name.begin(), name.end(), '/', '_');
  m_folder = fs::path(testing::TempDir()) / name;
  fs::remove_all(m_folder);
  fs::create_directories(m_folder);
  std::string error;
  m_module = sys::loadLibrary("blockattr", error);
  if (!m_module) throw std::runtime_error(error);
}

Extraction::~Extraction() {
  sys::freeLibrary(m_module);
  EXPECT_EQ(sys::findLoadedLibrary("blockattr"), nullptr) << "settings of one test would reach the next";
  fs::remove_all(m_folder);
}

OdDbObjectId Extraction::addBlock(const OdString& name) {
  const OdDbBlockTablePtr blocks = session.database()->getBlockTableId().safeOpenObject(OdDb::kForWrite);
  const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
  block->setName(name);
  return blocks->add(block);
}

OdDbBlockReferencePtr Extraction::insert(OdDbObjectId block, const OdGePoint3d& position,
                                         const Attributes& attributes) {
  const OdDbBlockTableRecordPtr space = session.database()->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
  OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
  reference->setBlockTableRecord(block);
  reference->setPosition(position);
  space->appendOdDbEntity(reference);
  for (const auto& [tag, value] : attributes) {
    const OdDbAttributePtr attribute = OdDbAttribute::createObject();
    attribute->setTag(OdString::fromUtf8(tag));
    attribute->setTextString(OdString::fromUtf8(value));
    reference->appendAttribute(attribute);
  }
  return reference;
}

void Extraction::addLine() {
  const OdDbBlockTableRecordPtr space = session.database()->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
  space->appendOdDbEntity(OdDbLine::createObject());
}

void Extraction::write(const std::string& name, const std::string& text) const {
  std::ofstream(m_folder / name, std::ios::binary) << text;
}

std::string Extraction::read(const std::string& name) const {
  if (!exists(name)) return "(none)";
  std::ostringstream text;
  text << std::ifstream(m_folder / name, std::ios::binary).rdbuf();
  return test::withPlainLineEnds(text.str());
}

host::RunResult Extraction::run(const std::string& dialogLines) {
  user.say(dialogLines);
  lines.type({"all", ""});
  return session.execute(L"AttExt");
}

std::string Extraction::extract(const std::string& format, const std::string& templateText) {
  fs::remove(m_folder / "output.txt");
  write("template.txt", templateText);
  run("tick " + format + "\npress select" +
      (format == "dxx" ? "" : "\nset template = " + path("template.txt")) +
      "\nset output = " + path("output.txt") + "\npress ok");
  return read("output.txt");
}
