#include "attext/extract_template.h"
#include <gmock/gmock.h>

namespace {

using attext::ExtractField;
using attext::ExtractSettings;

/// "TAG1 C10.0 X N10.3": each column's name, type, width and decimals.
std::string summary(const std::vector<ExtractField>& columns) {
  std::string text;
  for (const ExtractField& column : columns)
    text += (text.empty() ? "" : " ") + column.name.toUtf8() + (column.numeric ? " N" : " C") +
            std::to_string(column.width) + "." + std::to_string(column.decimals);
  return text;
}

struct Case {
  const char* text;
  const char* columns;
};

class Template : public testing::TestWithParam<Case> {};

TEST_P(Template, GivesItsColumns) {
  ExtractSettings settings;
  EXPECT_EQ(summary(attext::parseTemplate(GetParam().text, settings)), GetParam().columns);
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, Template,
    testing::Values(Case{"", ""}, Case{"  \n\t\r\n", ""}, Case{"TAG C010000", "TAG C10.0"},
                    Case{"TAG1\tC010000\r\nBL:X    N010003\r\n", "TAG1 C10.0 BL:X N10.3"},
                    Case{"A\nC001000 B\nC002000", "A C1.0 B C2.0"}, Case{"A C001000 B", "A C1.0"},
                    Case{"A C00100 B C0010000 C C003000", "C C3.0"}, Case{"A A C001000 B C002000", ""},
                    Case{"Küche C005000", "Küche C5.0"}));

INSTANTIATE_TEST_SUITE_P(TypeWords, Template,
                         testing::Values(Case{"A n008003", "A C8.0"}, Case{"A c008003", "A C8.0"},
                                         Case{"A C008003", "A C8.0"}, Case{"A Z012345", "A C12.0"},
                                         Case{"A N999999", "A N999.999"}, Case{"A N1x0y12", "A N1.0"},
                                         Case{"A Nabcdef", "A N0.0"}, Case{"A N+12-01", "A N12.65535"},
                                         Case{"A C-01000", "A C65535.0"}, Case{"A N0081.5", "A N8.1"}));

struct SettingsCase {
  const char* text;
  const char* delimiter;
  const char* quote;
};

class TemplateSettings : public testing::TestWithParam<SettingsCase> {};

TEST_P(TemplateSettings, AreNoColumns) {
  ExtractSettings settings;
  settings.delimiter = L",";
  EXPECT_EQ(summary(attext::parseTemplate(GetParam().text, settings)), "");
  EXPECT_EQ(settings.delimiter.toUtf8(), GetParam().delimiter);
  EXPECT_EQ(settings.quote.toUtf8(), GetParam().quote);
}

INSTANTIATE_TEST_SUITE_P(
    Quotes, TemplateSettings,
    testing::Values(SettingsCase{"C:QUOTE \"", ",", "\""}, SettingsCase{"c:quote | C:Delim ;", ";", "|"},
                    SettingsCase{"C:DELIM C008000", "C008000", ""}, SettingsCase{"C:QUOTES x", ",", ""},
                    SettingsCase{"C:QUOTE a C:QUOTE <<", ",", "<<"}, SettingsCase{"C:DELIM", ",", ""}));

} // namespace
