#pragma once
// Reading drawing files into databases. The strict door: a file that is damaged gets an error with file,
// line, what was expected and what was met.
#include "DbDatabase.h"
#include <functional>

struct OdDbDxfReadOptions {
  /// The encoding of the file's texts ("ANSI_1252", "UTF-8") instead of the one that the file tells; empty:
  /// the file's own. The drawing tells it when it is saved; where its release does not allow it, the texts
  /// are converted into one that it does.
  OdString encoding;
  /// Called now and then with the part of the file that was read, from 0 to 1. False ends reading with an
  /// error.
  std::function<bool(double)> progress;
  /// Called once for every sentence that a person should know about the file, when it has been read; may be
  /// empty.
  std::function<void(const OdString&)> note;
};

/// Reads a drawing file into a database, which must be empty. Throws OdError_FileException; the database is
/// then of no further use. eInvalidInput for an encoding that is not known.
void odDbReadFile(OdDbDatabase& database, const OdString& path, const OdDbDxfReadOptions& options = {});

/// The same for a file that is in memory already. `owner` keeps the bytes alive; `name` stands for the file
/// in messages.
void odDbReadBytes(OdDbDatabase& database, std::string_view bytes, std::shared_ptr<void> owner,
                   const OdString& name, const OdDbDxfReadOptions& options = {});
