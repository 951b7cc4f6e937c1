#include "progress.h"
#include "sys/terminal.h"
#include <algorithm>
#include <cmath>
#include <iostream>

namespace app {

namespace {

constexpr std::chrono::milliseconds kPatience{300}, kInterval{100};
constexpr int kBarWidth = 30, kPercentWidth = 5;

/// The bar itself, its percentage and as much of the label as fits into one line.
std::string barLine(double part, const std::string& label, int columns) {
  const int full = static_cast<int>(std::lround(part * kBarWidth));
  std::string line = "[" + std::string(full, '#') + std::string(kBarWidth - full, '.') + "] ";
  const std::string percent = std::to_string(static_cast<int>(part * 100)) + "%";
  line +=
      std::string(kPercentWidth - 1 - std::min<int>(kPercentWidth - 1, percent.size()), ' ') + percent + " ";
  const std::size_t room = std::max(0, columns - 1 - static_cast<int>(line.size()));
  return line + (label.size() <= room ? label : label.substr(label.size() - room));
}

} // namespace

ProgressBar::ProgressBar(std::string label)
    : m_label(std::move(label)), m_due(Clock::now() + kPatience),
      m_onTerminal(sys::isTerminal(sys::Stream::error)) {}

ProgressBar::~ProgressBar() { hide(); }

void ProgressBar::show(double part) {
  if (!m_onTerminal || Clock::now() < m_due) return;
  m_due = Clock::now() + kInterval;
  m_visible = true;
  std::cerr << "\r\x1b[K"
            << barLine(std::clamp(part, 0.0, 1.0), m_label, sys::terminalWidth(sys::Stream::error))
            << std::flush;
}

void ProgressBar::hide() {
  if (m_visible) std::cerr << "\r\x1b[K" << std::flush;
  m_visible = false;
}

} // namespace app
