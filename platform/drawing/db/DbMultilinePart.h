#pragma once
// Where an attribute keeps its text of several lines. From the 2018 release on that is a record embedded in
// the attribute (behind group 101). Drawings of 2000 to 2013 keep it in an XRECORD "ACAD_MLATT" of the
// attribute's extension dictionary, together with the tag; the attribute itself then shows one line, under
// the tag with "_001". Internal to the drawing library.
#include "DbObject.h"

struct OdDbMultilinePart {
  OdDbObjectPtr record;                  ///< the XRECORD; null for an embedded record
  const OdDbGroupList* groups = nullptr; ///< of the record, or of the attribute
  odDbGroups::Range body{-1, -1};        ///< the groups of the text, as MTEXT has them

  bool found() const { return groups != nullptr; }
  bool isEmbedded() const { return found() && record.isNull(); }
  bool isRecord() const { return !record.isNull(); }
  /// The value of a group of the text, or the fallback.
  double real(int code, double fallback) const;
  int integer(int code, int fallback) const;
  /// The tag that the XRECORD holds.
  OdString tag() const;
  void setTag(const OdString& tag);
  /// Replaces the groups of the text in `list`, which is the one that `groups` points to, opened for change.
  void replaceBody(OdDbGroupList& list, const OdDbGroupList& from, odDbGroups::Range range) const;
  /// Other attributes that show further lines of this one.
  OdDbObjectIdArray secondaries() const;
  /// Erases them.
  void dropSecondaries();
};

namespace odDbMultiline {
inline constexpr char kEmbeddedMark[] = "Embedded Object";
/// What group 71 of an attribute, and the first group 70 of the XRECORD, say.
enum Kind { kAttribute = 2, kDefinition = 4 };

/// The part of an attribute or attribute definition, found or not.
OdDbMultilinePart find(const OdDbObject& attribute);
/// Gives a resident attribute an XRECORD with the groups of a text.
void makeRecord(OdDbObject& attribute, Kind kind, const OdString& tag, const OdDbGroupList& from,
                odDbGroups::Range range);
/// Erases the XRECORD of the attribute.
void dropRecord(OdDbObject& attribute);
/// Whether the stored form of an attribute may hold an XRECORD; costs no parsing.
bool mayHaveRecord(const OdDbStub* attribute);
} // namespace odDbMultiline
