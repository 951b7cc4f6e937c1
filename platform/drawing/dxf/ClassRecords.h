#pragma once
// Declarations of the kinds of records that a drawing file does not know by itself (the CLASSES section).
#include "DbFiler.h"
#include "DbStore.h"
#include <span>

/// A kind of record, the class that it stores, and the application that brings the class.
struct DxfClassRecord {
  std::string_view record;
  std::string_view className;
  std::string_view application;
  int proxyFlags; ///< what may be done with such objects where the application is missing
  bool isEntity;
};

/// The kinds that the library makes.
std::span<const DxfClassRecord> dxfClassRecords();
/// The kinds that were made since the drawing was read and that none of its CLASSES sections declares.
std::vector<DxfClassRecord> dxfMissingClasses(const OdDbStore& store);
void dxfWriteClass(OdDbDxfFiler& filer, const DxfClassRecord& record, OdDb::DwgVersion version);
