// What is wrong is told with its place, and the exit status says of what kind it is.
#include "program.h"
#include <gmock/gmock.h>

namespace {

struct Case {
  const char* name;
  std::vector<std::string> arguments;
  std::string input;
  int status;
  std::string err;
};

class Messages : public testing::TestWithParam<Case> {};

TEST_P(Messages, AreWholeAndHaveTheirStatus) {
  const Workplace workplace;
  workplace.write("text.dxf", "hello\n");
  workplace.write("empty.dxf", "");
  workplace.write("short.scr", "; asks for a text\nElxTest\n");
  workplace.write("no-column.tpl", "C:DELIM ; C:QUOTE x NAME C1\n");
  const Outcome outcome = workplace.hbhost(GetParam().arguments, GetParam().input);
  EXPECT_EQ(outcome.err, GetParam().err);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.status, GetParam().status);
}

std::string caseName(const testing::TestParamInfo<Case>& info) { return info.param.name; }

const std::string kUsage = "\nhbhost --help shows how it is used.\n";
const std::string kOffice = "examples/office.dxf", kRooms = "examples/rooms.tpl";

INSTANTIATE_TEST_SUITE_P(
    Drawings, Messages,
    testing::Values(
        Case{
            "Missing", {"nowhere.dxf", "-c", "?"}, "", 3, "hbhost: nowhere.dxf: No such file or directory\n"},
        Case{"Folder", {"examples", "-c", "?"}, "", 3, "hbhost: examples: Is a directory\n"},
        Case{"NoDrawing",
             {"text.dxf"},
             "",
             3,
             "hbhost: text.dxf: line 1: expected a group code, met \"hello\" (damaged drawings open with "
             "--recover)\n"},
        Case{"Empty", {"empty.dxf"}, "", 3, "hbhost: empty.dxf: the file is empty\n"},
        Case{"OpenedByCommand",
             {},
             "OPEN\nnowhere.dxf\n",
             3,
             "standard input:2: nowhere.dxf: No such file or directory\n"},
        Case{"UnwritableFolder",
             {kOffice, "--save-as", "no/x.dxf"},
             "",
             4,
             "hbhost: no/x.dxf: No such file or directory\n"},
        Case{"UnwritableForm",
             {kOffice, "--save-as", "x.dwg"},
             "",
             4,
             "hbhost: x.dwg: drawings are written as DXF only; use a name that ends in .dxf\n"},
        Case{"SavedByCommand",
             {},
             "SAVE\nno/x.dxf\n",
             4,
             "standard input:2: no/x.dxf: No such file or directory\n"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Scripts, Messages,
    testing::Values(
        Case{"Unknown",
             {},
             "AtExt\nElxTest\n",
             2,
             "standard input:1: There is no command \"AtExt\". Did you mean AttExt?\n"},
        Case{"Ambiguous", {"-c", "E"}, "", 2, "--command 1: \"E\" is ambiguous: EXIT, ElxTest.\n"},
        Case{"EndsEarly",
             {"-s", "short.scr"},
             "",
             2,
             "hbhost: short.scr:2: the script ends at the prompt \"Text:\", which needs an answer.\n"},
        Case{"EndsEarlyAndIsNotSaved",
             {kOffice, "-c", "ElxTest", "--save-as", "x.dxf"},
             "",
             2,
             "hbhost: --command 1: the script ends at the prompt \"Text:\", which needs an answer.\n"
             "hbhost: the drawing was not saved because of that.\n"},
        Case{"WrongAnswer",
             {},
             "AttExt\npress Sel\nall of them\n\n^C\n",
             2,
             "standard input:3: \"all of them\" is not a selection (all, last, previous, handle 2A3, pick "
             "x,y, window x,y "
             "x,y or crossing x,y x,y).\n"},
        Case{"WrongLineInDialog",
             {},
             "AttExt\ntick SFD\n^C\n",
             2,
             "standard input:2: Nothing named \"SFD\" can be ticked here. Did you mean \"Space Delimeted "
             "File (SDF)\", "
             "\"Comma Delimeted File (CDF)\" or \"DXF Format Extract File (DXX)\"?\n"},
        Case{"Cancelled", {}, "ElxTest\n^C\n", 1, ""},
        Case{"NothingToUndo", {}, "U\n", 1, "standard input:1: There is nothing to undo.\n"},
        Case{"NoHelp", {}, "HELP\nNonsense\n", 1, "There is no help on \"Nonsense\".\n"},
        Case{"NoScript", {"-s", "no.scr"}, "", 2, "hbhost: no.scr: No such file or directory\n"},
        Case{"ScriptIsFolder", {"-s", "examples"}, "", 2, "hbhost: examples: Is a directory\n"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Arguments, Messages,
    testing::Values(
        Case{"TwoDrawings",
             {"a.dxf", "b.dxf"},
             "",
             2,
             "hbhost: The following argument was not expected: b.dxf" + kUsage},
        Case{"UnknownOption",
             {"--sav"},
             "",
             2,
             "hbhost: The following argument was not expected: --sav" + kUsage},
        Case{"TwoWaysToSave",
             {kOffice, "--save", "--save-as", "x.dxf"},
             "",
             2,
             "hbhost: --save excludes --save-as" + kUsage},
        Case{"NothingToSaveTo",
             {"--save"},
             "",
             2,
             "hbhost: --save needs a DRAWING to save; a new drawing is saved with --save-as FILE." + kUsage},
        Case{"NoTemplate",
             {"extract", kOffice, "-o", "x.txt"},
             "",
             2,
             "hbhost: --template is needed for the formats cdf and sdf." + kUsage},
        Case{"NoOutput", {"extract", kOffice, "-t", kRooms}, "", 2, "hbhost: --output is required" + kUsage},
        Case{"UnknownFormat",
             {"extract", kOffice, "-t", kRooms, "-o", "x.txt", "-f", "csv"},
             "",
             2,
             "hbhost: --format: \"csv\" is none of cdf, sdf and dxx" + kUsage}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Extraction, Messages,
    testing::Values(
        Case{"MissingTemplate",
             {"extract", kOffice, "-t", "no.tpl", "-o", "x.txt"},
             "",
             2,
             "hbhost: no.tpl: No such file or directory (the template)\n"},
        Case{"TemplateIsFolder",
             {"extract", kOffice, "-t", "examples", "-o", "x.txt"},
             "",
             2,
             "hbhost: examples: the template is not a file.\n"},
        Case{"NoColumn",
             {"extract", kOffice, "-t", "no-column.tpl", "-o", "x.txt"},
             "",
             2,
             "hbhost: no-column.tpl: the template describes no column. A column is a name and a word such as "
             "C012000.\n"},
        Case{"UnwritableOutput",
             {"extract", kOffice, "-t", kRooms, "-o", "no/x.txt"},
             "",
             4,
             "hbhost: no/x.txt: No such file or directory\n"},
        Case{"NoLayout",
             {"extract", kOffice, "-t", kRooms, "-o", "x.txt", "--layout", "nowhere"},
             "",
             1,
             "hbhost: examples/office.dxf: there is no layout nowhere; there are Model, A3 Grundriss, A4 "
             "Möblierung.\n"},
        Case{"OutputForTwo",
             {"extract", kOffice, "text.dxf", "-t", kRooms, "-o", "x.txt"},
             "",
             2,
             "hbhost: several drawings need an --output with {name} in it, or a folder.\n"},
        Case{"OneOutputForTwo",
             {"extract", kOffice, "other/office.dxf", "-t", kRooms, "-o", "{name}.txt"},
             "",
             2,
             "hbhost: examples/office.dxf and other/office.dxf have the same --output office.txt.\n"},
        Case{"OutputIsDrawing",
             {"extract", kOffice, "-t", kRooms, "-o", "./examples/office.dxf"},
             "",
             2,
             "hbhost: ./examples/office.dxf: --output would overwrite this drawing.\n"},
        Case{"OutputIsTemplate",
             {"extract", kOffice, "-t", kRooms, "-o", "./examples/rooms.tpl"},
             "",
             2,
             "hbhost: ./examples/rooms.tpl: --output would overwrite the template.\n"}),
    caseName);

} // namespace
