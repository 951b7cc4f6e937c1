// What the bytes of a drawing file cost by themselves, without any drawing: the measure of the readers.
//   floor open IN         splits the file into groups, converts every number, copies every text
//   floor copy IN OUT     the same, and writes every group to OUT
#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iostream>
#include <memory_resource>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

std::string_view mapped(const char* path) {
  const int file = ::open(path, O_RDONLY);
  struct stat status {};
  if (file < 0 || ::fstat(file, &status) != 0 || status.st_size == 0) return {};
  const auto size = static_cast<std::size_t>(status.st_size);
  void* memory = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
  ::close(file);
  return memory == MAP_FAILED ? std::string_view() : std::string_view(static_cast<const char*>(memory), size);
}

enum class Kind { kText, kReal, kInteger };

Kind kindOf(int code) {
  const auto within = [code](int first, int last) { return code >= first && code <= last; };
  if (within(10, 59) || within(110, 149) || within(210, 239) || within(460, 469) || within(1010, 1059))
    return Kind::kReal;
  if (within(60, 99) || within(160, 179) || within(270, 299) || within(370, 389) || within(400, 409) ||
      within(420, 429) || within(440, 459) || within(1060, 1071))
    return Kind::kInteger;
  return Kind::kText;
}

std::string_view withoutBlanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  return text;
}

class Scan {
public:
  explicit Scan(std::string_view bytes) : m_rest(bytes) {}

  void run(std::ostream* copy) {
    while (!m_rest.empty()) {
      const std::string_view codeLine = line();
      const std::string_view value = line();
      take(codeLine, value);
      if (copy) write(*copy, codeLine, value);
    }
  }
  void report() const {
    std::cout << m_groups << " groups, sum " << m_sum << ", " << m_textBytes << " bytes of text\n";
  }

private:
  std::string_view line() {
    const auto* end = static_cast<const char*>(std::memchr(m_rest.data(), '\n', m_rest.size()));
    const std::size_t size = end ? static_cast<std::size_t>(end - m_rest.data()) : m_rest.size();
    std::string_view found = m_rest.substr(0, size);
    m_rest.remove_prefix(end ? size + 1 : size);
    if (!found.empty() && found.back() == '\r') found.remove_suffix(1);
    return found;
  }

  template <class Number>
  static Number number(std::string_view text) {
    text = withoutBlanks(text);
    Number value{};
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
  }

  void take(std::string_view codeLine, std::string_view value) {
    ++m_groups;
    switch (kindOf(number<int>(codeLine))) {
    case Kind::kReal: m_sum += number<double>(value); break;
    case Kind::kInteger: m_sum += static_cast<double>(number<long>(value)); break;
    case Kind::kText:
      if (value.empty()) break;
      std::memcpy(m_texts.allocate(value.size(), 1), value.data(), value.size());
      m_textBytes += value.size();
    }
  }

  static void write(std::ostream& out, std::string_view codeLine, std::string_view value) {
    out.write(codeLine.data(), static_cast<std::streamsize>(codeLine.size())).put('\n');
    out.write(value.data(), static_cast<std::streamsize>(value.size())).put('\n');
  }

  std::string_view m_rest;
  std::pmr::monotonic_buffer_resource m_texts{std::size_t{1} << 20};
  std::size_t m_groups = 0, m_textBytes = 0;
  double m_sum = 0;
};

} // namespace

int main(int argc, char** argv) {
  const std::string_view task = argc > 2 ? argv[1] : "";
  if ((task != "open" || argc != 3) && (task != "copy" || argc != 4)) {
    std::cerr << "usage: floor open IN | floor copy IN OUT\n";
    return 2;
  }
  Scan scan(mapped(argv[2]));
  if (task == "open") {
    scan.run(nullptr);
  } else {
    std::vector<char> buffer(std::size_t{1} << 20);
    std::ofstream out;
    out.rdbuf()->pubsetbuf(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    out.open(argv[3], std::ios::binary);
    scan.run(&out);
    out.close();
    if (!out) return 1;
  }
  scan.report();
}
