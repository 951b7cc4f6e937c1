#include "sys/files.h"

namespace sys {

FileError::FileError(const std::filesystem::path& path, std::string_view reason)
    : std::runtime_error(shownPath(path) + ": " + std::string(reason)) {}

} // namespace sys
