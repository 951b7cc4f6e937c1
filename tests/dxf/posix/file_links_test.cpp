// What file systems have here: links, owners, devices, and limits.
#include "DxfWriter.h"
#include "file_folder.h"
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using test::drawingFromText;

TEST_F(FileTest, LinksAreFollowed) {
  const fs::path target = put("target.dxf", "old");
  fs::create_symlink("target.dxf", m_folder / "link.dxf");
  fs::create_symlink("new.dxf", m_folder / "dangling.dxf");
  const OdDbDatabasePtr database = drawingFromText(smallDrawing());
  database->writeFile(wide(m_folder / "link.dxf"));
  database->writeFile(wide(m_folder / "dangling.dxf"));
  EXPECT_TRUE(fs::is_symlink(m_folder / "link.dxf"));
  EXPECT_EQ(textOf(target), smallDrawing());
  EXPECT_EQ(textOf(m_folder / "new.dxf"), smallDrawing());
}

TEST_F(FileTest, OwnerIsKeptByTheAdministrator) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the administrator may give files away";
  const fs::path path = put("plan.dxf", "old");
  ASSERT_EQ(::chown(path.c_str(), 4321, 1234), 0);
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::set_gid);
  drawingFromText(smallDrawing())->writeFile(wide(path));
  struct stat status {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 4321u);
  EXPECT_EQ(status.st_gid, 1234u);
  EXPECT_EQ(status.st_mode & 07777, 02600u);
}

TEST_F(FileTest, BackupOfALinkIsTheFileThatWasReplaced) {
  OdDbDxfWriteOptions options;
  options.backup = true;
  put("plan.dxf", "old");
  fs::create_symlink("plan.dxf", m_folder / "link.dxf");
  odDbWriteFile(*drawingFromText(smallDrawing()), wide(m_folder / "link.dxf"), options);
  EXPECT_EQ(textOf(m_folder / "plan.dxf.bak"), "old");
  EXPECT_EQ(textOf(m_folder / "plan.dxf"), smallDrawing());
  EXPECT_THAT(names(), testing::UnorderedElementsAre("plan.dxf", "plan.dxf.bak", "link.dxf"));
}

TEST_F(FileTest, DevicesLoopsAndFullDisksLeaveTheOldFileAlone) {
  const fs::path path = put("drawing.dxf", "old");
  fs::create_symlink("loop", m_folder / "loop");
  const OdDbDatabasePtr database = drawingFromText(smallDrawing());
  EXPECT_EQ(writeError(*database, "/dev/null"), "/dev/null: not a regular file");
  EXPECT_EQ(writeError(*database, m_folder / "loop"), "loop: Too many levels of symbolic links");

  rlimit old{};
  getrlimit(RLIMIT_FSIZE, &old);
  const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{1000, old.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  const std::string error = writeError(*database, path);
  setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, oldHandler);
  EXPECT_EQ(error, "drawing.dxf: File too large");
  EXPECT_EQ(textOf(path), "old");
  EXPECT_THAT(names(), testing::UnorderedElementsAre("drawing.dxf", "loop"));
}

} // namespace
