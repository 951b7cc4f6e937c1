#include "attext/output_path.h"
#include <gmock/gmock.h>

namespace {

using attext::ExtractFormat;

TEST(OutputPath, IsTheDrawingsNameInTheDocumentsFolder) {
  struct Case {
    const char* drawing;
    const char* documents;
    ExtractFormat format;
    const char* output;
  };
  const Case cases[] = {
      {"C:\\work\\plan.dwg", "D:\\Docs", ExtractFormat::cdf, "D:\\Docs\\plan.txt"},
      {"C:\\work\\plan.dwg", "D:\\Docs", ExtractFormat::dxx, "D:\\Docs\\plan.dxx"},
      {"/home/ann/plan.dxf", "/home/ann/Documents", ExtractFormat::sdf, "/home/ann/Documents/plan.txt"},
      {"C:\\work\\plan.dwg", "", ExtractFormat::cdf, "C:\\work\\plan.txt"},
      {"plan.dwg", "D:\\Docs", ExtractFormat::cdf, "plan.txt"},
      {"\\plan.dwg", "D:\\Docs", ExtractFormat::cdf, "\\plan.txt"},
      {"Drawing1", "D:\\Docs", ExtractFormat::cdf, "Drawing1"},
      {"", "D:\\Docs", ExtractFormat::cdf, ""},
      {"C:\\a.dwg\\b.dwg", "", ExtractFormat::dxx, "C:\\a.dxx\\b.dxx"},
      {"C:\\work\\PLAN.DWG", "D:\\Docs", ExtractFormat::cdf, "D:\\Docs\\PLAN.DWG"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(attext::suggestedOutputPath(c.drawing, c.documents, c.format).toUtf8(), c.output);
}

TEST(OutputPath, FollowsTheFormat) {
  EXPECT_EQ(attext::withFormatExtension("D:\\plan.txt", ExtractFormat::dxx), L"D:\\plan.dxx");
  EXPECT_EQ(attext::withFormatExtension("D:\\plan.dxx", ExtractFormat::sdf), L"D:\\plan.txt");
  EXPECT_EQ(attext::withFormatExtension("D:\\list.csv", ExtractFormat::dxx), L"D:\\list.csv");
}

} // namespace
