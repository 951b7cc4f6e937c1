#pragma once
#include "drawing_file.h"
#include "hbview/HostSession.h"
#include <set>

namespace app {

/// The drawing that a session works on, and its file.
class Workspace {
public:
  /// `encoding` is that of the texts of every drawing that is opened, empty: the one that it tells. A backup
  /// keeps a file as it was before the session, however often it is saved.
  Workspace(host::HostSession& session, std::string encoding, const SavingOptions& saving)
      : m_session(&session), m_encoding(std::move(encoding)), m_saving(saving) {}

  /// Begins with an empty drawing.
  void create();
  /// Notes about the file, and what was found in a recovered one, go to standard error. Throws OdError with a
  /// sentence that names the file; the current drawing then stays as it was.
  void open(const std::filesystem::path& file, Door door = Door::strict);
  /// Notes (see writeDrawing) go to standard error. Throws OdError with a sentence that names the file; the
  /// file then stays as it was.
  void save(const std::filesystem::path& file);

  /// Where the drawing was read from or saved to; empty for a new one.
  const std::filesystem::path& file() const { return m_file; }
  /// The name of the file, or of the drawing that has none yet.
  std::string name() const;
  bool hasUnsavedChanges() const;

private:
  void use(OdDbDatabasePtr database, const std::filesystem::path& file);

  host::HostSession* m_session;
  std::string m_encoding;
  SavingOptions m_saving;
  std::set<std::filesystem::path> m_saved; ///< files that are this session's own by now
  std::filesystem::path m_file;
  OdUInt64 m_savedChanges = 0;
};

} // namespace app
