#include "events5/Box.h"

std::optional<int> host::showBox(void*, const wchar_t*, const wchar_t*, unsigned int) { return std::nullopt; }
