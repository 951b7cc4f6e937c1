#pragma once
#include "DbDatabase.h"
#include "dxf_text.h"
#include "support/drawings.h"
#include "support/system.h"
#include "sys/files.h"
#include <fstream>
#include <gmock/gmock.h>

/// A folder of its own for each test.
class FileTest : public testing::Test {
protected:
  ~FileTest() override { std::filesystem::remove_all(m_folder); }

  std::filesystem::path put(const char* name, const std::string& text) const {
    std::ofstream(m_folder / name, std::ios::binary) << text;
    return m_folder / name;
  }
  static std::string textOf(const std::filesystem::path& path) {
    return std::string(sys::readFile(path).bytes);
  }
  static OdString wide(const std::filesystem::path& path) { return OdString(sys::fromPath(path)); }
  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& entry : std::filesystem::directory_iterator(m_folder))
      all.push_back(entry.path().filename().string());
    return all;
  }
  /// What writing the drawing to the path says, without the folder.
  std::string writeError(OdDbDatabase& database, const std::filesystem::path& path) const {
    try {
      database.writeFile(wide(path));
    } catch (const OdError_FileException& error) {
      std::string what = error.what();
      for (std::size_t at; (at = what.find(m_folder.string())) != std::string::npos;)
        what.erase(at, m_folder.string().size() + 1);
      return what;
    }
    return "(none)";
  }

  const std::filesystem::path m_folder = test::makeTemporaryFolder("dxf_file_test");
};
