#include "attext_command.h"
#include "DbBlockReference.h"
#include "attext_dialog.h"
#include "dxx_writer.h"
#include "extract_engine.h"
#include "frame/host_lookup.h"
#include "res/strings.h"
#include <algorithm>
#include <vector>

namespace {

using attext::CAttExtDlg;
using attext::ExtractFormat;

/// Templates set the quote for as long as the module stays loaded.
attext::ExtractSettings settings;

/// How the host is asked for objects; the meaning of the number is its own.
constexpr int kSelectionFlags = 16384;

/// None when the user cancels.
OdDbObjectIdArray selectObjects(HostEdInput& input, const OdString& prompt) {
  OdDbObjectIdArray ids;
  input.SelectEntities(prompt, kSelectionFlags, nullptr, nullptr, ids);
  return ids;
}

/// Shows the dialog until the user has decided. False: cancelled.
bool askUser(CAttExtDlg& dialog, HostEdInput& input, OdDbObjectIdArray& selection) {
  const OdString prompt = res::loadString(IDS_SELECT_OBJECTS);
  for (;;) {
    const int result = dialog.doModal();
    if (result != CAttExtDlg::kSelectObjects) return result == 1;
    selection = selectObjects(input, prompt);
    dialog.setFoundCount(static_cast<int>(selection.size()));
  }
}

/// The block references among the objects, grouped by the definition that they insert. References whose
/// definition is missing are left out.
OdDbObjectIdArray collectReferences(const OdDbObjectIdArray& objects) {
  struct Insert {
    OdDbObjectId definition;
    OdDbObjectId reference;
  };
  std::vector<Insert> inserts;
  for (const OdDbObjectId id : objects) {
    // Most objects of a drawing are something else and need not be opened to be told apart.
    if (id.isErased() || !id.objectClass()->isDerivedFrom(OdDbBlockReference::desc())) continue;
    const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(id.safeOpenObject());
    const OdDbObjectId definition = reference->blockTableRecord();
    if (!definition.isErased()) inserts.push_back({definition, id});
  }
  // Within a definition the order of selection stays, so that a run can be repeated.
  std::stable_sort(inserts.begin(), inserts.end(),
                   [](const Insert& a, const Insert& b) { return a.definition < b.definition; });
  OdDbObjectIdArray references;
  for (const Insert& insert : inserts) references.append(insert.reference);
  return references;
}

int extractText(const CAttExtDlg& dialog, const OdDbObjectIdArray& selection) {
  settings.delimiter = dialog.format() == ExtractFormat::cdf ? L"," : L" ";
  const OdDbObjectIdArray references = collectReferences(selection);
  if (references.isEmpty()) return 0;
  return attext::extractRecords(dialog.templatePath(), dialog.outputPath(), references, settings);
}

int extract(const CAttExtDlg& dialog, const OdDbObjectIdArray& selection) {
  settings.format = dialog.format();
  if (selection.isEmpty()) return 0;
  if (dialog.format() == ExtractFormat::dxx)
    return attext::writeDxx(dialog.templatePath(), dialog.outputPath(), selection);
  return extractText(dialog, selection);
}

} // namespace

CMD_RUNSTATUS AttExtCmd::Run() {
  return perform([](frame::Session& session) {
    CAttExtDlg dialog(frame::currentDocument().FilePath());
    OdDbObjectIdArray selection;
    if (!askUser(dialog, session.input(), selection)) return kCmdCancelled;
    const int count = extract(dialog, selection);
    session.input().Print(res::loadString(IDS_ATTEXT_OBJECTS_IN_FILE), count);
    // An extraction that wrote nothing has neither succeeded nor been cancelled: its status stays as it was.
    return count > 0 ? kCmdCompleted : kCmdInProgress;
  });
}
