#pragma once
#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "host/lines.h"
#include "support/dialog_recorder.h"
#include <filesystem>
#include <gmock/gmock.h>

/// A session with the module loaded, a drawing to fill, and a folder for files. What outlives a run of the
/// module ends with the test.
class Extraction : public testing::Test, protected OpenSession {
protected:
  Extraction();
  ~Extraction() override;

  OdDbObjectId addBlock(const OdString& name);
  using Attributes = std::vector<std::pair<const char*, const char*>>;
  /// A reference in model space, open for changes.
  OdDbBlockReferencePtr insert(OdDbObjectId block, const OdGePoint3d& position,
                               const Attributes& attributes = {});
  void addLine();

  std::string path(const std::string& name) const { return (m_folder / name).string(); }
  void write(const std::string& name, const std::string& text) const;
  /// A file whose lines end in "\n", whatever the system writes.
  std::string read(const std::string& name) const;
  bool exists(const std::string& name) const { return std::filesystem::exists(m_folder / name); }

  /// Runs AttExt; the dialog is answered with the lines, the selection prompt with "all".
  host::RunResult run(const std::string& dialogLines);
  /// Runs AttExt on the whole drawing with a template of this text and gives the output file, or "(none)".
  /// The format is "cdf", "sdf" or "dxx".
  std::string extract(const std::string& format, const std::string& templateText);
  /// What the last run printed at its end.
  std::string lastLine() const { return lines.printed.empty() ? "" : lines.printed.back(); }

  DialogRecorder user;

private:
  std::filesystem::path m_folder;
  void* m_module = nullptr;
};
