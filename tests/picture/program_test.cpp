// The files that the program writes.
#include "support/drawings.h"
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class PictureFile : public testing::Test {
protected:
  PictureFile() {
    fs::remove_all(m_folder);
    fs::create_directory(m_folder);
  }
  ~PictureFile() override { fs::remove_all(m_folder); }

  /// Runs the program inside a folder of its own; what it complains about is in `complaint`.
  int draw(const std::string& arguments) {
    const std::string line =
        "cd '" + m_folder.string() + "' && '" HBHOST "' " + arguments + " 2>complaint </dev/null";
    const int status = std::system(line.c_str());
    complaint = read("complaint");
    return WEXITSTATUS(status);
  }
  std::string read(const std::string& name) const {
    std::ifstream file(m_folder / name, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }
  bool has(const std::string& name) const { return fs::exists(m_folder / name); }
  void write(const std::string& name, const std::string& text) const {
    std::ofstream(m_folder / name) << text;
  }

  std::string complaint;
  const std::string office = "'" EXAMPLES "/office.dxf' ";

private:
  const fs::path m_folder = fs::temp_directory_path() / ("picture_test" + std::to_string(getpid()));
};

/// The four bytes of a big number.
unsigned numberAt(const std::string& bytes, std::size_t at) {
  unsigned value = 0;
  for (std::size_t i = 0; i < 4; ++i) value = value << 8 | static_cast<unsigned char>(bytes.at(at + i));
  return value;
}

TEST_F(PictureFile, EachFormat) {
  EXPECT_EQ(draw(office + "--picture plan.png"), 0) << complaint;
  const std::string png = read("plan.png");
  ASSERT_EQ(png.substr(1, 3), "PNG");
  EXPECT_EQ(numberAt(png, 16), 1600u);
  EXPECT_EQ(draw(office + "--picture small.PNG --picture-size 320x200"), 0) << complaint;
  EXPECT_EQ(numberAt(read("small.PNG"), 16), 320u);
  EXPECT_EQ(numberAt(read("small.PNG"), 20), 200u);
  EXPECT_EQ(draw(office + "--picture plan.svg"), 0) << complaint;
  EXPECT_THAT(read("plan.svg"), testing::HasSubstr("<svg"));
  EXPECT_EQ(draw(office + "--picture sheet.pdf --layout 'a3 grundriss'"), 0) << complaint;
  EXPECT_EQ(read("sheet.pdf").substr(0, 5), "%PDF-");
  // Paper of 420 by 297 millimetres, in points.
  const std::string pdf = read("sheet.pdf");
  const std::size_t box = pdf.find("/MediaBox");
  ASSERT_NE(box, std::string::npos);
  double width = 0;
  double height = 0;
  ASSERT_EQ(std::sscanf(pdf.c_str() + box, "/MediaBox [ 0 0 %lf %lf ]", &width, &height), 2);
  EXPECT_NEAR(width, 1190.6, 0.5);
  EXPECT_NEAR(height, 841.9, 0.5);
}

TEST_F(PictureFile, ComplaintsSayWhatIsWrong) {
  const std::string empty = "0\nSECTION\n2\nHEADER\n9\n$"
                            "ACADVER\n1\nAC1015\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n";
  write("empty.dxf", empty);
  const struct {
    std::string arguments;
    int status;
    const char* complaint;
  } cases[] = {
      {office + "--picture plan.gif", 2, "plan.gif: pictures are .svg, .png or .pdf files"},
      {office + "--picture plan.png --picture-size 0x5", 2, "\"0x5\" is no size in pixels"},
      {office + "--picture plan.png --layout None", 2,
       "no layout \"None\"; it has Model, A3 Grundriss, A4 M"},
      {"'" EXAMPLES "/small/old_r12.dxf' --picture plan.png --layout None", 2, "it has Model, Layout1."},
      {"empty.dxf --picture plan.png", 4, "there is nothing to draw"},
      {office + "--picture nowhere/plan.png", 4, "nowhere/plan.png: "},
      {office + "--picture . --layout Model", 2, ""},
  };
  for (const auto& [arguments, status, sentence] : cases) {
    EXPECT_EQ(draw(arguments), status) << arguments;
    EXPECT_THAT(complaint, testing::HasSubstr(sentence)) << arguments;
    EXPECT_FALSE(has("plan.png")) << arguments;
  }
}

TEST_F(PictureFile, ShowsWhatCommandsHaveChanged) {
  EXPECT_EQ(draw(office + "--command '?' --picture plan.svg --save-as copy.dxf"), 0) << complaint;
  EXPECT_TRUE(has("plan.svg"));
  EXPECT_TRUE(has("copy.dxf"));
}

TEST_F(PictureFile, IsDrawnAtPromptsWithThePreview) {
  write("ray.scr", "Ray\n0,0\npicture before.svg\nmove 3,4\npicture with.svg\npicture no.gif\n^C\n"
                   "picture after.svg\nPICTURE\ncommand.png\n");
  EXPECT_EQ(draw("--script ray.scr --command 'Ray' --command 0,0 --command 0,1 --command ''"), 2)
      << complaint;
  const auto lines = [this](const std::string& name) {
    const std::string svg = read(name);
    std::size_t count = 0;
    for (std::size_t at = svg.find("<path"); at != std::string::npos; at = svg.find("<path", at + 1)) ++count;
    return count;
  };
  EXPECT_EQ(lines("before.svg"), 1u);
  EXPECT_EQ(lines("with.svg"), 2u) << "the drawing and the preview";
  EXPECT_EQ(lines("after.svg"), 1u);
  EXPECT_TRUE(has("command.png"));
}

} // namespace
