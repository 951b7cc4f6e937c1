#pragma once
#include "OdString.h"
#include <utility>
#include <variant>
#include <vector>

/// A value made of bytes.
class QkBlob {
public:
  QkBlob() = default;
  /// `size` zero bytes.
  explicit QkBlob(std::size_t size) : m_bytes(size) {}
  QkBlob(const unsigned char* bytes, std::size_t size) : m_bytes(bytes, bytes + size) {}

  unsigned char* data() { return m_bytes.data(); }
  const unsigned char* data() const { return m_bytes.data(); }
  std::size_t size() const { return m_bytes.size(); }
  friend bool operator==(const QkBlob& a, const QkBlob& b) { return a.m_bytes == b.m_bytes; }

private:
  std::vector<unsigned char> m_bytes;
};

/// A value of the profile: nothing, an integer, a real number, a text or a blob.
class CQkVariant {
public:
  CQkVariant() = default;
  CQkVariant(int value) : m_value(value) {}
  CQkVariant(double value) : m_value(value) {}
  CQkVariant(OdString value) : m_value(std::move(value)) {}
  CQkVariant(QkBlob value) : m_value(std::move(value)) {}

  bool isEmpty() const { return std::holds_alternative<std::monostate>(m_value); }
  /// The value, or null when it is of another type.
  const int* asInt() const { return std::get_if<int>(&m_value); }
  const double* asReal() const { return std::get_if<double>(&m_value); }
  const OdString* asString() const { return std::get_if<OdString>(&m_value); }
  const QkBlob* asBlob() const { return std::get_if<QkBlob>(&m_value); }
  friend bool operator==(const CQkVariant& a, const CQkVariant& b) { return a.m_value == b.m_value; }

private:
  std::variant<std::monostate, int, double, OdString, QkBlob> m_value;
};
