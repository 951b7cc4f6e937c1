#pragma once
#include "DbFiler.h"
#include "DxfOutput.h"
#include "TextCodec.h"

/// Prints groups as drawing files hold them.
class OdDbDxfFileFiler : public OdDbDxfFiler {
public:
  /// Output and codec must outlive the filer.
  OdDbDxfFileFiler(DxfOutput& output, const OdDbDxfTextCodec& codec, OdDbDatabase* database)
      : m_output(output), m_codec(codec), m_database(database) {}

  OdDbDatabase* database() const override { return m_database; }
  bool wrStored(const OdDbGroupList& list, const OdDbGroup& group) override;

  void wrName(int code, const OdString& value) override { wrString(code, value); }
  void wrString(int code, const OdString& value) override;
  void wrBool(int code, bool value) override { m_output.integer(code, value ? 1 : 0); }
  void wrInt8(int code, OdInt8 value) override { m_output.integer(code, value); }
  void wrUInt8(int code, OdUInt8 value) override { m_output.integer(code, value); }
  void wrInt16(int code, OdInt16 value) override { m_output.integer(code, value); }
  void wrUInt16(int code, OdUInt16 value) override { m_output.integer(code, value); }
  void wrInt32(int code, OdInt32 value) override { m_output.integer(code, value); }
  void wrUInt32(int code, OdUInt32 value) override { m_output.integer(code, value); }
  void wrInt64(int code, OdInt64 value) override { m_output.integer(code, value); }
  void wrUInt64(int code, OdUInt64 value) override { m_output.integer(code, static_cast<OdInt64>(value)); }
  void wrHandle(int code, OdDbHandle value) override { m_output.handle(code, static_cast<OdUInt64>(value)); }
  void wrObjectId(int code, OdDbObjectId value) override { wrHandle(code, value.getHandle()); }
  void wrAngle(int code, double value) override { wrDouble(code, OdaToDegree(value)); }
  void wrDouble(int code, double value) override { m_output.real(code, value); }
  void wrPoint2d(int code, const OdGePoint2d& value) override;
  void wrPoint3d(int code, const OdGePoint3d& value) override;
  void wrVector2d(int code, const OdGeVector2d& value) override;
  void wrVector3d(int code, const OdGeVector3d& value) override;
  void wrScale3d(int code, const OdGeScale3d& value) override;
  void wrBinaryChunk(int code, const OdUInt8* bytes, OdUInt32 size) override;

private:
  DxfOutput& m_output;
  const OdDbDxfTextCodec& m_codec;
  OdDbDatabase* m_database;
  std::string m_text;
};
