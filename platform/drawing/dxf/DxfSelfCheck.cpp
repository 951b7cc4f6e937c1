#include "DxfSelfCheck.h"
#include "AuditNames.h"
#include "AuditObjects.h"
#include "DbStoreWalk.h"
#include "OdError.h"

namespace {

/// Beyond every handle, in drawings that store no seed, or that give objects handles in memory only.
constexpr OdUInt64 kNoSeed = ~OdUInt64{0};

OdUInt64 seedOf(OdDbStore& store) {
  const OdDbHeaderVariable* seed = store.headerVariable("$HANDSEED");
  const bool isHandle = store.hasBlockRecords && seed && seed->groups->size() > 0 &&
                        (*seed->groups)[0].kind == OdDbGroupKind::kHandle;
  return isHandle ? (*seed->groups)[0].handle : kNoSeed;
}

/// Whether members of a sequence stand there without the mark that ends them.
bool isOpenSequence(const OdDbStub* stub) {
  if (!stub->children || (stub->dxfName() != "INSERT" && stub->dxfName() != "POLYLINE")) return false;
  const OdDbStub* last = stub->children->last;
  while (last && last->isErased()) last = last->previous;
  return last && last->dxfName() != "SEQEND";
}

} // namespace

std::vector<std::string> dxfSelfCheck(OdDbDatabase& database, const OdString& file) {
  OdDbDxfFindings findings;
  AuditContext context(database, OdDbAuditMode::readOnly, findings);
  context.tellsRemedies = false;
  AuditNames names(context);
  AuditObjects objects(context);
  const OdUInt64 seed = seedOf(context.store);
  const auto refuse = [&](const OdDbStub* stub, const char* sentence) {
    throw OdError_FileException(eFileWriteError, file + L": " +
                                                     OdString::fromUtf8(AuditContext::describe(stub)) +
                                                     OdString::fromUtf8(sentence));
  };
  odDbVisitAll(context.store, [&](const OdDbStub* stub) {
    if (isOpenSequence(stub) && !stub->isErased()) refuse(stub, " has members without an end mark");
    if (!stub->groups || stub->isErased()) return;
    if (stub->handle >= seed) refuse(stub, " has a handle that is not below the seed");
    AuditEdits none;
    names.checkObject(stub, *stub->groups, none);
    objects.checkObject(stub, *stub->groups, none);
  });
  std::vector<std::string> sentences;
  for (const OdDbDxfFinding& finding : findings.take()) sentences.push_back(finding.sentence);
  return sentences;
}
