#pragma once
// The folders of the user and of the program.
#include <filesystem>

namespace sys {

/// Where a program keeps its settings for this user, with the folder of this program's family: %APPDATA% on
/// Windows, else $XDG_CONFIG_HOME or ~/.config. It need not exist. Empty when the user has no home.
std::filesystem::path configFolder();

/// Where a program keeps what it remembers between sessions, such as typed lines, with the folder of this
/// program's family: %LOCALAPPDATA% on Windows, else $XDG_STATE_HOME or ~/.local/state. It need not exist.
/// Empty when the user has no home.
std::filesystem::path stateFolder();

/// The user's documents, as the desktop names them, else ~/Documents where it exists; else empty.
std::filesystem::path documentsFolder();

/// The folder that holds the running program; empty when the system does not tell.
std::filesystem::path programFolder();

/// The path in an environment variable; empty where there is none.
std::filesystem::path environmentPath(const char* variable);

} // namespace sys
