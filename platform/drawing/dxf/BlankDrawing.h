#pragma once
#include <string>

/// An empty drawing as an ASCII file of release 2018: every table, the standard records, model space and one
/// layout.
std::string dxfBlankDrawing();
