#pragma once
#include "DbFiler.h"
#include <vector>

namespace attext {

enum class PointForm { dxf, debug };
/// The coordinates under the group codes 10, 20 and 30, or, for debugging, in short as "[1.00,2.00,3.00]".
OdString pointText(double x, double y, PointForm form);
OdString pointText(double x, double y, double z, PointForm form);

/// Takes the DXF data of an object as a list of texts, one for each value: a tab, the group code, a line end,
/// the value. Files in the DXX format consist of these texts.
///
/// Readers of DXX files know these departures from DXF: points, vectors and scales always stand under the
/// codes 10, 20 and 30; a truth value has the letter d for its code; angles have two decimals and reals four;
/// of binary data only the size is told; object ids are left out.
class TqDxfFiler : public OdDbDxfFiler {
  ODRX_DECLARE_MEMBERS(TqDxfFiler);

public:
  explicit TqDxfFiler(OdDbObjectId object) : m_object(object) {}

  const std::vector<OdString>& entries() const { return m_entries; }

  /// An id that objectIdText shows without its class.
  void addKnownId(OdDbObjectId id) { m_knownIds.append(id); }
  /// What the object-id writer builds, for a look in the debugger: the id as a pointer, and for an unknown
  /// one the class of its object.
  OdString objectIdText(int code, OdDbObjectId id) const;
  const OdString& lastObjectIdText() const { return m_lastObjectIdText; }

  /// Remarks among the entries, without a group code.
  void addChunkRemark(OdUInt32 size);
  void addMarkerRemark(const OdString& marker);

  OdDbDatabase* database() const override { return m_object.database(); }
  /// A DXX file shows each field of the object, also where a drawing file would leave it out.
  bool includesDefaultValues() const override { return true; }

  void wrName(int code, const OdString& value) override;
  void wrString(int code, const OdString& value) override;
  void wrBool(int code, bool value) override;
  void wrInt8(int code, OdInt8 value) override;
  void wrUInt8(int code, OdUInt8 value) override;
  void wrInt16(int code, OdInt16 value) override;
  void wrUInt16(int code, OdUInt16 value) override;
  void wrInt32(int code, OdInt32 value) override;
  void wrUInt32(int code, OdUInt32 value) override;
  void wrInt64(int code, OdInt64 value) override;
  void wrUInt64(int code, OdUInt64 value) override;
  void wrHandle(int code, OdDbHandle value) override;
  void wrObjectId(int code, OdDbObjectId value) override;
  void wrAngle(int code, double value) override;
  void wrDouble(int code, double value) override;
  void wrPoint2d(int code, const OdGePoint2d& value) override;
  void wrPoint3d(int code, const OdGePoint3d& value) override;
  void wrVector2d(int code, const OdGeVector2d& value) override;
  void wrVector3d(int code, const OdGeVector3d& value) override;
  void wrScale3d(int code, const OdGeScale3d& value) override;
  void wrBinaryChunk(int code, const OdUInt8* bytes, OdUInt32 size) override;

private:
  template <class... Values>
  void add(const OdChar* format, Values... values) {
    m_entries.emplace_back().format(format, values...);
  }

  OdDbObjectId m_object;
  OdDbObjectIdArray m_knownIds;
  std::vector<OdString> m_entries;
  OdString m_lastObjectIdText;
};

} // namespace attext
