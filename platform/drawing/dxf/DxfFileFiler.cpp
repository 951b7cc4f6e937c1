#include "DxfFileFiler.h"
#include "DbGroup.h"

bool OdDbDxfFileFiler::wrStored(const OdDbGroupList& list, const OdDbGroup& group) {
  switch (group.kind) {
  case OdDbGroupKind::kBinary: m_output.chunk(group.code, group.bytes()); break;
  case OdDbGroupKind::kText:
    if ((group.flags & OdDbGroup::kOwned) || !list.codec) {
      m_text.clear();
      m_codec.encodeOwned(group.bytes(), m_text);
      m_output.text(group.code, m_text);
    } else if (list.codec == &m_codec) {
      m_output.text(group.code, group.bytes()); // in the file's encoding already
    } else {
      wrString(group.code, list.text(group));
    }
    break;
  case OdDbGroupKind::kReal: m_output.real(group.code, group.real); break;
  case OdDbGroupKind::kInteger:
  case OdDbGroupKind::kBool: m_output.integer(group.code, group.integer); break;
  case OdDbGroupKind::kHandle: m_output.handle(group.code, group.handle); break;
  }
  return true;
}

void OdDbDxfFileFiler::wrString(int code, const OdString& value) {
  m_text.clear();
  m_codec.encode(value.str(), m_text);
  m_output.text(code, m_text);
}

void OdDbDxfFileFiler::wrPoint2d(int code, const OdGePoint2d& value) {
  wrDouble(code, value.x);
  wrDouble(code + 10, value.y);
}

void OdDbDxfFileFiler::wrPoint3d(int code, const OdGePoint3d& value) {
  wrDouble(code, value.x);
  wrDouble(code + 10, value.y);
  wrDouble(code + 20, value.z);
}

void OdDbDxfFileFiler::wrVector2d(int code, const OdGeVector2d& value) {
  wrDouble(code, value.x);
  wrDouble(code + 10, value.y);
}

void OdDbDxfFileFiler::wrVector3d(int code, const OdGeVector3d& value) {
  wrDouble(code, value.x);
  wrDouble(code + 10, value.y);
  wrDouble(code + 20, value.z);
}

void OdDbDxfFileFiler::wrScale3d(int code, const OdGeScale3d& value) {
  wrDouble(code, value.sx);
  wrDouble(code + 1, value.sy);
  wrDouble(code + 2, value.sz);
}

void OdDbDxfFileFiler::wrBinaryChunk(int code, const OdUInt8* bytes, OdUInt32 size) {
  m_text.clear();
  for (OdUInt32 i = 0; i < size; ++i) {
    m_text += "0123456789ABCDEF"[bytes[i] >> 4];
    m_text += "0123456789ABCDEF"[bytes[i] & 15];
  }
  m_output.chunk(code, m_text);
}
