#include "workspace.h"
#include "DbStore.h"
#include "progress.h"
#include "sys/files.h"

namespace fs = std::filesystem;

namespace app {

namespace {

constexpr char kNewDrawing[] = "Drawing1.dxf";

/// Commands are told where the drawing is, whatever folder they work in.
OdString absolutePath(const fs::path& file) {
  std::error_code failed;
  const fs::path absolute = fs::absolute(file, failed);
  return sys::fromPath(failed ? file : absolute);
}

} // namespace

void Workspace::use(OdDbDatabasePtr database, const fs::path& file) {
  m_file = file;
  m_savedChanges = database->store().undo.changes();
  m_session->setDrawing(std::move(database), file.empty() ? OdString(kNewDrawing) : absolutePath(file));
}

void Workspace::create() { use(OdDbDatabase::createBlank(), {}); }

void Workspace::open(const fs::path& file, Door door) {
  ReadDrawing read;
  {
    ProgressBar bar("Reading " + shown(file.filename()));
    read = readDrawing(file, door, m_encoding, [&bar](double part) { bar.show(part); });
  }
  printNotes(file, read);
  use(std::move(read.database), file);
}

void Workspace::save(const fs::path& file) {
  OdDbDatabase& database = *m_session->database();
  std::error_code ignored;
  const fs::path place = fs::weakly_canonical(file, ignored);
  SavingOptions saving = m_saving;
  saving.backup = saving.backup && !m_saved.contains(place);
  std::vector<std::string> notes;
  {
    ProgressBar bar("Saving " + shown(file.filename()));
    notes = writeDrawing(database, file, saving, [&bar](double part) { bar.show(part); });
  }
  printNotes(file, notes);
  m_saved.insert(place);
  m_file = file;
  m_savedChanges = database.store().undo.changes();
  m_session->setDrawingPath(absolutePath(file));
}

std::string Workspace::name() const { return m_file.empty() ? kNewDrawing : shown(m_file.filename()); }

bool Workspace::hasUnsavedChanges() const {
  const OdDbDatabase* database = m_session->database();
  return database && database->store().undo.changes() != m_savedChanges;
}

} // namespace app
