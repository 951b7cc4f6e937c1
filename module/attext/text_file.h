#pragma once
#include "OdString.h"
#include <fstream>
#include <string_view>

namespace attext {

/// A text file that the module writes: in the system's narrow code page, with the system's line ends.
class TextFile {
public:
  /// Makes the file, or empties the one that exists.
  explicit TextFile(const OdString& path);

  bool isOpen() const { return m_stream.is_open(); }
  /// A "\n" in the text ends a line.
  void write(std::wstring_view text);
  /// The same for text that is in the code page already.
  void write(std::string_view narrow);
  /// Whether everything has reached the file.
  bool close();

private:
  std::ofstream m_stream;
};

} // namespace attext
