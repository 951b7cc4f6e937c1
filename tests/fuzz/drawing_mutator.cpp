// Changes drawing files in their own terms, groups and records; changing bytes alone seldom leaves a file
// that gets past the first checks.
#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

struct Group {
  std::string_view code, value; ///< with their line ends
};

std::string_view takeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
  text.remove_prefix(line.size());
  return line;
}

class Mutation {
public:
  Mutation(std::string_view text, unsigned seed) : m_random(seed) {
    while (!text.empty()) {
      const std::string_view code = takeLine(text);
      m_groups.push_back({code, text.empty() ? text : takeLine(text)});
    }
  }

  std::string run(std::size_t maxSize) {
    if (m_groups.empty()) return {};
    switch (m_random() % 6) {
    case 0: changeText(m_groups[any()].value, maxSize); break;
    case 1: changeText(m_groups[any()].code, maxSize); break;
    case 2: m_groups[any()].value = m_groups[any()].value; break; // a value from elsewhere
    case 3: m_groups[any()] = m_groups[any()]; break;
    case 4: removeRun(); break;
    default: repeatRun(); break;
    }
    std::string text;
    for (const Group& group : m_groups) text.append(group.code).append(group.value);
    text.resize(std::min(text.size(), maxSize));
    return text;
  }

private:
  std::size_t any() { return m_random() % m_groups.size(); }

  void changeText(std::string_view& line, std::size_t maxSize) {
    constexpr std::size_t kRoom = 64;
    const std::size_t size = line.empty() ? 0 : line.size() - 1;
    m_text.assign(line.substr(0, size));
    m_text.resize(std::min(size + kRoom, std::max(size, maxSize)));
    m_text.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(m_text.data()), size, m_text.size()));
    m_text += '\n';
    line = m_text;
  }

  /// A few groups, or a record: from one group 0 up to the next.
  std::pair<std::size_t, std::size_t> anyRun() {
    constexpr std::size_t kMostGroups = 8;
    std::size_t begin = any();
    if (m_random() % 2 == 0) return {begin, std::min(begin + 1 + m_random() % kMostGroups, m_groups.size())};
    const auto isRecord = [](const Group& group) {
      return group.code.find_last_not_of(" 0\r\n") == group.code.npos;
    };
    while (begin > 0 && !isRecord(m_groups[begin])) --begin;
    const auto next =
        std::find_if(m_groups.begin() + static_cast<std::ptrdiff_t>(begin) + 1, m_groups.end(), isRecord);
    return {begin, static_cast<std::size_t>(next - m_groups.begin())};
  }

  void removeRun() {
    const auto [begin, end] = anyRun();
    m_groups.erase(m_groups.begin() + static_cast<std::ptrdiff_t>(begin),
                   m_groups.begin() + static_cast<std::ptrdiff_t>(end));
  }

  void repeatRun() {
    const auto [begin, end] = anyRun();
    const std::vector<Group> copy(m_groups.begin() + static_cast<std::ptrdiff_t>(begin),
                                  m_groups.begin() + static_cast<std::ptrdiff_t>(end));
    m_groups.insert(m_groups.begin() + static_cast<std::ptrdiff_t>(any()), copy.begin(), copy.end());
  }

  std::minstd_rand m_random;
  std::vector<Group> m_groups;
  std::string m_text; ///< a changed line, which a group shows
};

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
  if (seed % 4 == 0) return LLVMFuzzerMutate(data, size, maxSize);
  const std::string text = Mutation({reinterpret_cast<const char*>(data), size}, seed).run(maxSize);
  std::copy(text.begin(), text.end(), data);
  return text.size();
}
