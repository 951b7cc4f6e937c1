#include "text_file.h"
#include "sys/codepage.h"
#include "sys/files.h"

namespace attext {

// The stream's text mode turns "\n" into what ends a line on the system.
TextFile::TextFile(const OdString& path) : m_stream(sys::toPath(path.str()), std::ios::trunc) {}

void TextFile::write(std::wstring_view text) { write(std::string_view(sys::toNarrow(text))); }

void TextFile::write(std::string_view narrow) {
  m_stream.write(narrow.data(), static_cast<std::streamsize>(narrow.size()));
}

bool TextFile::close() {
  m_stream.close();
  return !m_stream.fail();
}

} // namespace attext
