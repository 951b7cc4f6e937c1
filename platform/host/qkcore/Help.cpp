#include "Output.h"
#include "QkCore.h"
#include "common/Unknown.h"
#include "sys/folders.h"
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <vector>

namespace fs = std::filesystem;

namespace host {

namespace {

constexpr char kContents[] = "index";

/// $HBHOST_HELP, else the folder "help" beside the program or in the shared data of an installed one.
std::vector<fs::path> helpFolders() {
  if (fs::path place = sys::environmentPath("HBHOST_HELP"); !place.empty()) return {std::move(place)};
  const fs::path program = sys::programFolder();
  return {program / "help", program.parent_path() / "share" / "hbhost" / "help"};
}

/// Topics name a file of the help folder, never a path.
bool isTopicName(const std::string& topic) {
  return !topic.empty() && topic.find_first_of("/\\:") == std::string::npos && topic.front() != '.';
}

bool readFile(const fs::path& path, std::string& text) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return false;
  std::ostringstream all;
  all << file.rdbuf();
  text = all.str();
  std::erase(text, '\r');
  while (!text.empty() && text.back() == '\n') text.pop_back();
  return true;
}

/// Whether a file of the help folder holds the topic; names are compared without regard to case.
bool isTopicFile(const fs::path& file, const std::string& topic) {
  const OdString extension = OdString::fromUtf8(file.extension().string());
  const bool isText = extension.iCompare(L".md") == 0 || extension.iCompare(L".txt") == 0;
  return isText && OdString::fromUtf8(file.stem().string()).iCompare(OdString::fromUtf8(topic)) == 0;
}

bool findTopic(const std::string& topic, std::string& text) {
  if (!isTopicName(topic)) return false;
  for (const fs::path& folder : helpFolders()) {
    std::error_code missing;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, missing))
      if (isTopicFile(entry.path(), topic) && readFile(entry.path(), text)) return true;
  }
  return false;
}

class HelpService final : public Unknown<HelpService, IHelpService> {
public:
  bool ShowTopic(const wchar_t* topic, void*) override {
    const std::string name = topic && *topic ? OdString(topic).toUtf8() : kContents;
    std::string text;
    const bool found = findTopic(name, text);
    printLine(found ? text : "There is no help on \"" + name + "\".");
    return found;
  }
};

} // namespace

} // namespace host

IHelpService* Get_IHelpService() { return new host::HelpService; }
