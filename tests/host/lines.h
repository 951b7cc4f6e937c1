#pragma once
#include "hbview/HostSession.h"
#include <deque>

/// A console of typed lines that keeps what it was shown.
class Lines : public host::Console {
public:
  Lines(std::initializer_list<const char*> lines = {}) : m_lines(lines.begin(), lines.end()) {}
  void type(std::initializer_list<const char*> lines) {
    m_lines.insert(m_lines.end(), lines.begin(), lines.end());
  }

  std::optional<std::string> readLine(const std::string& prompt) override {
    prompts.push_back(prompt);
    if (m_lines.empty()) return std::nullopt;
    std::string line = m_lines.front();
    m_lines.pop_front();
    ++m_number;
    return line;
  }
  void print(const std::string& line) override { printed.push_back(line); }
  std::string place() const override { return "test.scr:" + std::to_string(m_number); }
  bool isTerminal() const override { return terminal; }

  std::vector<std::string> prompts;
  std::vector<std::string> printed;
  bool terminal = true;

private:
  std::deque<std::string> m_lines;
  int m_number = 0;
};

/// A session with an empty drawing.
struct OpenSession {
  OpenSession() {
    session.setDrawing(OdDbDatabase::createBlank(), L"plan.dxf");
    session.database()->clearUndo();
  }
  Lines lines;
  host::HostSession session{lines};
};
