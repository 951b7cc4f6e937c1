#pragma once
#include "DbBlockTableRecord.h"
#include "host/lines.h"
#include "support/drawings.h"
#include "sys/library.h"
#include <gmock/gmock.h>

/// A session with the module loaded, and a drawing to fill.
struct DivideSession : testing::Test, protected OpenSession {
  DivideSession() {
    std::string error;
    m_module = sys::loadLibrary("blockattr", error);
    EXPECT_TRUE(m_module) << error;
  }
  ~DivideSession() override { sys::freeLibrary(m_module); }

  OdDbDatabase& database() { return *session.database(); }
  OdDbObjectId modelSpace() { return database().getModelSpaceId(); }

  template <class Entity>
  OdSmartPtr<Entity> draw(OdDbObjectId record, OdSmartPtr<Entity> entity = Entity::createObject()) {
    const OdDbBlockTableRecordPtr opened = record.safeOpenObject(OdDb::kForWrite);
    opened->appendOdDbEntity(entity);
    return entity;
  }

  /// Runs a command and takes it back: the drawing has to be what it was. `look` sees it in between.
  host::RunResult run(const OdString& command, std::initializer_list<const char*> answers,
                      const std::function<void()>& look = {}) {
    database().clearUndo();
    const std::string before = test::savedBytes(database());
    lines.prompts.clear();
    lines.printed.clear();
    lines.type(answers);
    const host::RunResult result = session.execute(command);
    const std::vector<std::string> printed = lines.printed;
    EXPECT_FALSE(lines.readLine("")) << "an answer was not asked for";
    if (look) look();
    hasChanged = test::savedBytes(database()) != before;
    if (database().hasUndo()) session.execute(L"U");
    EXPECT_EQ(test::savedBytes(database()), before);
    lines.printed = printed;
    return result;
  }

  /// The entities of a class in a block record.
  template <class Entity>
  std::vector<OdSmartPtr<Entity>> all(OdDbObjectId record) {
    std::vector<OdSmartPtr<Entity>> found;
    const OdDbBlockTableRecordPtr opened = record.safeOpenObject();
    for (auto each = opened->newIterator(); !each->done(); each->step())
      if (const auto entity = Entity::cast(each->entity()); !entity.isNull()) found.push_back(entity);
    return found;
  }

  /// Whether the last run changed the drawing.
  bool hasChanged = false;

private:
  sys::Library m_module = nullptr;
};
