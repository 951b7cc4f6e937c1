#pragma once
// Loading libraries at run time. Names are given as the host's modules know each other ("hbview.dll",
// "hbview") and mapped to the file names of the operating system here and nowhere else.
#include <string>
#include <string_view>

namespace sys {

/// A loaded library as the operating system names it; null: none.
using Library = void*;

/// The file name of a library on this system: "hbview.dll" and "hbview" are "hbview.so" on Linux. A folder
/// stays.
std::string libraryFileName(std::string_view name);

/// Loads a library: by its path, or by name from the program's folder, else from the system's. On failure
/// null, and the system's reason in `error`. Each success asks for one freeLibrary.
Library loadLibrary(std::string_view nameOrPath, std::string& error);

/// The library of that name or path if it is loaded, else null. No reference is added.
Library findLoadedLibrary(std::string_view nameOrPath);

/// The loaded library (or program) that a function or object stands in; no reference is added. Null: none.
Library libraryHolding(const void* address);

/// A symbol that a library itself exports; those of the libraries it was linked with do not count. Null:
/// none.
void* librarySymbol(Library library, const char* name);

/// A symbol that the running program itself exports; those of the libraries it was linked with do not count.
void* programSymbol(const char* name);

/// Gives back what loadLibrary gave. Null is allowed.
void freeLibrary(Library library);

} // namespace sys
