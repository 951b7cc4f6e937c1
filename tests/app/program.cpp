#include "program.h"
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

namespace {

std::string contents(const fs::path& file) {
  std::ostringstream all;
  all << std::ifstream(file, std::ios::binary).rdbuf();
  return all.str();
}

} // namespace

Workplace::Workplace() {
  fs::create_directory(path(".streams"));
  fs::copy(EXAMPLES, path("examples"), fs::copy_options::recursive);
}

Workplace::~Workplace() { fs::remove_all(m_folder); }

void Workplace::write(const std::string& name, const std::string& text) const {
  std::ofstream(path(name), std::ios::binary) << text;
}

std::string Workplace::read(const std::string& name) const {
  return test::withPlainLineEnds(contents(path(name)));
}
