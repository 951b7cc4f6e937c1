#pragma once
// What releases before 2000 store differently, and what they cannot store at all.
#include "DbStore.h"

/// Groups of a changed or new object in the form of the drawing's release: no markers, owners and handles
/// where the release has none, and no group of later releases that only states the usual. In every release,
/// dictionaries lose their entries for erased objects. `groups` are those to be written; null: the object's
/// own. Null when they can be written as they are.
OdDbGroupListPtr dxfReleaseForm(const OdDbStub& stub, const OdDbGroupList* groups);

/// What a user should know about things that were made or changed since the drawing was read and that its
/// release cannot store: "release R12 cannot store MTEXT 2F (this kind of object) and 3 more". Empty: it can
/// store everything.
std::string dxfNoveltySentence(const OdDbStore& store);
