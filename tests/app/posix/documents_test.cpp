// The examples in the documents are run as they stand there.
#include "program.h"
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <optional>
#include <sstream>

namespace {

/// A fenced block of a document: what its first line says, and its lines.
struct Block {
  std::string language, name;
  std::vector<std::string> lines;
  int line = 0;
};

std::vector<Block> blocksOf(const std::string& document) {
  std::ifstream file(std::filesystem::path(DOCUMENTS) / document);
  std::vector<Block> blocks;
  std::optional<Block> open;
  int number = 1;
  for (std::string line; std::getline(file, line); ++number) {
    if (!line.starts_with("```")) {
      if (open) open->lines.push_back(line);
    } else if (open) {
      blocks.push_back(*std::exchange(open, std::nullopt));
    } else {
      std::istringstream words(line.substr(3));
      open.emplace().line = number;
      words >> open->language >> open->name;
    }
  }
  return blocks;
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

/// Whether the printed lines are the expected ones; a line "..." stands for any number of lines.
bool agrees(const std::vector<std::string>& expected, const std::string& printed) {
  std::string rest = printed;
  bool gap = false;
  for (const std::string& line : expected) {
    if (line == "...") {
      gap = true;
      continue;
    }
    const std::size_t at = ("\n" + rest).find("\n" + line + "\n");
    if (at == std::string::npos || (at != 0 && !gap)) return false;
    rest = rest.substr(at + line.size() + 1);
    gap = false;
  }
  return gap || rest.empty();
}

class Documents : public testing::TestWithParam<std::string> {
protected:
  /// Runs the lines that begin with "$ " and compares what follows them.
  void runSession(const Block& block) {
    for (auto line = block.lines.begin(); line != block.lines.end();) {
      ASSERT_TRUE(line->starts_with("$ ")) << GetParam() << ":" << block.line;
      const std::string command = line->substr(2);
      std::vector<std::string> expected;
      while (++line != block.lines.end() && !line->starts_with("$ ")) expected.push_back(*line);
      const std::string printed = workplace.shell(command).out;
      EXPECT_TRUE(agrees(expected, printed))
          << GetParam() << ":" << block.line << ": $ " << command << "\nprints\n"
          << printed;
      ++ran;
    }
  }
  Workplace workplace;
  int ran = 0;
};

TEST_P(Documents, ExamplesPrintWhatIsWritten) {
  for (const Block& block : blocksOf(GetParam())) {
    if (block.language == "text" && !block.name.empty()) workplace.write(block.name, joined(block.lines));
    if (block.language == "console") runSession(block);
  }
  EXPECT_GT(ran, 0);
}

INSTANTIATE_TEST_SUITE_P(All, Documents, testing::Values("README.md", "docs/using.md", "docs/scripting.md"),
                         [](const auto& test) { return "Document" + std::to_string(test.index); });

} // namespace
