#pragma once
#include "QkVariant.h"
#include <filesystem>
#include <optional>

namespace host {

/// The profile on disk: a JSON file of sections that hold values. Every call works on the file as it is at
/// that moment, so that sessions running side by side keep each other's values. A file that cannot be read or
/// written is reported once, by a warning, and never stops anything.
class ProfileFile {
public:
  explicit ProfileFile(std::filesystem::path path) : m_path(std::move(path)) {}
  /// The user's own: $HBHOST_PROFILE, else profile.json in the configuration folder.
  static std::filesystem::path userPath();

  bool hasSection(const OdString& section) const;
  std::optional<CQkVariant> read(const OdString& section, const OdString& name) const;
  /// True when the value is on the disk. A damaged file is put aside under the name with ".damaged" first.
  bool write(const OdString& section, const OdString& name, const CQkVariant& value) const;

private:
  std::filesystem::path m_path;
};

} // namespace host
