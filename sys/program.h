#pragma once
// What a program has to do with the system at its beginning.
#include <string>
#include <vector>

namespace sys {

/// The arguments behind the program's name: UTF-8 on Windows, bytes as they were given elsewhere.
std::vector<std::string> programArguments(int argc, const char* const* argv);

/// As long as it lives, the standard streams carry bytes just as they are written, and a terminal takes UTF-8
/// and control sequences.
class StandardStreams {
public:
  StandardStreams();
  ~StandardStreams(); // NOLINT(performance-trivially-destructible): on Windows there is something to put back
  StandardStreams(const StandardStreams&) = delete;
  StandardStreams& operator=(const StandardStreams&) = delete;

private:
  [[maybe_unused]] unsigned m_codePage = 0; ///< what the terminal took before, where it takes one
};

} // namespace sys
