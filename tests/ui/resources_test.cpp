// The compiled string table and dialog templates, and their readers on damaged input.
#include "res/dialog_template.h"
#include "res/embedded/embedded.h"
#include "res/error.h"
#include "res/resource_file.h"
#include "res/strings.h"
#include "res/styles.h"
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace {

TEST(StringTable, KeepsBlanksMisspellingsAndPlaceholders) {
  const std::pair<unsigned, const char*> texts[] = {
      {2407, "That object  is not a block"},
      {2409, "Text files/Templates/Output files (*.txt)|*.txt|All Files (*.*)|*.*||"},
      {2412, "&Comma Delimeted File (CDF)"},
      {2415, "Select &Objects <"},
      {2421, "The output filename must be different from the template filename. "},
      {2422, "Objects is not selected."},
      {2423, "\n%d objects in extract file.\n"},
      {2432, "Undo _ Undo"},
      {2456, "Value of 'Tag' can't containt spaces."},
      {2473, "Specify offset distance [%s] "},
      {2477, "Specify start point [%s] <Polyline>"},
      {2524, "&Present"},
      {2583, "Hor Ver Ang Bisect Offset"},
      {2605, "?"},
      {2611, "ATTSYNC block %1%? [%%s] <Yes>"},
      {2848, "Found in current layout: %1%"},
      {2849, "The attributes in the current block have been changed.\r\nDo you want to save these changes?"},
      {2954, "The tag can not include spaces."},
      {3202, "Unsupported object. Select non-constant attribute in the block."},
  };
  for (const auto& [number, text] : texts) EXPECT_EQ(res::loadString(number).toUtf8(), text) << number;
}

/// The resource compiler lets a second text of the same number replace the first without a word.
TEST(StringTable, EveryNumberHasOneText) {
  std::map<unsigned, std::string> names;
  std::ifstream header(RESOURCE_NUMBERS);
  for (std::string define, name, number; header >> define;) {
    if (define != "#define" || !(header >> name) || !name.starts_with("IDS_")) continue;
    header >> number;
    EXPECT_TRUE(names.emplace(std::stoul(number), name).second) << name << " and another are " << number;
  }
  EXPECT_GT(names.size(), 150u);
  for (unsigned number = 0; number < 0x10000; ++number) {
    bool hasText = true;
    try {
      res::loadString(number);
    } catch (const res::Error&) {
      hasText = false;
    }
    ASSERT_EQ(hasText, names.contains(number)) << number;
  }
}

TEST(StringTable, AnUnknownNumberIsNamed) {
  for (const unsigned number : {0u, 2399u, 2426u, 2500u, 70000u}) {
    try {
      res::loadString(number);
      FAIL() << number;
    } catch (const res::Error& error) {
      EXPECT_EQ(std::string(error.what()), "the string table holds no text number " + std::to_string(number));
    }
  }
}

OdString textIn(std::span<const std::uint8_t> file, unsigned number) {
  return res::stringFrom(res::findResource(file, res::ResourceType::stringTable, res::stringBlock(number)),
                         number);
}

/// Reading every beginning of the file either gives the text or a clear error.
TEST(StringTable, ACutFileIsAnError) {
  const auto file = res::embedded();
  int read = 0;
  for (std::size_t length = 0; length < file.size(); ++length) {
    try {
      EXPECT_EQ(textIn(file.first(length), 2475).toUtf8(), "Through");
      ++read;
    } catch (const res::Error& error) {
      EXPECT_NE(std::string(error.what()), "");
    }
  }
  EXPECT_GT(read, 0);
  EXPECT_LT(read, static_cast<int>(file.size()));
}

TEST(StringTable, DamagedBytesNeverEscapeTheReader) {
  const auto file = res::embedded();
  std::vector<std::uint8_t> bytes(file.begin(), file.end());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    for (const std::uint8_t damage : {0x00, 0xFF, 0x80}) {
      const std::uint8_t whole = std::exchange(bytes[i], damage);
      try {
        textIn(bytes, 3202);
      } catch (const res::Error&) {}
      bytes[i] = whole;
    }
  }
}

TEST(ExtractionTemplate, IsLaidOutForPeople) {
  const res::DialogTemplate dialog = res::loadDialog(IDD_ATTEXT);
  EXPECT_EQ(dialog.caption.toUtf8(), "Extract of attributes");
  EXPECT_EQ(dialog.font.face.toUtf8(), "MS Shell Dlg");
  EXPECT_EQ(dialog.font.points, 8);
  std::set<unsigned> ids;
  for (const res::ControlTemplate& control : dialog.controls) {
    EXPECT_TRUE(ids.insert(control.id).second) << control.id;
    EXPECT_TRUE(control.style & WS_VISIBLE) << control.id;
    const res::Rect& r = control.rect;
    EXPECT_TRUE(r.x >= 7 && r.y >= 7 && r.x + r.width <= dialog.rect.width - 7 &&
                r.y + r.height <= dialog.rect.height - 7)
        << control.id;
    for (const res::ControlTemplate& other : dialog.controls) {
      const res::Rect& o = other.rect;
      if (&other == &control || control.id == IDC_ATTEXT_FORMAT || other.id == IDC_ATTEXT_FORMAT) continue;
      EXPECT_TRUE(o.x >= r.x + r.width || r.x >= o.x + o.width || o.y >= r.y + r.height ||
                  r.y >= o.y + o.height)
          << control.id << " covers " << other.id;
    }
  }
  EXPECT_EQ(ids,
            (std::set<unsigned>{1, 2, 9, 1020, 1021, 1022, 1023, 1024, 1025, 1026, 1027, 1028, 1029, 1030}));
}

TEST(ExtractionTemplate, CaptionsAreThoseOfTheStringTable) {
  const std::pair<unsigned, unsigned> texts[] = {{IDC_ATTEXT_FORMAT, IDS_ATTEXT_FILE_FORMAT},
                                                 {IDC_ATTEXT_CDF, IDS_ATTEXT_CDF},
                                                 {IDC_ATTEXT_SDF, IDS_ATTEXT_SDF},
                                                 {IDC_ATTEXT_DXX, IDS_ATTEXT_DXX},
                                                 {IDC_ATTEXT_SELECT, IDS_ATTEXT_SELECT_OBJECTS},
                                                 {IDC_ATTEXT_TEMPLATE_BUTTON, IDS_ATTEXT_TEMPLATE_FILE},
                                                 {IDC_ATTEXT_OUTPUT_BUTTON, IDS_ATTEXT_OUTPUT_FILE},
                                                 {IDC_ATTEXT_FOUND_LABEL, IDS_ATTEXT_NUMBER_FOUND}};
  const res::DialogTemplate dialog = res::loadDialog(IDD_ATTEXT);
  for (const auto& [id, number] : texts) {
    const auto found = std::ranges::find(dialog.controls, id, &res::ControlTemplate::id);
    ASSERT_NE(found, dialog.controls.end()) << id;
    EXPECT_EQ(found->text, res::loadString(number)) << id;
  }
}

TEST(DialogTemplate, AnUnknownNumberIsNamed) {
  try {
    res::loadDialog(4711);
    FAIL();
  } catch (const res::Error& error) {
    EXPECT_STREQ(error.what(), "the module's resources hold no dialog number 4711");
  }
}

/// Little-endian words, as a template holds them.
std::vector<std::uint8_t> words(std::initializer_list<unsigned> values) {
  std::vector<std::uint8_t> bytes;
  for (const unsigned value : values) {
    bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(value >> 8));
  }
  return bytes;
}

/// The older form: one edit with a word of creation data, then a rich edit by name.
std::vector<std::uint8_t> classicTemplate() {
  auto bytes = words({DS_SETFONT, 0x80C8, 0, 0, 2, 1, 2, 100, 50, 0, 0, 'D', 'L', 0, 8, 'F', 0, 0});
  const auto edit = words({0, 0x5001, 0, 0, 7, 0xFFFF, 40, 14, 1027, 0xFFFF, 0x81, 'e', 0, 4, 0xABCD, 0});
  const auto rich = words({0, 0x5001, 0, 0, 1, 2, 3, 4, 1028, 'R', 'x', 0, 0, 0});
  bytes.insert(bytes.end(), edit.begin(), edit.end());
  bytes.insert(bytes.end(), rich.begin(), rich.end());
  return bytes;
}

TEST(DialogTemplate, ReadsTheClassicForm) {
  const auto bytes = classicTemplate();
  const res::DialogTemplate dialog = res::parseDialog(bytes, 5);
  EXPECT_EQ(dialog.caption.toUtf8(), "DL");
  EXPECT_EQ(dialog.font.face.toUtf8(), "F");
  EXPECT_EQ(dialog.rect.height, 50);
  ASSERT_EQ(dialog.controls.size(), 2u);
  EXPECT_EQ(dialog.controls[0].id, 1027u);
  EXPECT_EQ(dialog.controls[0].windowClass.toUtf8(), "Edit");
  EXPECT_EQ(dialog.controls[0].rect.y, -1);
  EXPECT_EQ(dialog.controls[0].text.toUtf8(), "e");
  EXPECT_EQ(dialog.controls[1].windowClass.toUtf8(), "Rx");
}

TEST(DialogTemplate, CutOrDamagedBytesAreAnError) {
  const auto whole = *res::findResource(res::embedded(), res::ResourceType::dialog, IDD_ATTEXT);
  for (const auto& source : {std::vector<std::uint8_t>(whole.begin(), whole.end()), classicTemplate()}) {
    for (std::size_t length = 0; length < source.size(); ++length)
      EXPECT_THROW(res::parseDialog(std::span(source).first(length), 5), res::Error) << length;
    auto damaged = source;
    for (std::size_t i = 0; i < damaged.size(); ++i) {
      const std::uint8_t byte = std::exchange(damaged[i], 0xFF);
      try {
        res::parseDialog(damaged, 5);
      } catch (const res::Error&) {}
      damaged[i] = byte;
    }
  }
}

} // namespace
