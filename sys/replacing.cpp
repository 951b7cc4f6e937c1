#include "sys/replacing.h"
#include "sys/files.h"
#include "sys/process.h"
#include <charconv>

namespace fs = std::filesystem;

namespace sys {

namespace {

/// The process that the name of a new file beside `head` tells; 0 for other names.
long long writerOf(std::string_view name, std::string_view head) {
  if (!name.starts_with(head) || !name.ends_with(".new")) return 0;
  name.remove_prefix(head.size());
  long long process = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
  return error == std::errc() && *end == '-' ? process : 0;
}

} // namespace

fs::path unusedName(const fs::path& file, int number) {
  fs::path name = file;
  name += "." + std::to_string(ownProcess()) + "-" + std::to_string(number) + ".new";
  return name;
}

void removeLeftovers(const fs::path& target) {
  const std::string head = shownPath(target.filename()) + ".";
  std::error_code error;
  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error)) {
    const long long writer = writerOf(shownPath(each->path().filename()), head);
    std::error_code ignored;
    if (writer > 0 && hasEnded(writer)) fs::remove(each->path(), ignored);
  }
}

void copyOver(const fs::path& from, const fs::path& to) {
  const FileBytes old = readFile(from);
  ReplacementFile copy(to);
  std::error_code ignored;
  fs::permissions(copy.temporary(), fs::status(from).permissions(), ignored);
  copy.write(old.bytes);
  copy.flush();
  copy.commit();
}

} // namespace sys
