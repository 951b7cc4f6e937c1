#include "big_drawing.h"
#include "DbArc.h"
#include "DbAttributeDefinition.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbCircle.h"
#include "DbDatabase.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbLine.h"
#include "DbPolyline.h"
#include "DxfWriter.h"
#include "TextCodec.h"
#include <array>
#include <charconv>
#include <cmath>
#include <ostream>
#include <random>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace {

constexpr int kLayers = 16;
/// Of the entities of model space: far beyond those of the frame.
constexpr OdUInt64 kFirstHandle = 0x100000;
constexpr const char* kForeignTag = "FORMER_NO";
constexpr std::array<const char*, BigDrawing::kMostAttributes> kTags = {
    "NUMBER", "TYPE",  "ROOM",   "REMARK", "NOTES", "RATING", "MAKER", "LEVEL",
    "COLOUR", "WIDTH", "HEIGHT", "WEIGHT", "PRICE", "OWNER",  "DATE",  "KEY"};
constexpr std::array<const char*, 12> kWords = {
    "pump",   "valve", "door",  "sensor", "Türschloß",    "réducteur",
    "панель", "板",    "50%%d", "3/4\"",  "a, b and 'c'", "a value as long as forty letters may be"};

/// What an attribute is like, by its place among the attributes of its block.
enum class Kind { kPlain, kCentred, kInvisible, kMultiline, kPreset, kLocked };
Kind kindOf(int attribute) {
  constexpr std::array<Kind, 8> kKinds = {Kind::kPlain,     Kind::kPlain,  Kind::kCentred, Kind::kInvisible,
                                          Kind::kMultiline, Kind::kPreset, Kind::kPlain,   Kind::kLocked};
  return kKinds[static_cast<std::size_t>(attribute) % kKinds.size()];
}

/// Definitions have their tags in different orders, so that a template meets empty columns.
std::string tagOf(int definition, int attribute) {
  return kTags[static_cast<std::size_t>(attribute + 3 * definition) % kTags.size()];
}
std::string blockName(int definition) { return "BLOCK" + std::to_string(definition); }
std::string layerName(int number) { return "LAYER" + std::to_string(number % kLayers); }
double lineOf(int attribute) { return -3.0 * (attribute + 1); }

// --- the frame ---

void addDefinitions(OdDbBlockTableRecord& block, int k, int attributes) {
  for (int a = 0; a < attributes; ++a) {
    const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
    definition->setDatabaseDefaults(block.database());
    definition->setTag(OdString::fromUtf8(tagOf(k, a)));
    definition->setPrompt(OdString::fromUtf8("Which " + tagOf(k, a) + "?"));
    definition->setTextString(L"-");
    definition->setPosition(OdGePoint3d(1, lineOf(a), 0));
    definition->setInvisible(kindOf(a) == Kind::kInvisible);
    definition->setPreset(kindOf(a) == Kind::kPreset);
    block.appendOdDbEntity(definition);
  }
}

void addGeometry(OdDbBlockTableRecord& block, int k) {
  for (int side = 0; side < 4; ++side) {
    const OdDbLinePtr line = OdDbLine::createObject();
    line->setDatabaseDefaults(block.database());
    line->setStartPoint(OdGePoint3d(side, 0, 0));
    line->setEndPoint(OdGePoint3d(side + 0.1 * k, 5, 0));
    block.appendOdDbEntity(line);
  }
  const OdDbCirclePtr circle = OdDbCircle::createObject();
  circle->setDatabaseDefaults(block.database());
  circle->setRadius(1 + k);
  block.appendOdDbEntity(circle);
  const OdDbArcPtr arc = OdDbArc::createObject();
  arc->setDatabaseDefaults(block.database());
  arc->setRadius(2);
  arc->setEndAngle(1 + 0.1 * (k % 9));
  block.appendOdDbEntity(arc);
  const OdDbPolylinePtr outline = OdDbPolyline::createObject();
  outline->setDatabaseDefaults(block.database());
  unsigned int corner = 0;
  for (const auto& [x, y] : {std::pair(0, 0), {10, 0}, {10, 5}, {0, 5}})
    outline->addVertexAt(corner++, OdGePoint2d(x, y));
  outline->setClosed(true);
  block.appendOdDbEntity(outline);
}

void setSeed(std::string& frame, const BigDrawing& description) {
  constexpr std::string_view variable = "$HANDSEED\n  5\n";
  const std::size_t at = frame.find(variable) + variable.size();
  // A reference, its attributes and end mark, and the geometry beside it.
  const auto each = static_cast<OdUInt64>(description.attributes) + 5;
  const OdDbHandle seed(kFirstHandle + each * static_cast<OdUInt64>(description.references));
  frame.replace(at, frame.find('\n', at) - at, seed.ascii().toUtf8());
}

/// Tables, block definitions, layouts, in which the entities of model space are still missing.
std::string frameOf(const BigDrawing& description) {
  const OdDbDatabasePtr db = OdDbDatabase::createBlank();
  const OdDbLayerTablePtr layers = db->getLayerTableId().safeOpenObject(OdDb::kForWrite);
  for (int number = 0; number < kLayers; ++number) {
    const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
    layer->setName(OdString::fromUtf8(layerName(number)));
    layer->setColorIndex(1 + number % 7);
    layers->add(layer);
  }
  const OdDbBlockTablePtr blocks = db->getBlockTableId().safeOpenObject(OdDb::kForWrite);
  for (int k = 0; k < description.definitions; ++k) {
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
    block->setName(OdString::fromUtf8(blockName(k)));
    blocks->add(block);
    addGeometry(*block, k);
    addDefinitions(*block, k, description.attributes);
  }
  std::string frame = odDbWriteBytes(*db);
  std::erase(frame, '\r');
  constexpr std::string_view newest = "AC1032";
  if (description.release == BigDrawing::Release::r2000)
    frame.replace(frame.find(newest), newest.size(), "AC1015");
  setSeed(frame, description);
  return frame;
}

// --- the entities of model space ---

/// Writes records as a drawing file holds them.
class Records {
public:
  Records(std::ostream& out, std::string modelSpace) : m_out(out), m_modelSpace(std::move(modelSpace)) {}

  /// An entity of model space; the result is its handle.
  std::string begin(const char* type, const std::string& layer) { return begin(type, layer, m_modelSpace); }
  std::string begin(const char* type, const std::string& layer, const std::string& owner) {
    std::string handle = OdDbHandle(m_next++).ascii().toUtf8();
    text(0, type);
    text(5, handle);
    text(330, owner);
    text(100, "AcDbEntity");
    text(8, layer);
    return handle;
  }
  void text(int code, std::string_view value) {
    if (code < 100) m_out << ' ';
    if (code < 10) m_out << ' ';
    m_out << code << '\n' << value << '\n';
  }
  void integer(int code, int value) { text(code, std::to_string(value)); }
  void real(int code, double value) {
    std::array<char, 32> buffer;
    char* end = std::to_chars(buffer.data(), buffer.data() + buffer.size() - 2, value).ptr;
    if (std::string_view(buffer.data(), end).find_first_of(".e") == std::string_view::npos) {
      *end++ = '.';
      *end++ = '0';
    }
    text(code, {buffer.data(), end});
  }
  void point(int code, double x, double y) {
    real(code, x);
    real(code + 10, y);
    real(code + 20, 0);
  }

private:
  std::ostream& m_out;
  std::string m_modelSpace;
  OdUInt64 m_next = kFirstHandle;
};

class ModelSpace {
public:
  ModelSpace(const BigDrawing& description, Records& records)
      : m_description(description), m_records(records),
        m_codec(OdDbDxfTextCodec::forDrawing(isNew() ? OdDb::vAC32 : OdDb::vAC15, "ANSI_1252")) {}

  void write() {
    const int side = std::max(1, static_cast<int>(std::sqrt(m_description.references)));
    for (int i = 0; i < m_description.references; ++i) {
      const int row = i / side;
      m_x = 60.0 * (i % side);
      m_y = 60.0 * row;
      writeReference(i);
      if (i % 2 == 0) writeLine();
      if (i % 8 == 0) writeOutline();
    }
  }

private:
  bool isNew() const { return m_description.release == BigDrawing::Release::r2018; }
  int random(std::size_t below) { return static_cast<int>(m_random() % below); }
  double part() { return random(100000) / 100000.0; }

  void writeReference(int i) {
    const int definition = random(static_cast<std::size_t>(m_description.definitions));
    const std::string layer = layerName(definition);
    const std::string reference = m_records.begin("INSERT", layer);
    m_records.text(100, "AcDbBlockReference");
    m_records.integer(66, 1);
    m_records.text(2, blockName(definition));
    m_records.point(10, m_x, m_y);
    if (i % 16 == 5) {
      m_records.real(41, 2);
      m_records.real(42, 0.5);
    }
    if (i % 32 == 7) m_records.real(41, -1);
    if (i % 4 == 1) m_records.real(50, 90);
    if (i % 4 == 2) m_records.real(50, 30);
    if (i % 40 == 11) writeArray();
    for (int a = 0; a < m_description.attributes; ++a)
      writeAttribute(reference, a, a == 0 && i % 20 == 3 ? kForeignTag : tagOf(definition, a), valueOf(i, a));
    m_records.begin("SEQEND", layer, reference);
  }

  void writeArray() {
    m_records.integer(70, 2);
    m_records.integer(71, 3);
    m_records.real(44, 12);
    m_records.real(45, 40);
  }

  std::string valueOf(int i, int a) {
    if (a % 5 == 0) return std::to_string(random(100000));
    const std::string value = std::string(kWords[static_cast<std::size_t>(random(kWords.size()))]) + " " +
                              std::to_string(i) + "-" + std::to_string(a);
    std::string bytes;
    m_codec->encode(OdString::fromUtf8(value).str(), bytes);
    return bytes;
  }

  void writeAttribute(const std::string& reference, int a, const std::string& tag, const std::string& value) {
    const Kind kind = kindOf(a);
    const double x = m_x + 1;
    const double y = m_y + lineOf(a);
    m_records.begin("ATTRIB", layerName(a), reference);
    m_records.text(100, "AcDbText");
    m_records.point(10, x, y);
    m_records.real(40, 2.5);
    m_records.text(1, value);
    if (kind == Kind::kPreset) m_records.real(50, 15);
    if (kind == Kind::kCentred) {
      m_records.integer(72, 1);
      m_records.point(11, x + 4, y);
    }
    m_records.text(100, "AcDbAttribute");
    if (isNew()) m_records.integer(280, 0);
    m_records.text(2, tag);
    m_records.integer(70, kind == Kind::kInvisible ? 1 : kind == Kind::kPreset ? 8 : 0);
    if (kind == Kind::kCentred) m_records.integer(74, 2);
    if (isNew()) m_records.integer(280, kind == Kind::kLocked ? 1 : 0);
    if (isNew() && kind == Kind::kMultiline) writeEmbedded(x, y, value + "\\Psecond line\\Pthird line");
  }

  void writeEmbedded(double x, double y, const std::string& value) {
    m_records.integer(71, 2);
    m_records.integer(72, 0);
    m_records.point(11, x, y);
    m_records.text(101, "Embedded Object");
    m_records.point(10, x, y);
    m_records.real(40, 2.5);
    m_records.real(41, 40);
    m_records.real(46, 0);
    m_records.integer(71, 1);
    m_records.integer(72, 5);
    m_records.text(1, value);
    m_records.integer(73, 1);
    m_records.real(44, 1);
  }

  void writeLine() {
    m_records.begin("LINE", layerName(1));
    m_records.text(100, "AcDbLine");
    m_records.point(10, m_x, m_y);
    m_records.point(11, m_x + 50 * part(), m_y + 10);
  }

  void writeOutline() {
    m_records.begin("CIRCLE", layerName(2));
    m_records.text(100, "AcDbCircle");
    m_records.point(10, m_x, m_y);
    m_records.real(40, 1 + part());
    m_records.begin("LWPOLYLINE", layerName(3));
    m_records.text(100, "AcDbPolyline");
    m_records.integer(90, 4);
    m_records.integer(70, 1);
    m_records.real(43, 0);
    for (const auto& [x, y] : {std::pair(0, 0), {50, 0}, {50, 50}, {0, 50}}) {
      m_records.real(10, m_x + x);
      m_records.real(20, m_y + y);
    }
  }

  const BigDrawing& m_description;
  Records& m_records;
  std::shared_ptr<OdDbDxfTextCodec> m_codec;
  std::mt19937 m_random{1};
  double m_x = 0, m_y = 0; ///< of the reference at hand
};

} // namespace

void writeBigDrawing(const BigDrawing& description, std::ostream& out) {
  const std::string frame = frameOf(description);
  constexpr std::string_view section = "\nENTITIES\n";
  const std::size_t found = frame.find(section);
  if (found == std::string::npos) throw std::logic_error("the blank drawing has no entities section");
  const auto at = static_cast<std::ptrdiff_t>(found + section.size());
  out.write(frame.data(), at);
  Records records(out, OdDbDatabase::createBlank()->getModelSpaceId().getHandle().ascii().toUtf8());
  ModelSpace(description, records).write();
  out.write(frame.data() + at, static_cast<std::ptrdiff_t>(frame.size()) - at);
}

std::string bigDrawing(const BigDrawing& description) {
  std::ostringstream out;
  writeBigDrawing(description, out);
  return std::move(out).str();
}

std::vector<std::string> bigDrawingTags(const BigDrawing& description) {
  std::set<std::string> tags = {kForeignTag};
  for (int k = 0; k < description.definitions; ++k)
    for (int a = 0; a < description.attributes; ++a) tags.insert(tagOf(k, a));
  return {tags.begin(), tags.end()};
}
