#pragma once
#include <utility>

namespace ui::win32 {

/// Sets a flag while it lives.
class Flag {
public:
  explicit Flag(bool& flag) : m_flag(flag), m_before(std::exchange(flag, true)) {}
  ~Flag() { m_flag = m_before; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;

private:
  bool& m_flag;
  bool m_before;
};

} // namespace ui::win32
