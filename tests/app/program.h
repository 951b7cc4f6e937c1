#pragma once
#include "support/system.h"
#include <filesystem>
#include <string>
#include <vector>

/// How a run of the program ended, and what it printed.
struct Outcome {
  int status = -1;
  std::string out, err;
};

/// A folder of its own for one test, with copies of the example drawings in "examples". The program runs
/// inside it, and it is the user's home as well. Removed with the object.
class Workplace {
public:
  Workplace();
  ~Workplace();
  Workplace(const Workplace&) = delete;
  Workplace& operator=(const Workplace&) = delete;

  /// Runs hbhost with these arguments and this standard input.
  Outcome hbhost(const std::vector<std::string>& arguments, const std::string& input = "") const;
  /// Runs a line of the POSIX shell in which hbhost can be called by its name; both streams are in `out`.
  Outcome shell(const std::string& line) const;

  std::filesystem::path path(const std::string& name) const { return m_folder / name; }
  void write(const std::string& name, const std::string& text) const;
  /// A file whose lines end in "\n", whatever the system writes.
  std::string read(const std::string& name) const;
  bool has(const std::string& name) const { return std::filesystem::exists(path(name)); }

private:
  /// Runs a shell line with the streams redirected to files that are read back.
  Outcome run(const std::string& line) const;
  const std::filesystem::path m_folder = test::makeTemporaryFolder("hbhost-test");
};
