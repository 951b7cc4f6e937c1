#pragma once
// Whether the texts of a drawing file are in the encoding that the file tells.
#include "DxfText.h"
#include "OdaDefs.h"
#include <string>
#include <vector>

/// What decides about the encoding of a drawing file.
struct DxfEncodingFacts {
  OdDb::DwgVersion version = OdDb::vUnknown;
  std::string codePage; ///< as the header names it; empty: it does not
  std::string encoding; ///< that the user named instead; empty: none
};

/// What a person should know about the texts of a drawing file that can be read: that the header names no
/// code page or one that is not known, that the texts are in another encoding than the file tells, or that
/// some of their bytes mean nothing. Each sentence counts the texts, tells where the first one stands, and
/// says what can be done. Costs one pass over the bytes, two over those of a binary file, and looks closer at
/// texts beyond ASCII only.
std::vector<std::string> dxfCheckText(const DxfText& text, const DxfEncodingFacts& facts);

/// The first place at or behind `at` whose byte is not ASCII; `end` when there is none.
const char* dxfBeyondAscii(const char* at, const char* end);
