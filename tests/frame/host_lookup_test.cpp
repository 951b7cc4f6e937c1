// How the module finds its host, in programs that differ in what they export and in what they have loaded.
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <gmock/gmock.h>
#include <memory>

namespace {

std::string run(const std::string& program, const std::string& arguments) {
  std::string command = PROBE_FOLDER "/";
  command.append(program).append(" ").append(arguments);
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), &pclose);
  if (!pipe) return std::string("cannot be started: ") + std::strerror(errno);
  std::array<char, 256> line;
  std::string output;
  while (std::fgets(line.data(), line.size(), pipe.get())) output += line.data();
  return output;
}

struct Case {
  const char* name;
  const char* program;
  const char* arguments;
  const char* output;
};

class HostLookup : public testing::TestWithParam<Case> {};

TEST_P(HostLookup, TakesTheFirstWayThatIsThere) {
  EXPECT_EQ(run(GetParam().program, GetParam().arguments), GetParam().output);
}

const auto caseName = [](const auto& info) { return std::string(info.param.name); };

INSTANTIATE_TEST_SUITE_P(
    Instance, HostLookup,
    testing::Values(
        Case{"ProgramsExport", "probe_instance", "load other load hbview main other instance",
             "instance other\n"},
        Case{"ProgramsExportGivesNull", "probe_instance", "load hbview instance", "instance none\n"},
        Case{"NameExportDoesNotCount", "probe_name", "load other load hbview main other instance",
             "instance hbview\n"},
        Case{"Hbview", "probe_plain", "load QkAcApp load other load hbview announce other instance",
             "instance hbview\n"},
        Case{"Announced", "probe_plain", "load QkAcApp load other announce other instance",
             "instance other\n"},
        Case{"NothingAnnounced", "probe_plain", "load QkAcApp load other instance", "instance none\n"},
        Case{"Nothing", "probe_plain", "load other instance", "instance none\n"},
        Case{"LookedForAnew", "probe_plain", "instance load hbview instance",
             "instance none\ninstance hbview\n"}),
    caseName);

#define REGISTERED_WITH(name)                                                                                \
  name ": register Plain\n" name ": factory released\n" name ": register Grouped in HOST flags 2\n" name     \
       ": factory released\n"

INSTANTIATE_TEST_SUITE_P(
    Factory, HostLookup,
    testing::Values(
        Case{"ProgramsName", "probe_name", "load other load hbview main other register",
             REGISTERED_WITH("other")},
        Case{"NamedLibraryIsNotLoaded", "probe_name", "load hbview main other register", ""},
        Case{"InstanceExportDoesNotCount", "probe_instance", "load other load hbview main other register",
             REGISTERED_WITH("hbview")},
        Case{"Hbview", "probe_plain", "load QkAcApp load other load hbview announce other register",
             REGISTERED_WITH("hbview")},
        Case{"Announced", "probe_plain", "load QkAcApp load other announce other register",
             REGISTERED_WITH("other")},
        Case{"NamedLibraryHasNoFactory", "probe_name", "load bare load hbview main bare register", ""},
        Case{"Nothing", "probe_plain", "load other register", ""}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Services, HostLookup,
    testing::Values(Case{"AskedForAnew", "probe_plain", "load hbview service 2 service 2 service 17",
                         "hbview: service 2\nhbview: service 2\nhbview: service 17\n"},
                    Case{"NoHost", "probe_plain", "service 2", ""},
                    Case{"HostWithoutServices", "probe_instance", "load bare main bare service 2", ""}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Application, HostLookup,
    testing::Values(
        Case{"ApplicationLibrary", "probe_instance", "load QkAcApp load other main other app",
             "QkAcApp: GetApp\napp found\n"},
        Case{"ProgramsInstance", "probe_instance", "load other main other app", "other: GetApp\napp found\n"},
        Case{"IsRemembered", "probe_instance", "load other main other app load QkAcApp main bare app",
             "other: GetApp\napp found\nother: GetApp\napp found\n"},
        Case{"InstanceWithoutGetApp", "probe_instance", "load bare main bare app", "app none\n"},
        Case{"Made", "probe_plain", "core load hbview app", "app found\n"},
        Case{"MadeIsNotRemembered", "probe_plain", "core app load QkAcApp app",
             "app found\nQkAcApp: GetApp\napp found\n"},
        Case{"Nothing", "probe_plain", "load hbview app", "app none\n"}),
    caseName);

} // namespace
