#pragma once
#include "DbDatabase.h"
#include "DxfFindings.h"
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace app {

/// A path as a sentence shows it; UTF-8.
std::string shown(const std::filesystem::path& path);

/// Called with the part of the work that is done, 0 to 1.
using Progress = std::function<void(double)>;

enum class Door {
  strict,     ///< damaged drawings are refused
  recovering, ///< damaged drawings are repaired
};

struct ReadDrawing {
  OdDbDatabasePtr database;
  std::vector<std::string> notes;            ///< what a person should know about the file
  std::vector<OdDbDxfFinding> findings = {}; ///< what was wrong with it
  bool recovered = false;                    ///< whether it was read through the recovering door
};

/// Reads a drawing. `encoding` is that of its texts, empty: the one that it tells. Throws OdError with a
/// sentence that names the file.
ReadDrawing readDrawing(const std::filesystem::path& file, Door door, const std::string& encoding,
                        const Progress& progress);
/// Prints the notes about a file on standard error, and what was found while recovering it.
void printNotes(const std::filesystem::path& file, const std::vector<std::string>& notes);
void printNotes(const std::filesystem::path& file, const ReadDrawing& read);

struct SavingOptions {
  bool check = true;          ///< the new file is read back and compared before it replaces the old one
  bool backup = false;        ///< the old file is kept as NAME.bak
  bool asRelease2000 = false; ///< an older drawing becomes one of this release
};

/// Writes a drawing. One of a release before 2000 becomes one of release 2000 when that is wanted, or when
/// its release cannot store something that was made or changed. Returns notes: that this was so, and names
/// that lead nowhere. Throws OdError with a sentence that names the file; an old file then stands untouched.
std::vector<std::string> writeDrawing(OdDbDatabase& database, const std::filesystem::path& file,
                                      const SavingOptions& options, const Progress& progress);

/// What is wrong with the name of an encoding; empty: nothing.
std::string encodingFault(const std::string& name);

} // namespace app
