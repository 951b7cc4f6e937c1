#pragma once
// Visits everything that a drawing stores. Internal to the drawing library.
#include "DbStore.h"

/// Calls `visit(OdDbStub*)` for the members of a list and all that they contain, in stored order. Erased ones
/// are visited too.
template <class Visit>
void odDbVisitList(const OdDbStubList* list, const Visit& visit) {
  for (OdDbStub* stub = list ? list->first : nullptr; stub; stub = stub->next) {
    visit(stub);
    odDbVisitList(stub->children, visit);
  }
}

/// Calls `visit(OdDbStub*)` for every object of the drawing: tables with their records and entities, the ends
/// of block definitions, and the OBJECTS section.
template <class Visit>
void odDbVisitAll(const OdDbStore& store, const Visit& visit) {
  for (const auto& [name, table] : store.tables) {
    visit(table);
    odDbVisitList(table->children, visit);
  }
  for (OdDbStub* record : store.blockOrder) {
    const auto ends = store.blockEnds.find(record);
    if (ends == store.blockEnds.end()) continue;
    if (ends->second.begin) visit(ends->second.begin);
    if (ends->second.end) visit(ends->second.end);
  }
  odDbVisitList(&store.objects, visit);
}
