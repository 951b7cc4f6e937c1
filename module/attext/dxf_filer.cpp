#include "dxf_filer.h"
#include "DbObject.h"
#include <bit>

namespace attext {

ODRX_NO_CONS_DEFINE_MEMBERS(TqDxfFiler, OdDbDxfFiler)

OdString pointText(double x, double y, PointForm form) {
  return OdString().format(form == PointForm::dxf ? L"\t10\n%.6f\n\t20\n%.6f" : L"[%.2f,%.2f]", x, y);
}

OdString pointText(double x, double y, double z, PointForm form) {
  return OdString().format(
      form == PointForm::dxf ? L"\t10\n%.6f\n\t20\n%.6f\n\t30\n%.6f" : L"[%.2f,%.2f,%.2f]", x, y, z);
}

OdString TqDxfFiler::objectIdText(int code, OdDbObjectId id) const {
  OdString text;
  text.format(L"\t%d #wrObjectId@\n0x%016I64X", code, OdUInt64{std::bit_cast<OdUIntPtr>(id)});
  if (m_knownIds.contains(id)) return text;
  const OdDbObjectPtr object = id.openObject();
  return object.isNull() ? text : text + L" -> " + object->isA()->name();
}

void TqDxfFiler::addChunkRemark(OdUInt32 size) { add(L"wrBinaryChunk: %d", size); }
void TqDxfFiler::addMarkerRemark(const OdString& marker) { add(L"wrSubclassMarker: %s", marker.c_str()); }

void TqDxfFiler::wrName(int code, const OdString& value) { wrString(code, value); }
void TqDxfFiler::wrString(int code, const OdString& value) { add(L"\t%d\n%s", code, value.c_str()); }
void TqDxfFiler::wrBool(int, bool value) { add(L"\td\n%d", value ? 1 : 0); }
void TqDxfFiler::wrInt8(int code, OdInt8 value) { wrInt32(code, value); }
void TqDxfFiler::wrUInt8(int code, OdUInt8 value) { wrInt32(code, value); }
void TqDxfFiler::wrInt16(int code, OdInt16 value) { wrInt32(code, value); }
void TqDxfFiler::wrUInt16(int code, OdUInt16 value) { wrInt32(code, value); }
void TqDxfFiler::wrInt32(int code, OdInt32 value) { add(L"\t%d\n%d", code, value); }
void TqDxfFiler::wrUInt32(int code, OdUInt32 value) { add(L"\t%d\n%d", code, value); }
void TqDxfFiler::wrInt64(int code, OdInt64 value) { add(L"\t%d\n%I64d", code, value); }
void TqDxfFiler::wrUInt64(int code, OdUInt64 value) { add(L"\t%d\n%I64d", code, value); }
void TqDxfFiler::wrHandle(int code, OdDbHandle value) { wrString(code, value.ascii()); }
void TqDxfFiler::wrObjectId(int code, OdDbObjectId value) { m_lastObjectIdText = objectIdText(code, value); }
void TqDxfFiler::wrAngle(int code, double value) { add(L"\t%d\n%.2f", code, value); }
void TqDxfFiler::wrDouble(int code, double value) { add(L"\t%d\n%.4f", code, value); }

void TqDxfFiler::wrPoint2d(int, const OdGePoint2d& value) {
  m_entries.push_back(pointText(value.x, value.y, PointForm::dxf));
}
void TqDxfFiler::wrPoint3d(int, const OdGePoint3d& value) {
  m_entries.push_back(pointText(value.x, value.y, value.z, PointForm::dxf));
}
void TqDxfFiler::wrVector2d(int, const OdGeVector2d& value) {
  m_entries.push_back(pointText(value.x, value.y, PointForm::dxf));
}
void TqDxfFiler::wrVector3d(int, const OdGeVector3d& value) {
  m_entries.push_back(pointText(value.x, value.y, value.z, PointForm::dxf));
}
void TqDxfFiler::wrScale3d(int, const OdGeScale3d& value) {
  m_entries.push_back(pointText(value.sx, value.sy, value.sz, PointForm::dxf));
}

void TqDxfFiler::wrBinaryChunk(int code, const OdUInt8*, OdUInt32 size) {
  add(L"\t%d /*wrBinaryChunk*/\n%d", code, size);
}

} // namespace attext
