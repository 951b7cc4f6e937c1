#pragma once
#include "DbBlockTableRecord.h"
#include "host/lines.h"
#include <functional>
#include <gmock/gmock.h>

/// A session with the module loaded, and a drawing to fill.
class ConstructSession : public testing::Test, protected OpenSession {
protected:
  ConstructSession();
  ~ConstructSession() override;

  OdDbDatabase& database() const { return *session.database(); }
  OdDbObjectId modelSpace() const { return database().getModelSpaceId(); }

  /// Appends an entity to a block record.
  template <class Entity>
  OdSmartPtr<Entity> draw(OdDbObjectId record, OdSmartPtr<Entity> entity = Entity::createObject()) {
    const OdDbBlockTableRecordPtr opened = record.safeOpenObject(OdDb::kForWrite);
    opened->appendOdDbEntity(entity);
    return entity;
  }

  /// The entities of a class in a block record.
  template <class Entity>
  static std::vector<OdSmartPtr<Entity>> all(OdDbObjectId record) {
    std::vector<OdSmartPtr<Entity>> found;
    const OdDbBlockTableRecordPtr opened = record.safeOpenObject();
    for (auto each = opened->newIterator(); !each->done(); each->step())
      if (const auto entity = Entity::cast(each->entity()); !entity.isNull()) found.push_back(entity);
    return found;
  }

  /// Runs a command and requires that it asks for all the answers and no more. `printed` and `prompts` of
  /// `lines` are those of this run.
  host::RunResult execute(const std::string& command, const std::vector<std::string>& answers);
  /// The same, then takes the run back and requires that the drawing is what it was, byte for byte. `look`
  /// sees it in between.
  host::RunResult run(const std::string& command, const std::vector<std::string>& answers,
                      const std::function<void()>& look = {});

  /// Whether the last run that was taken back had changed the drawing.
  bool hasChanged = false;

private:
  void* m_module = nullptr;
};
