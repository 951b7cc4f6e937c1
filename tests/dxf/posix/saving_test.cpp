// Saving that is stopped in the middle: the old drawing stays whole, and the next saving works.
#include "DxfWriter.h"
#include "dxf_text.h"
#include "support/drawings.h"
#include "sys/files.h"
#include <csignal>
#include <functional>
#include <gmock/gmock.h>
#include <random>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class SavingTest : public testing::Test {
protected:
  SavingTest() {
    std::string name = (fs::temp_directory_path() / "saving_test-XXXXXX").string();
    m_folder = ::mkdtemp(name.data());
    fs::permissions(m_folder, fs::perms(0755));
    m_old->writeFile(path());
  }
  ~SavingTest() override { fs::remove_all(m_folder); }

  OdString path() const { return sys::fromPath(m_folder / "plan.dxf"); }
  std::string saved() const { return std::string(sys::readFile(m_folder / "plan.dxf").bytes); }
  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& entry : fs::directory_iterator(m_folder)) all.push_back(entry.path().filename());
    return all;
  }
  /// Saves the new drawing over the old one in a process of its own that `prepare` has made unfit for it, and
  /// gives the error.
  std::string errorIn(const std::function<void()>& prepare) const;

  const OdDbDatabasePtr m_old = test::drawingFromText(smallDrawing());
  const OdDbDatabasePtr m_new = test::drawingFromText(entities("0 LINE|10 1|20 2"));
  const std::string m_oldBytes = test::savedBytes(*m_old);
  const std::string m_newBytes = test::savedBytes(*m_new);
  fs::path m_folder;
};

std::string SavingTest::errorIn(const std::function<void()>& prepare) const {
  int ends[2];
  if (::pipe(ends) != 0) return "no pipe";
  const pid_t child = ::fork();
  if (child == 0) {
    std::string error = "(none)";
    prepare();
    try {
      m_new->writeFile(path());
    } catch (const OdError_FileException& caught) {
      error = caught.what();
    }
    ::_exit(::write(ends[1], error.data(), error.size()) < 0);
  }
  ::close(ends[1]);
  std::string error(1000, '\0');
  error.resize(static_cast<std::size_t>(std::max<ssize_t>(0, ::read(ends[0], error.data(), error.size()))));
  ::close(ends[0]);
  ::waitpid(child, nullptr, 0);
  return error;
}

TEST_F(SavingTest, FullDiskLeavesTheOldDrawingWhole) {
  for (const std::size_t room :
       {std::size_t{0}, std::size_t{1}, m_newBytes.size() / 2, m_newBytes.size() - 1}) {
    const std::string error = errorIn([room] {
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{room, room};
      ::setrlimit(RLIMIT_FSIZE, &limit);
    });
    EXPECT_EQ(error, path().toUtf8() + ": File too large") << room;
    EXPECT_EQ(saved(), m_oldBytes) << room;
    EXPECT_THAT(names(), testing::ElementsAre("plan.dxf")) << room;
  }
}

TEST_F(SavingTest, MissingPermissionLeavesTheOldDrawingWhole) {
  const auto becomeNobody = [] {
    // The administrator may do everything, so the attempt is made as somebody else.
    constexpr uid_t kNobody = 65534;
    if (::geteuid() == 0 && ::setresuid(kNobody, kNobody, kNobody) != 0) ::_exit(1);
  };
  const struct { int folder, file; } cases[] = {{0555, 0666}, {0777, 0444}};
  for (const auto& modes : cases) {
    fs::permissions(m_folder / "plan.dxf", fs::perms(modes.file));
    fs::permissions(m_folder, fs::perms(modes.folder));
    EXPECT_EQ(errorIn(becomeNobody), path().toUtf8() + ": Permission denied") << modes.folder;
    EXPECT_EQ(saved(), m_oldBytes) << modes.folder;
    EXPECT_THAT(names(), testing::ElementsAre("plan.dxf")) << modes.folder;
    fs::permissions(m_folder, fs::perms(0755));
  }
}

TEST_F(SavingTest, KillingAtAnyMomentLeavesOneOfTheDrawingsWhole) {
  constexpr int kTimes = 200;
  constexpr unsigned kLongestMicroseconds = 10000;
  std::mt19937 random(1);
  int interrupted = 0;
  for (int i = 0; i < kTimes; ++i) {
    const pid_t child = ::fork();
    if (child == 0)
      for (;;)
        for (OdDbDatabase* drawing : {m_new.get(), m_old.get()}) drawing->writeFile(path());
    ::usleep(random() % kLongestMicroseconds);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_THAT(saved(), testing::AnyOf(m_oldBytes, m_newBytes)) << i;
    EXPECT_LE(names().size(), 2u) << "leftovers add up";
    interrupted += names().size() > 1;
  }
  EXPECT_GT(interrupted, 0) << "no saving was caught in the middle";
  m_new->writeFile(path());
  EXPECT_EQ(saved(), m_newBytes);
  EXPECT_THAT(names(), testing::ElementsAre("plan.dxf"));
}

} // namespace
