#include "DrawingAudit.h"
#include "AuditBlocks.h"
#include "AuditLayouts.h"
#include "AuditNames.h"
#include "AuditObjects.h"
#include "DbStoreWalk.h"
#include "DxfRecord.h"
#include <algorithm>

namespace {

/// The handle seed that the file stores; the reader raises one that is too low. 0: none.
OdUInt64 seedAsRead(const OdDbStore& store) {
  for (const OdDbSection& section : store.sections) {
    if (section.name != "HEADER" || !store.parser) continue;
    OdDbGroupList groups;
    store.parser->parse(section.raw, groups);
    for (int i = 0; i + 1 < groups.size(); ++i)
      if (groups[i].code == 9 && groups[i].bytes() == "$HANDSEED" &&
          groups[i + 1].kind == OdDbGroupKind::kHandle)
        return groups[i + 1].handle;
  }
  return 0;
}

void checkSeed(AuditContext& context) {
  const OdUInt64 seed = dxfStoresBlockRecords(context.store.version) ? seedAsRead(context.store) : 0;
  const OdDbStub* largest = nullptr;
  odDbVisitAll(context.store, [&](const OdDbStub* stub) {
    if (stub->raw && (!largest || stub->handle > largest->handle)) largest = stub;
  });
  if (seed == 0 || !largest || largest->handle < seed) return;
  context.repair("seed-too-low", largest,
                 "the handle seed " + OdDbHandle(seed).ascii().toUtf8() + " is not beyond the handle of " +
                     AuditContext::describe(largest),
                 "it is raised");
}

void checkTail(AuditContext& context) {
  constexpr std::string_view kNothing(" \t\r\n\x1A\0", 6);
  constexpr std::string_view kEnd = "EOF";
  const std::size_t end = context.store.tail.find(kEnd);
  if (end == std::string_view::npos) return;
  const std::string_view tail = context.store.tail.substr(end + kEnd.size());
  if (tail.find_first_not_of(kNothing) == std::string_view::npos) return;
  context.repair("text-behind-end", nullptr,
                 std::to_string(tail.size()) + " bytes stand behind the end of the drawing",
                 "they are kept, and mean nothing");
}

} // namespace

void odDbAudit(OdDbDatabase& database, OdDbAuditMode mode, OdDbDxfFindings& findings) {
  AuditContext context(database, mode, findings);
  AuditNames names(context);
  AuditObjects objects(context);
  AuditBlocks blocks(context);
  names.checkRecords();
  blocks.checkDefinitions();
  AuditLayouts(context).check();
  odDbVisitAll(context.store, [&](OdDbStub* stub) {
    if (stub->isErased()) return;
    const OdDbGroupListPtr groups = stub->content();
    AuditEdits edits;
    names.checkObject(stub, *groups, edits);
    objects.checkObject(stub, *groups, edits);
    blocks.noteObject(stub, *groups);
    context.apply(stub, edits);
  });
  blocks.checkFlags();
  blocks.checkCycles();
  names.checkHeader();
  names.makeMissing();
  checkSeed(context);
  checkTail(context);
}
