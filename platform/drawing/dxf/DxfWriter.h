#pragma once
// Writing databases as drawing files.
#include "DbDatabase.h"
#include <functional>
#include <string>

struct OdDbDxfWriteOptions {
  /// Whether the changes are looked over (dxfSelfCheck), and the new file is read back and compared with the
  /// drawing before it replaces the old one.
  bool verify = true;
  /// Whether the file that is replaced is kept under its name and ".bak".
  bool backup = false;
  /// Called once for each thing about the changes that a person should know, such as a name that leads
  /// nowhere; may be empty.
  std::function<void(const OdString&)> note;
  /// Called now and then with the part of the work that is done, from 0 to 1; may be empty.
  std::function<void(double)> progress;
};

/// Writes a drawing in the release, form and layout it was read in. What nobody changed goes out byte for
/// byte as it was read. Throws OdError_FileException; an old file of that name then stands untouched.
void odDbWriteFile(OdDbDatabase& database, const OdString& path, const OdDbDxfWriteOptions& options = {});

/// The bytes that writing would put into the file.
std::string odDbWriteBytes(OdDbDatabase& database);
