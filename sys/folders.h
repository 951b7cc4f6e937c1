#pragma once
// The folders of the user and of the program.
#include <filesystem>

namespace sys {

/// Where a program keeps its settings for this user: $XDG_CONFIG_HOME or ~/.config, with the folder of this
/// program's family. It need not exist. Empty when the user has no home.
std::filesystem::path configFolder();

/// Where a program keeps what it remembers between sessions, such as typed lines: $XDG_STATE_HOME or
/// ~/.local/state, with the folder of this program's family. It need not exist. Empty when the user has no
/// home.
std::filesystem::path stateFolder();

/// The user's documents, as the desktop names them, else ~/Documents where it exists; else empty.
std::filesystem::path documentsFolder();

/// The folder that holds the running program; empty when the system does not tell.
std::filesystem::path programFolder();

} // namespace sys
