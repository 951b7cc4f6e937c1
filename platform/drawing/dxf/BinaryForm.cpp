#include "BinaryForm.h"
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

static_assert(std::endian::native == std::endian::little, "numbers are copied as they stand in the file");

namespace {

struct Range {
  int first;
  int last;
  BinaryValue value;
};

// The value types of the group codes, as the drawing exchange format defines them.
constexpr Range kValues[] = {
    {0, 9, BinaryValue::kText},        {10, 59, BinaryValue::kReal},      {60, 79, BinaryValue::kInt16},
    {90, 99, BinaryValue::kInt32},     {100, 109, BinaryValue::kText},    {110, 149, BinaryValue::kReal},
    {160, 169, BinaryValue::kInt64},   {170, 179, BinaryValue::kInt16},   {210, 239, BinaryValue::kReal},
    {270, 289, BinaryValue::kInt16},   {290, 299, BinaryValue::kInt8},    {300, 309, BinaryValue::kText},
    {310, 319, BinaryValue::kChunk},   {320, 369, BinaryValue::kText},    {370, 389, BinaryValue::kInt16},
    {390, 399, BinaryValue::kText},    {400, 409, BinaryValue::kInt16},   {410, 419, BinaryValue::kText},
    {420, 429, BinaryValue::kInt32},   {430, 439, BinaryValue::kText},    {440, 459, BinaryValue::kInt32},
    {460, 469, BinaryValue::kReal},    {470, 481, BinaryValue::kText},    {999, 1003, BinaryValue::kText},
    {1004, 1004, BinaryValue::kChunk}, {1005, 1009, BinaryValue::kText},  {1010, 1059, BinaryValue::kReal},
    {1060, 1070, BinaryValue::kInt16}, {1071, 1071, BinaryValue::kInt32},
};

struct ValueTable {
  static constexpr int kCodes = 1072;
  BinaryValue values[kCodes] = {};
  constexpr ValueTable() {
    for (const Range& range : kValues)
      for (int code = range.first; code <= range.last; ++code) values[code] = range.value;
  }
};
constexpr ValueTable kValueTable;

template <class Number>
Number number(std::string_view bytes) {
  Number value;
  std::memcpy(&value, bytes.data(), sizeof value);
  return value;
}

} // namespace

BinaryValue binaryValue(int code) {
  // Some objects number their groups below zero; like the codes of files that nobody knows, they carry texts.
  if (code >= -9 && code < 0) return BinaryValue::kText;
  return code >= 0 && code < ValueTable::kCodes ? kValueTable.values[code] : BinaryValue::kUnknown;
}

bool binaryCodes::isMarked(std::string_view bytes) {
  using namespace std::string_view_literals;
  return bytes.size() >= kMarkLength && bytes.substr(0, kMarkLength).ends_with(" Binary DXF\r\n\x1A\0"sv);
}

// --- BinaryScanner ---

std::string_view BinaryScanner::take(std::size_t size, const DxfRawGroup& group) {
  if (static_cast<std::size_t>(m_end - m_at) < size) m_text.fail(group.place, "the file ends within a group");
  const std::string_view bytes(m_at, size);
  m_at += size;
  return bytes;
}

int BinaryScanner::code(const DxfRawGroup& group) {
  if (!m_shortCodes) return number<OdInt16>(take(2, group));
  const int code = number<OdUInt8>(take(1, group));
  return code == binaryCodes::kLongCodeFollows ? number<OdInt16>(take(2, group)) : code;
}

bool BinaryScanner::next(DxfRawGroup& group) {
  if (m_at == m_end) return false;
  group.place = m_at;
  group.code = code(group);
  switch (binaryValue(group.code)) {
  case BinaryValue::kText: {
    const void* end = m_at == m_end ? nullptr : std::memchr(m_at, 0, static_cast<std::size_t>(m_end - m_at));
    if (!end) m_text.fail(group.place, "the text of group " + std::to_string(group.code) + " has no end");
    group.value = take(static_cast<std::size_t>(static_cast<const char*>(end) - m_at), group);
    ++m_at;
    return true;
  }
  case BinaryValue::kInt8: group.value = take(1, group); return true;
  case BinaryValue::kInt16: group.value = take(2, group); return true;
  case BinaryValue::kInt32: group.value = take(4, group); return true;
  case BinaryValue::kInt64:
  case BinaryValue::kReal: group.value = take(8, group); return true;
  case BinaryValue::kChunk: group.value = take(number<OdUInt8>(take(1, group)), group); return true;
  case BinaryValue::kUnknown: break;
  }
  m_text.fail(group.place, "expected a group code, met " + std::to_string(group.code));
}

// --- BinaryForm ---

bool BinaryForm::toReal(std::string_view value, double& result) const {
  if (value.size() != sizeof result) return false;
  result = number<double>(value);
  return true;
}

bool BinaryForm::toInteger(std::string_view value, OdInt64& result) const {
  switch (value.size()) {
  case 1: result = static_cast<OdInt16>(number<OdInt8>(value)); return true;
  case 2: result = number<OdInt16>(value); return true;
  case 4: result = number<OdInt32>(value); return true;
  case 8: result = number<OdInt64>(value); return true;
  default: return false;
  }
}

bool BinaryForm::toHandle(std::string_view value, OdUInt64& result) const {
  constexpr int kHexadecimal = 16;
  const char* end = value.data() + value.size();
  const auto read = std::from_chars(value.data(), end, result, kHexadecimal);
  return !value.empty() && read.ec == std::errc() && read.ptr == end;
}

void BinaryForm::append(OdDbGroupList& list, OdDbGroup& group, std::string_view value) const {
  if (group.kind == OdDbGroupKind::kBinary) {
    std::string digits;
    digits.reserve(2 * value.size());
    for (const char byte : value) {
      digits += "0123456789ABCDEF"[static_cast<unsigned char>(byte) >> 4];
      digits += "0123456789ABCDEF"[byte & 15];
    }
    const OdDbGroup owned = list.makeBytes(group.code, digits);
    group.text = owned.text;
    group.size = owned.size;
    group.flags |= OdDbGroup::kOwned;
  } else {
    group.text = value.data();
    group.size = static_cast<OdUInt32>(value.size());
  }
  list.append(group);
}

const char* BinaryForm::expected(OdDbGroupKind kind) const {
  return kind == OdDbGroupKind::kHandle ? "a handle (hexadecimal)" : "a number";
}

const char* BinaryForm::recordBegin(const DxfText& /*text*/, const char* raw, std::string_view name) const {
  return raw - name.size() - 1 - (shortCodes ? 1 : 2);
}

DxfStyle BinaryForm::style(const DxfText& /*text*/, const char* /*behindName*/) const {
  return {shortCodes ? DxfStyle::Form::kBinaryShortCodes : DxfStyle::Form::kBinary};
}
