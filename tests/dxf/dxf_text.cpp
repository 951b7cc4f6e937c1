#include "dxf_text.h"
#include "BinaryForm.h"
#include "DbDatabase.h"
#include <algorithm>
#include <charconv>

std::string dxf(std::string_view groups, const Layout& layout) {
  std::string text;
  while (!groups.empty()) {
    const std::size_t end = std::min(groups.find_first_of("|\n"), groups.size());
    const std::string_view group = groups.substr(0, end);
    groups.remove_prefix(std::min(end + 1, groups.size()));
    if (group.empty()) continue;
    const std::size_t blank = std::min(group.find(' '), group.size());
    if (layout.padded && blank < 3) text.append(3 - blank, ' ');
    text.append(group.substr(0, blank)).append(layout.lineEnd);
    if (blank < group.size()) text.append(group.substr(blank + 1));
    text.append(layout.lineEnd);
  }
  std::replace(text.begin(), text.end(), '@', '|');
  return text;
}

namespace {

std::string header(const Layout& layout, const char* seed) {
  return std::string("0 SECTION|2 HEADER\n9 $ACADVER|1 ") + layout.release +
         "\n9 $DWGCODEPAGE|3 ANSI_1252\n9 $INSBASE|10 0.500|20 -0|30 1E-5\n9 $HANDSEED|5 " + seed +
         "\n9 $UNHEARD|1  of \n0 ENDSEC\n";
}

constexpr std::string_view kTables = R"(0 SECTION|2 TABLES
0 TABLE|2 LAYER|5 2|330 0|100 AcDbSymbolTable|70 1
0 LAYER|5 10|330 2|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 0|70      0|62      7|6 Continuous
0 ENDTAB
0 TABLE|2 DIMSTYLE|5 A|330 0|100 AcDbSymbolTable|70 1|100 AcDbDimStyleTable|71 1|340 27
0 DIMSTYLE|105 27|330 A|100 AcDbSymbolTableRecord|100 AcDbDimStyleTableRecord|2 Standard|70 0|5 _Dot|340 11
0 ENDTAB
0 TABLE|2 NOVELTY|5 B|330 0|100 AcDbSymbolTable|70 1
0 NOVELTY|5 28|330 B|100 AcDbSymbolTableRecord|2 new
0 ENDTAB
0 TABLE|2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|70 3
0 BLOCK_RECORD|5 1F|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 *Model_Space|340 22
0 BLOCK_RECORD|5 1B|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 *Paper_Space|340 1E
)";

constexpr std::string_view kDoorRecord =
    "0 BLOCK_RECORD|5 30|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 Door|340 0\n"
    "70 1|280 1|281 0|310 0102FF|102 {BLKREFS|331 42|102 }|1001 ACAD|1070 1\n";

constexpr std::string_view kSpaces = R"(0 SECTION|2 BLOCKS
0 BLOCK|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 *Model_Space|70 0|10 0.0|20 0.0|30 0.0|3 *Model_Space|1
0 ENDBLK|5 21|330 1F|100 AcDbEntity|8 0|100 AcDbBlockEnd
0 BLOCK|5 1C|330 1B|100 AcDbEntity|67 1|8 0|100 AcDbBlockBegin|2 *Paper_Space|70 0|10 0.0|20 0.0|30 0.0|1
0 ENDBLK|5 1D|330 1B|100 AcDbEntity|67 1|8 0|100 AcDbBlockEnd
)";

constexpr std::string_view kDoor =
    R"(0 BLOCK|5 31|330 30|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 Door|70 2|10 0.0|20 0.0|30 0.0|3 Door|1
0 ATTDEF|5 33|330 30|100 AcDbEntity|8 0|100 AcDbText|10 1.0|20 0.0|30 0.0|40 2.50|1 def|100 AcDbAttributeDefinition|3 Prompt|2 TAG|70 0
0 ENDBLK|5 32|330 30|100 AcDbEntity|8 0|100 AcDbBlockEnd
)";

constexpr std::string_view kEntities = R"(0 SECTION|2 ENTITIES
0 VIEWPORT|5 40|330 1B|100 AcDbEntity|67 1|8 0|100 AcDbViewport|10 128.5|20 97.5|30 0.0|68 1|69 1
0 LINE|5 41|102 {ACAD_REACTORS|330 22|102 }|330 1F|100 AcDbEntity|8 0|100 AcDbLine|10 1|20 2.|30 .5|11 -1.25E+2|21 1e-300|31 3
0 INSERT|5 42|330 1F|100 AcDbEntity|8 0|100 AcDbBlockReference|66      1|2 Door|10 5.0|20 5.0|30 0.0|1001 ACAD|1000 note \U+00E9|1005 41|1071 70000
0 ATTRIB|5 D9B071D01A0CB618|330 42|100 AcDbEntity|8 0|100 AcDbText|1  up^Jdown^ |100 AcDbAttribute|2 TAG|70 0|101 Embedded Object|1 multi|10 9.0
0 SEQEND|5 44|330 42|100 AcDbEntity|8 0
0 TEXT|5 45|330 1B|100 AcDbEntity|67 1|8 0|100 AcDbText|10 1.0|20 1.0|30 0.0|40 2.5|1 %%c caf)"
                                       "\xE9 \xC3\xA9"
                                       R"(|100 AcDbText
0 POLYLINE|5 46|330 1F|100 AcDbEntity|8 0|100 AcDb2dPolyline|66 1|10 0.0|20 0.0|30 0.0
0 VERTEX|5 47|330 46|100 AcDbEntity|8 0|100 AcDbVertex|10 0.0|20 0.0|30 0.0
999 a remark
0 SEQEND|5 48|330 46|100 AcDbEntity|8 0
0 NOVELTY|5 49|330 1F|100 AcDbEntity|8 0|100 AcDbNovelty|310 0aFF|160 9007199254740993|290 1|420 16711680|280 255
0 ENDSEC
)";

constexpr std::string_view kObjects = R"(0 SECTION|2 OBJECTS
0 DICTIONARY|5 C|330 0|100 AcDbDictionary|281 1|3 Plain|350 50
0 XRECORD|5 50|330 C|100 AcDbXrecord|280 1|1 text|5 ABC|102 {odd|330 C|40 0.1
0 NOVELOBJECT|5 51|330 50|100 AcDbNovel|1
0 ENDSEC
)";

} // namespace

std::string smallDrawing(const Layout& layout) {
  const std::string head =
      "999 written by hand\n" + header(layout, "D9B071D01A0CB700") +
      "999 between sections\n0 SECTION|2 CLASSES\n0 CLASS|1 NOVELTY|2 AcDbNovelty|3 None|90 0\n"
      "0 ENDSEC\n";
  return dxf(head, layout) + dxf(kTables, layout) + dxf(kDoorRecord, layout) +
         dxf("0 ENDTAB|0 ENDSEC", layout) + dxf(kSpaces, layout) + dxf(kDoor, layout) +
         dxf("0 ENDSEC", layout) + dxf(kEntities, layout) + dxf(kObjects, layout) +
         dxf("0 SECTION|2 THUMBNAILIMAGE|90 4|310 0102|0 ENDSEC", layout) +
         dxf("0 SECTION|2 NOVEL|0 THING|5 41|1 kept|0 ENDSEC|0 EOF", layout) + "trash behind\nthe end";
}

std::string entities(std::string_view groups, const Layout& layout) {
  return dxf(header(layout, "FFF"), layout) + dxf(kTables, layout) + dxf("0 ENDTAB|0 ENDSEC", layout) +
         dxf(kSpaces, layout) + dxf("0 ENDSEC|0 SECTION|2 ENTITIES", layout) + dxf(groups, layout) +
         dxf("0 ENDSEC|0 EOF", layout);
}

namespace {

std::string nextLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  std::string line(text.substr(0, end));
  text.remove_prefix(std::min(end + 1, text.size()));
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

template <class Number>
void appendNumber(Number number, std::string& bytes) {
  bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

void appendChunk(const std::string& digits, std::string& bytes) {
  bytes += static_cast<char>(digits.size() / 2);
  for (std::size_t at = 0; at < digits.size(); at += 2)
    bytes += static_cast<char>(std::stoi(digits.substr(at, 2), nullptr, 16));
}

} // namespace

std::string toBinary(std::string_view ascii, bool shortCodes) {
  std::string bytes("AnyCAD! Binary DXF\r\n\x1A\0", 22);
  for (std::string value; !ascii.empty() && value != "EOF";) {
    const int code = std::stoi(nextLine(ascii));
    value = nextLine(ascii);
    if (shortCodes && code < 255)
      bytes += static_cast<char>(code);
    else if (shortCodes)
      appendNumber(static_cast<OdInt16>(code), bytes += '\xFF');
    else
      appendNumber(static_cast<OdInt16>(code), bytes);
    switch (binaryValue(code)) {
    case BinaryValue::kReal: appendNumber(std::stod(value), bytes); break;
    case BinaryValue::kInt8: appendNumber(static_cast<OdInt8>(std::stoi(value)), bytes); break;
    case BinaryValue::kInt16: appendNumber(static_cast<OdInt16>(std::stoi(value)), bytes); break;
    case BinaryValue::kInt32: appendNumber(std::stoi(value), bytes); break;
    case BinaryValue::kInt64: appendNumber(static_cast<OdInt64>(std::stoll(value)), bytes); break;
    case BinaryValue::kChunk: appendChunk(value, bytes); break;
    default: bytes.append(value) += '\0';
    }
  }
  return bytes;
}

std::string describe(OdDbStub* stub) {
  const OdDbGroupListPtr groups = stub->content();
  std::string text = stub->dxfName() + ":";
  for (const OdDbGroup& group : groups->items) {
    text += " " + std::to_string(group.code) + "=";
    char number[32];
    if (group.flags & OdDbGroup::kOwnHandle)
      text += OdDbHandle(stub->handle).ascii().toUtf8();
    else if (group.flags & OdDbGroup::kOwner)
      text += OdDbHandle(stub->owner ? stub->owner->handle : 0).ascii().toUtf8();
    else if (group.kind == OdDbGroupKind::kReal)
      text.append(number, std::to_chars(number, number + 32, group.real).ptr);
    else if (group.kind == OdDbGroupKind::kHandle)
      text += OdDbHandle(group.handle).ascii().toUtf8();
    else if (group.isText())
      text += "'" + groups->text(group).toUtf8() + "'";
    else
      text += std::to_string(group.integer);
  }
  return text;
}

std::vector<std::string> describe(OdDbDatabase& database) {
  std::vector<std::string> all;
  odDbVisitAll(database.store(), [&all](OdDbStub* stub) { all.push_back(describe(stub)); });
  return all;
}
