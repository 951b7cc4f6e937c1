#pragma once
// What the library knows of a class's groups, as tables: code, kind of value, default. Typed properties, the
// canonical output and new objects are all made from these tables.
#include "DbGroup.h"
#include <span>

enum class OdDbFieldKind : OdUInt8 {
  kString,
  kName, ///< text that names a table record
  kBool,
  kInt16,
  kInt32,
  kObjectId, ///< a reference to another object
  kAngle,    ///< degrees in the groups, radians in the interface
  kReal,
  kPoint2d,
  kPoint3d,   ///< code, code + 10, code + 20
  kVector3d,  ///< code, code + 10, code + 20
  kDirection, ///< the same; its default is along X
  kScale3d,   ///< code, code + 1, code + 2
};

struct OdDbField {
  OdInt16 code;
  OdDbFieldKind kind;
  /// Whether a new object is stored with this group even while it has the default value.
  bool always = false;
  /// Default of numbers; of points and vectors their last coordinate, of directions the first (the others are
  /// 0); of scales all three.
  double number = 0;
  /// Default of texts.
  const char* text = "";
};

/// One subclass section of an object's groups: its marker (group 100) and its fields in canonical order.
struct OdDbSubclass {
  const char* marker;
  std::span<const OdDbField> fields;
  /// Another marker under which the same section occurs in files, or null.
  const char* alias = nullptr;
  /// Where new groups go when the marker stands more than once: 0 behind the first, 1 behind the second.
  int occurrence = 0;

  const OdDbField* field(int code) const;
  bool isMarker(std::string_view text) const { return text == marker || (alias && text == alias); }
};

/// The sections of a class, base first.
using OdDbSchema = std::span<const OdDbSubclass* const>;

namespace odDbGroups {
/// A range of groups [first, last).
struct Range {
  int first;
  int last;
};
/// Index of the first group of extended data (the first 1001), or the size.
int xDataStart(const OdDbGroupList& groups);
/// Index of the n-th group with this code inside the section, or -1. Groups inside {...} (102), embedded
/// records (after 101) and extended data do not count. An object without any marker is one section.
int find(const OdDbGroupList& groups, const OdDbSubclass& section, int code, int nth = 0);
/// Where a group of this code belongs in the section: behind the last of the fields that canonically precede
/// it. Makes the section (with its marker) when the object has none.
int place(OdDbGroupList& groups, OdDbSchema schema, const OdDbSubclass& section, int code);
/// The groups between the braces of a 102 group such as "{ACAD_XDICTIONARY", or an empty range with first =
/// -1.
Range braces(const OdDbGroupList& groups, std::string_view opening);
/// The embedded record (the groups after the first 101), or an empty range with first = -1.
Range embedded(const OdDbGroupList& groups);
/// The groups of a new object: identity, markers, and all fields that are always stored.
void initialize(OdDbGroupList& groups, OdDbSchema schema);
} // namespace odDbGroups
