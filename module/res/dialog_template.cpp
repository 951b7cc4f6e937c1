#include "dialog_template.h"
#include "byte_reader.h"
#include "error.h"
#include "module_resources.h"
#include "styles.h"
#include <array>

namespace res {
namespace {

std::string nameOf(unsigned number) { return "dialog " + std::to_string(number); }

/// Walks one template; the two forms differ in the order and size of the same fields.
class TemplateReader {
public:
  TemplateReader(std::span<const std::uint8_t> bytes, unsigned number)
      : m_reader(bytes, nameOf(number)), m_number(number),
        m_extended(bytes.size() >= 4 && bytes[0] == 1 && bytes[1] == 0 && bytes[2] == 0xFF &&
                   bytes[3] == 0xFF) {}

  DialogTemplate dialog() {
    DialogTemplate result;
    if (m_extended) m_reader.skip(8); // version, signature, help number
    styles(result.style, result.extendedStyle);
    const unsigned controls = m_reader.u16();
    result.rect = rect();
    word(); // menu
    word(); // window class
    result.caption = m_reader.zeroEndedText();
    if (result.style & DS_SETFONT) result.font = font();
    for (unsigned i = 0; i < controls; ++i) result.controls.push_back(control());
    return result;
  }

private:
  void styles(std::uint32_t& style, std::uint32_t& extendedStyle) {
    if (m_extended) extendedStyle = m_reader.u32();
    style = m_reader.u32();
    if (!m_extended) extendedStyle = m_reader.u32();
  }

  Rect rect() {
    Rect result;
    result.x = m_reader.i16();
    result.y = m_reader.i16();
    result.width = m_reader.i16();
    result.height = m_reader.i16();
    return result;
  }

  /// A word, or the empty text for a number, which goes to `number`.
  OdString word(unsigned* number = nullptr) {
    const std::uint16_t first = m_reader.u16();
    if (first == 0) return {};
    if (first == 0xFFFF) {
      const unsigned value = m_reader.u16();
      if (number) *number = value;
      return {};
    }
    return OdString(static_cast<OdChar>(first), 1) + m_reader.zeroEndedText();
  }

  Font font() {
    Font result;
    result.points = m_reader.u16();
    if (m_extended) {
      result.weight = m_reader.u16();
      result.italic = (m_reader.u16() & 0xFF) != 0; // the other byte is the character set
    }
    result.face = m_reader.zeroEndedText();
    return result;
  }

  ControlTemplate control() {
    m_reader.align4();
    ControlTemplate result;
    if (m_extended) m_reader.skip(4); // help number
    styles(result.style, result.extendedStyle);
    result.rect = rect();
    result.id = m_extended ? m_reader.u32() : m_reader.u16();
    result.windowClass = windowClass(result.id);
    result.text = word();
    skipCreationData();
    return result;
  }

  OdString windowClass(unsigned id) {
    static constexpr std::array<const wchar_t*, 6> predefined = {L"Button",  L"Edit",      L"Static",
                                                                 L"ListBox", L"ScrollBar", L"ComboBox"};
    unsigned number = 0;
    OdString name = word(&number);
    if (!name.isEmpty()) return name;
    if (number < 0x80 || number - 0x80 >= predefined.size())
      throw Error(nameOf(m_number) + " is damaged: its control " + std::to_string(id) +
                  " has no window class");
    return predefined[number - 0x80];
  }

  /// The size counts itself in the classic form only.
  void skipCreationData() {
    const std::size_t size = m_reader.u16();
    const std::size_t own = m_extended ? 0 : 2;
    if (size > own) m_reader.skip(size - own);
  }

  ByteReader m_reader;
  unsigned m_number;
  bool m_extended;
};

} // namespace

DialogTemplate parseDialog(std::span<const std::uint8_t> bytes, unsigned number) {
  return TemplateReader(bytes, number).dialog();
}

std::span<const std::uint8_t> dialogBytes(unsigned number) {
  const auto bytes = moduleResource(ResourceType::dialog, number);
  if (!bytes) throw Error("the module's resources hold no dialog number " + std::to_string(number));
  return *bytes;
}

DialogTemplate loadDialog(unsigned number) { return parseDialog(dialogBytes(number), number); }

} // namespace res
