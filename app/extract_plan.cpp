#include "extract_plan.h"
#include "OdString.h"
#include "drawing_file.h"
#include "sys/files.h"
#include <algorithm>
#include <cerrno>
#include <fstream>
#include <map>
#include <sstream>

namespace fs = std::filesystem;

namespace app {

namespace {

constexpr std::string_view kNamePlace = "{name}";

bool isFolder(const std::string& path) {
  std::error_code ignored;
  return path.ends_with('/') || fs::is_directory(sys::pathNamed(path), ignored);
}

/// The output with its {name} places still in it.
std::string outputPattern(const ExtractOptions& options) {
  if (!isFolder(options.output)) return options.output;
  const char* extension = options.format == ExtractFormat::dxx ? ".dxx" : ".txt";
  return sys::shownPath(sys::pathNamed(options.output) / kNamePlace) + extension;
}

std::string filledIn(std::string pattern, const std::string& name) {
  for (std::size_t at = pattern.find(kNamePlace); at != std::string::npos;
       at = pattern.find(kNamePlace, at)) {
    pattern.replace(at, kNamePlace.size(), name);
    at += name.size();
  }
  return pattern;
}

bool isSameFile(const fs::path& a, const fs::path& b) {
  std::error_code missing;
  return fs::equivalent(a, b, missing) && !missing;
}

void checkOutput(const fs::path& output, const ExtractOptions& options) {
  // The paths pass through a dialog, which holds text.
  if (OdString::fromUtf8(sys::shownPath(output)).toUtf8() != sys::shownPath(output))
    throw UsageError(shown(output) + ": the name of an output must be UTF-8.");
  for (const std::string& drawing : options.drawings)
    if (isSameFile(output, sys::pathNamed(drawing)))
      throw UsageError(shown(output) + ": --output would overwrite this drawing.");
  if (isSameFile(output, sys::pathNamed(options.templatePath)))
    throw UsageError(shown(output) + ": --output would overwrite the template.");
}

} // namespace

std::vector<fs::path> planOutputs(const ExtractOptions& options) {
  if (options.output == "-") return std::vector<fs::path>(options.drawings.size());
  const std::string pattern = outputPattern(options);
  if (options.drawings.size() > 1 && pattern.find(kNamePlace) == std::string::npos)
    throw UsageError("several drawings need an --output with {name} in it, or a folder.");
  std::vector<fs::path> outputs;
  std::map<fs::path, std::string> drawings;
  for (const std::string& drawing : options.drawings) {
    outputs.push_back(sys::pathNamed(filledIn(pattern, sys::shownPath(sys::pathNamed(drawing).stem()))));
    const auto [other, isNew] = drawings.emplace(outputs.back().lexically_normal(), drawing);
    if (!isNew)
      throw UsageError(other->second + " and " + drawing + " have the same --output " +
                       shown(outputs.back()) + ".");
    checkOutput(outputs.back(), options);
  }
  return outputs;
}

void checkTemplate(const fs::path& file) {
  constexpr std::size_t kColumnWordLength = 7;
  std::error_code ignored;
  if (fs::exists(file, ignored) && !fs::is_regular_file(file, ignored))
    throw UsageError(shown(file) + ": the template is not a file.");
  sys::FileBytes content;
  try {
    content = sys::readFile(file);
  } catch (const sys::FileError& error) {
    throw UsageError(std::string(error.what()) + " (the template)");
  }
  std::istringstream words{std::string(content.bytes)};
  for (std::string name, column; words >> name >> column;) {
    std::ranges::transform(name, name.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    if (column.size() == kColumnWordLength && name != "C:QUOTE" && name != "C:DELIM") return;
  }
  throw UsageError(shown(file) +
                   ": the template describes no column. A column is a name and a word such as C012000.");
}

std::string outputFault(const fs::path& file) {
  errno = 0;
  const std::ofstream attempt(file, std::ios::app);
  return attempt ? std::string() : std::generic_category().message(errno);
}

} // namespace app
