#pragma once
// The bytes of a drawing file and its name, for messages that say where something is wrong.
#include "OdString.h"
#include <string>
#include <string_view>

struct DxfText {
  std::string_view bytes;
  OdString fileName;
  bool isBinary = false; ///< places are bytes, not lines

  /// The number of the line that holds the place; the first is 1.
  int lineOf(const char* place) const;
  /// "line 12", or "byte 1234" (the first is 0).
  std::string describe(const char* place) const;
  /// Throws OdError_FileException with the file, the place, and the sentence.
  [[noreturn]] void fail(const char* place, std::string_view sentence) const;
};

/// Bytes of a file as a message can show them: quoted, shortened, control characters and others as question
/// marks.
std::string dxfQuoted(std::string_view bytes);
