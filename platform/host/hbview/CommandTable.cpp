#include "CommandTable.h"
#include <algorithm>
#include <numeric>

namespace host {

namespace {

std::wstring folded(const std::string& name) { return odFoldCase(OdString::fromUtf8(name).str()); }

/// How many signs have to be added, removed or changed to make one text of the other.
std::size_t editDistance(const std::wstring& a, const std::wstring& b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

using Commands = std::vector<const Command*>;

/// The commands whose names are nearest to a misspelt one, if near enough to be meant.
Commands nearest(const std::vector<Command>& commands, const std::wstring& wanted) {
  std::size_t limit = std::max<std::size_t>(1, wanted.size() / 3);
  Commands found;
  for (const Command& command : commands) {
    const std::size_t distance = editDistance(folded(command.name), wanted);
    if (distance > limit || distance >= wanted.size()) continue;
    if (distance < limit) found.clear();
    limit = distance;
    found.push_back(&command);
  }
  return found;
}

OdString names(const Commands& commands, const OdChar* separator) {
  OdString text;
  for (const Command* command : commands) {
    if (!text.isEmpty()) text += separator;
    text += OdString::fromUtf8(command->name);
  }
  return text;
}

} // namespace

void CommandTable::add(Command command) {
  const std::wstring name = folded(command.name);
  const auto same = std::find_if(m_commands.begin(), m_commands.end(),
                                 [&](const Command& other) { return folded(other.name) == name; });
  if (same == m_commands.end())
    m_commands.push_back(std::move(command));
  else
    *same = std::move(command);
}

const Command* CommandTable::find(const OdString& typed, OdString& complaint) const {
  OdString text = typed;
  text.trimLeft().trimRight();
  const std::wstring wanted = odFoldCase(text.left(1) == L"_" ? text.mid(1).str() : text.str());
  Commands beginning;
  for (const Command& command : m_commands) {
    const std::wstring name = folded(command.name);
    if (name == wanted) return &command;
    if (!wanted.empty() && name.starts_with(wanted)) beginning.push_back(&command);
  }
  if (beginning.size() == 1) return beginning.front();
  if (!beginning.empty()) {
    complaint = L"\"" + text + L"\" is ambiguous: " + names(beginning, L", ") + L".";
    return nullptr;
  }
  complaint = L"There is no command \"" + text + L"\".";
  const OdString meant = names(nearest(m_commands, wanted), L" or ");
  if (!meant.isEmpty()) complaint += L" Did you mean " + meant + L"?";
  return nullptr;
}

CommandTable& registeredCommands() {
  static CommandTable table;
  return table;
}

} // namespace host
