#pragma once
// Which groups and header variables name records of tables. Internal to the drawing library.
#include <string_view>

/// Where objects name a record of a table. An empty record name means records of every kind. A marker limits
/// the use to one section; in records without sections (old releases) it is met as well.
struct OdDbNameUse {
  std::string_view table;
  int code;
  std::string_view record;
  std::string_view marker;

  bool isIn(std::string_view dxfName) const { return record.empty() || record == dxfName; }
  /// `current` is the marker that the group stands behind; empty before the first one of an entity.
  bool isAt(int groupCode, std::string_view current) const {
    return code == groupCode && (marker.empty() || current.empty() || marker == current);
  }
};

inline constexpr OdDbNameUse kOdDbNameUses[] = {
    {"LAYER", 8, "", ""},
    {"LAYER", 1003, "", ""},
    {"APPID", 1001, "", ""},
    {"LTYPE", 6, "", "AcDbEntity"},
    {"LTYPE", 6, "LAYER", ""},
    {"LTYPE", 6, "MLINESTYLE", ""},
    {"STYLE", 7, "TEXT", ""},
    {"STYLE", 7, "ATTRIB", ""},
    {"STYLE", 7, "ATTDEF", ""},
    {"STYLE", 7, "MTEXT", ""},
    {"STYLE", 7, "ACAD_TABLE", ""},
    {"STYLE", 7, "TABLESTYLE", ""},
    {"BLOCK_RECORD", 2, "INSERT", ""},
    {"BLOCK_RECORD", 2, "ACAD_TABLE", "AcDbBlockReference"},
    {"BLOCK_RECORD", 2, "DIMENSION", "AcDbDimension"},
    {"BLOCK_RECORD", 2, "ARC_DIMENSION", "AcDbDimension"},
    {"BLOCK_RECORD", 2, "LARGE_RADIAL_DIMENSION", "AcDbDimension"},
    {"BLOCK_RECORD", 5, "DIMSTYLE", ""},
    {"BLOCK_RECORD", 6, "DIMSTYLE", ""},
    {"BLOCK_RECORD", 7, "DIMSTYLE", ""},
    {"DIMSTYLE", 3, "DIMENSION", "AcDbDimension"},
    {"DIMSTYLE", 3, "ARC_DIMENSION", "AcDbDimension"},
    {"DIMSTYLE", 3, "LARGE_RADIAL_DIMENSION", "AcDbDimension"},
    {"DIMSTYLE", 3, "LEADER", "AcDbLeader"},
    {"DIMSTYLE", 3, "TOLERANCE", "AcDbFcf"},
};

/// Header variables that name a record.
struct OdDbHeaderNameUse {
  std::string_view table;
  std::string_view variable;
};

inline constexpr OdDbHeaderNameUse kOdDbHeaderNameUses[] = {
    {"LAYER", "$CLAYER"},         {"LTYPE", "$CELTYPE"},        {"LTYPE", "$DIMLTYPE"},
    {"LTYPE", "$DIMLTEX1"},       {"LTYPE", "$DIMLTEX2"},       {"STYLE", "$TEXTSTYLE"},
    {"STYLE", "$DIMTXSTY"},       {"DIMSTYLE", "$DIMSTYLE"},    {"BLOCK_RECORD", "$DIMBLK"},
    {"BLOCK_RECORD", "$DIMBLK1"}, {"BLOCK_RECORD", "$DIMBLK2"}, {"BLOCK_RECORD", "$DIMLDRBLK"},
    {"UCS", "$UCSNAME"},          {"UCS", "$UCSBASE"},          {"UCS", "$UCSORTHOREF"},
    {"UCS", "$PUCSNAME"},         {"UCS", "$PUCSBASE"},         {"UCS", "$PUCSORTHOREF"},
};
