#include "RecoverForm.h"
#include "DbHandle.h"
#include <algorithm>

namespace {

/// The line at `at` without its end; `at` moves to the next one.
std::string_view takeLine(const char*& at, const char* end) {
  const auto* lineEnd = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
  const char* stop = lineEnd ? lineEnd : end;
  std::string_view line(at, static_cast<std::size_t>(stop - at));
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  at = lineEnd ? lineEnd + 1 : end;
  return line;
}

bool readCode(std::string_view line, int& code) {
  constexpr std::size_t kLongest = 40; // with blanks; spares looking through long texts
  constexpr int kLargest = 32767;
  OdInt64 value = 0;
  if (line.size() > kLongest || line.find('+') != std::string_view::npos) return false;
  if (!AsciiForm().toInteger(line, value) || value > kLargest || value < -kLargest) return false;
  code = static_cast<int>(value);
  return true;
}

/// How many bytes the value takes; 0 for texts and chunks, whose bytes tell.
std::size_t sizeOf(BinaryValue value) {
  switch (value) {
  case BinaryValue::kInt8: return 1;
  case BinaryValue::kInt16: return 2;
  case BinaryValue::kInt32: return 4;
  case BinaryValue::kInt64:
  case BinaryValue::kReal: return 8;
  default: return 0;
  }
}

} // namespace

RecoverForm::RecoverForm(const std::shared_ptr<DxfText>& text) {
  const DxfStyle::Form form = dxfParserFor(text)->style(text->bytes.data()).form;
  m_isBinary = form != DxfStyle::Form::kAscii;
  m_binary.shortCodes = form == DxfStyle::Form::kBinaryShortCodes;
  const std::size_t at = text->bytes.find('\n');
  if (at != std::string_view::npos && at > 0 && text->bytes[at - 1] == '\r') m_lineEnd = "\r\n";
}

int RecoverForm::convincing() const {
  constexpr int kLines = 4;
  constexpr int kBytes = 8; // any byte may be a code
  return m_isBinary ? kBytes : kLines;
}

RecoverGroup RecoverForm::asciiAt(const char* at, const char* end) {
  RecoverGroup group;
  group.begin = at;
  group.shown = takeLine(at, end);
  group.next = at;
  group.isGroup = readCode(group.shown, group.code) && at != end;
  if (at != end) group.value = takeLine(at, end);
  group.end = at;
  return group;
}

RecoverGroup RecoverForm::binaryAt(const char* at, const char* end, const char* reach) const {
  constexpr std::size_t kShown = 8;
  RecoverGroup group;
  group.begin = at;
  group.next = group.end = at + 1;
  group.shown = {at, std::min(kShown, static_cast<std::size_t>(end - at))};
  const auto left = [&] { return static_cast<std::size_t>(end - at); };
  const auto take = [&](std::size_t size) {
    const std::string_view bytes(at, size);
    at += size;
    return bytes;
  };
  OdInt64 code = 0;
  const bool isShort =
      m_binary.shortCodes && static_cast<unsigned char>(*at) != binaryCodes::kLongCodeFollows;
  if (m_binary.shortCodes && !isShort) ++at;
  if (left() < (isShort ? 1U : 2U)) return group;
  if (isShort)
    code = static_cast<unsigned char>(take(1).front());
  else
    m_binary.toInteger(take(2), code);
  group.code = static_cast<int>(code);
  const BinaryValue kind = binaryValue(group.code);
  std::size_t size = sizeOf(kind);
  if (kind == BinaryValue::kUnknown || at == end) return group;
  if (kind == BinaryValue::kText) {
    const std::size_t within = std::max(at, std::min(end, reach)) - at;
    const auto* zero = static_cast<const char*>(std::memchr(at, 0, within));
    if (!zero) return group;
    group.value = take(static_cast<std::size_t>(zero - at));
    ++at;
  } else {
    if (kind == BinaryValue::kChunk) size = static_cast<unsigned char>(take(1).front());
    if (left() < size) return group;
    group.value = take(size);
  }
  group.isGroup = true;
  group.end = at;
  return group;
}

bool RecoverForm::isTrue(std::string_view value) const {
  OdInt64 number = 0;
  const bool isNumber = m_isBinary ? m_binary.toInteger(value, number) : m_ascii.toInteger(value, number);
  return isNumber && number != 0;
}

OdUInt64 RecoverForm::handle(std::string_view value) const {
  OdUInt64 handle = 0;
  const bool isHandle = m_isBinary ? m_binary.toHandle(value, handle) : m_ascii.toHandle(value, handle);
  return isHandle ? handle : 0;
}

std::string RecoverForm::group(int code, std::string_view value) const {
  DxfStyle style;
  if (m_isBinary)
    style.form = m_binary.shortCodes ? DxfStyle::Form::kBinaryShortCodes : DxfStyle::Form::kBinary;
  style.lineEnd = m_lineEnd;
  std::string text;
  const auto output = DxfOutput::create([&text](std::string_view bytes) { text.append(bytes); }, style);
  output->text(code, value);
  output->finish();
  return text;
}

std::string RecoverForm::handleGroup(int code, OdUInt64 handle) const {
  return group(code, OdDbHandle(handle).ascii().toUtf8());
}

std::string RecoverForm::end() const { return group(0, "EOF"); }

void RecoverForm::append(std::string& text, std::string_view bytes) const {
  text.append(bytes);
  if (m_isBinary || bytes.empty() || bytes.back() == '\n') return;
  text.append(bytes.back() == '\r' ? "\n" : m_lineEnd);
}
