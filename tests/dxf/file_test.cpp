// Files on disk: what is read, and what is left behind when writing fails.
#include "DbObject.h"
#include "DxfReader.h"
#include "DxfStoreWriter.h"
#include "DxfVerifier.h"
#include "DxfWriter.h"
#include "file_folder.h"

namespace {

namespace fs = std::filesystem;
using test::drawingFromText;
using testing::HasSubstr;

TEST_F(FileTest, ErasedObjectsLeaveTheirDictionary) {
  const OdDbDatabasePtr database = drawingFromText(smallDrawing());
  database->getOdDbObjectId(OdDbHandle(0x50)).safeOpenObject(OdDb::kForWrite)->erase();
  const fs::path path = m_folder / "erased.dxf";
  EXPECT_EQ(writeError(*database, path), "(none)");
  EXPECT_THAT(textOf(path), testing::Not(HasSubstr(dxf("3 Plain"))));
}

TEST_F(FileTest, DrawingsAreReadAndReplaced) {
  const std::string text = smallDrawing();
  const fs::path path = put("drawing \u00E9.dxf", text);
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
  const fs::perms permissions = fs::status(path).permissions(); // not every system has all of them
  const OdDbDatabasePtr database = OdDbDatabase::createObject();
  database->readFile(wide(path));
  EXPECT_EQ(database->getFilename(), wide(path));
  OdDbObjectId(database->store().find(0x41)).safeOpenObject(OdDb::kForWrite)->erase();
  database->writeFile(wide(path));
  EXPECT_EQ(textOf(path), test::savedBytes(*database));
  EXPECT_EQ(fs::status(path).permissions(), permissions);
  database->writeFile(wide(m_folder / "copy.dxf"));
  EXPECT_EQ(database->getFilename(), wide(m_folder / "copy.dxf"));
  EXPECT_EQ(names().size(), 2u);
}

TEST_F(FileTest, BackupIsTheFileThatWasReplaced) {
  const OdDbDatabasePtr database = drawingFromText(smallDrawing());
  OdDbDxfWriteOptions options;
  options.backup = true;
  const fs::path path = put("plan.dxf", "old");
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
  put("plan.dxf.bak", "older");
  odDbWriteFile(*database, wide(path), options);
  EXPECT_EQ(textOf(m_folder / "plan.dxf.bak"), "old");
  EXPECT_EQ(textOf(path), smallDrawing());
  EXPECT_EQ(fs::status(m_folder / "plan.dxf.bak").permissions(), fs::status(path).permissions());
  // Where the backup is another name of the file already, as after a commit that failed.
  fs::create_hard_link(path, m_folder / "twice.dxf");
  fs::create_hard_link(path, m_folder / "twice.dxf.bak");
  odDbWriteFile(*database, wide(m_folder / "twice.dxf"), options);
  odDbWriteFile(*database, wide(m_folder / "new.dxf"), options);
  // What cannot be kept is not replaced.
  put("kept.dxf", "old");
  fs::create_directory(m_folder / "kept.dxf.bak");
  EXPECT_THROW(odDbWriteFile(*database, wide(m_folder / "kept.dxf"), options), OdError_FileException);
  EXPECT_EQ(textOf(m_folder / "kept.dxf"), "old");
  EXPECT_THAT(names(), testing::UnorderedElementsAre("plan.dxf", "plan.dxf.bak", "twice.dxf", "twice.dxf.bak",
                                                     "new.dxf", "kept.dxf", "kept.dxf.bak"));
}

TEST_F(FileTest, UnreadablePathsAreErrors) {
  const OdDbDatabasePtr database = OdDbDatabase::createObject();
  const std::pair<const char*, const char*> cases[] = {{"none.dxf", "No such file or directory"},
                                                       {"", "Is a directory"}};
  for (const auto& [name, reason] : cases) {
    const fs::path path = m_folder / name;
    try {
      database->readFile(wide(path));
      ADD_FAILURE() << path;
    } catch (const OdError_FileException& error) {
      EXPECT_EQ(error.what(), path.string() + ": " + reason);
      EXPECT_EQ(error.code(), eFileAccessErr);
    }
  }
}

TEST_F(FileTest, FailedWritingLeavesTheOldFileAlone) {
  const fs::path path = put("drawing.dxf", "old");
  fs::create_directory(m_folder / "folder");
  const OdDbDatabasePtr database = drawingFromText(smallDrawing());
  const fs::path nowhere = fs::path("none") / "x.dxf";
  EXPECT_EQ(writeError(*database, m_folder / nowhere), nowhere.string() + ": No such file or directory");
  EXPECT_EQ(writeError(*database, m_folder / "folder"), "folder: Is a directory");
  EXPECT_EQ(textOf(path), "old");
  EXPECT_THAT(names(), testing::UnorderedElementsAre("drawing.dxf", "folder"));
}

TEST_F(FileTest, DrawingThatIsOpenDoesNotFeelChangesOfItsFile) {
  const std::string text = smallDrawing();
  const fs::path path = put("drawing.dxf", text);
  const OdDbDatabasePtr database = OdDbDatabase::createObject();
  database->readFile(wide(path));
  put("drawing.dxf", "short");
  EXPECT_EQ(test::savedBytes(*database), text);
}

TEST(VerifierTest, EveryDifferenceIsFound) {
  const OdDbDatabasePtr database = drawingFromText(smallDrawing());
  for (const OdUInt64 touched : {0x45u, 0x46u})
    OdDbObjectId(database->store().find(touched)).safeOpenObject(OdDb::kForWrite)->mutableGroups();
  std::string bytes;
  const std::unique_ptr<DxfOutput> output = DxfOutput::create(
      [&bytes](std::string_view piece) { bytes += piece; }, DxfStoreWriter::styleOf(database->store()));
  DxfStoreWriter writer(database->store(), *output);
  writer.write();
  const auto verify = [&](const std::string& read) -> std::string {
    try {
      dxfVerify(database->store(), writer, std::make_shared<DxfText>(DxfText{read, L"new.dxf"}),
                [](const char*) {});
    } catch (const OdError_FileException& error) {
      return error.what();
    }
    return "(none)";
  };
  ASSERT_EQ(verify(bytes), "(none)");

  struct Case {
    std::string from;
    std::string to;
    const char* error;
  };
  const Case cases[] = {
      {dxf("10 128.5"), dxf("10 128.6"), "VIEWPORT 40 does not hold what it should"},
      {"%%c", "%%d", "TEXT 45 does not hold what it should"},
      {dxf("5 46"), dxf("5 4F"), "POLYLINE 46 does not hold what it should"},
      {dxf("0 VERTEX"), dxf("0 VERTIX"), "expected VERTEX 47, met VERTIX"},
      {dxf("0 SEQEND|5 44|330 42|100 AcDbEntity|8 0"), "", "expected SEQEND 44, met POLYLINE"},
      {dxf("5 D9B071D01A0CB700"), dxf("5 D9B071D01A0CB701"), "the variables of the header differ"},
      {dxf("1 kept"), dxf("1 lost"), "section NOVEL differs from what was read"},
      {dxf("0 NOVELOBJECT|5 51|330 50|100 AcDbNovel|1"), "", "expected NOVELOBJECT 51, met EOF"},
      {dxf("0 ENDSEC|0 EOF"), "cut", "section NOVEL differs from what was read"},
      {dxf("0 EOF"), "cut", "expected EOF, met the end of the file"},
  };
  for (const Case& c : cases) {
    std::string damaged = bytes;
    const std::size_t at = damaged.rfind(c.from);
    ASSERT_NE(at, std::string::npos) << c.from;
    if (c.to == "cut")
      damaged.resize(at);
    else
      damaged.replace(at, c.from.size(), c.to);
    EXPECT_THAT(verify(damaged), HasSubstr(c.error)) << c.from;
  }
}

} // namespace
