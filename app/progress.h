#pragma once
#include <chrono>
#include <string>

namespace app {

/// A bar on standard error that shows how far long work has come. It appears only on a terminal and only when
/// the work takes a moment; it disappears with the object.
class ProgressBar {
public:
  explicit ProgressBar(std::string label);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  /// `part` runs from 0 to 1. Cheap enough to be called often.
  void show(double part);
  void setLabel(std::string label) { m_label = std::move(label); }
  /// Takes the bar off the screen so that a line can be printed; the next `show` brings it back.
  void hide();

private:
  using Clock = std::chrono::steady_clock;
  std::string m_label;
  Clock::time_point m_due;
  bool m_onTerminal;
  bool m_visible = false;
};

} // namespace app
