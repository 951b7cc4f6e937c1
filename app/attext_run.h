#pragma once
#include "DbDatabase.h"
#include "options.h"
#include <filesystem>

namespace app {

struct AttExtJob {
  OdDbDatabasePtr database;
  std::filesystem::path drawing;
  std::filesystem::path templatePath;
  ExtractFormat format = ExtractFormat::cdf;
  std::filesystem::path output;
};

struct AttExtResult {
  int found = 0;       ///< objects in the current space
  int records = 0;     ///< as the command reports it
  std::string failure; ///< what was said when the command did not come to its report
};

/// Runs the module's AttExt command on all objects of the current space, through its dialog as a person
/// would.
AttExtResult runAttExt(const AttExtJob& job);

} // namespace app
