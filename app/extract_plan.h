#pragma once
#include "options.h"
#include <filesystem>
#include <stdexcept>

namespace app {

/// The arguments cannot be carried out; the sentence says why.
class UsageError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// Where the records of each drawing go, in the order of the drawings; the empty path stands for the standard
/// output. Throws UsageError when two drawings share an output, or an output is a drawing or the template.
std::vector<std::filesystem::path> planOutputs(const ExtractOptions& options);

/// Throws UsageError when the template cannot be read or describes no column.
void checkTemplate(const std::filesystem::path& file);

/// Why a file cannot be written; empty when it can.
std::string outputFault(const std::filesystem::path& file);

} // namespace app
