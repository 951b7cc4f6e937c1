#include "tables_drawing.h"

namespace {

OdDbGroup makeGroup(OdDbGroupList& list, const SmallDrawing::Group& group) {
  if (const auto* text = std::get_if<const char*>(&group.value)) return list.makeBytes(group.code, *text);
  if (const auto* real = std::get_if<double>(&group.value)) return OdDbGroup::ofReal(group.code, *real);
  if (const auto* number = std::get_if<int>(&group.value)) return OdDbGroup::ofInteger(group.code, *number);
  return OdDbGroup::ofHandle(group.code, std::get<OdDbObjectId>(group.value).getHandle());
}

} // namespace

SmallDrawing::SmallDrawing() {
  for (const char* name :
       {"VPORT", "LTYPE", "LAYER", "STYLE", "VIEW", "UCS", "APPID", "DIMSTYLE", "BLOCK_RECORD"})
    store().tables.emplace_back(name, store().makeStub(store().tableTypeIndex(name), 0, nullptr));
  db->addOdDbObject(OdDbDictionary::createObject(), OdDbObjectId());
  addLayer(L"0");
  addRecord<OdDbLinetypeTableRecord>(db->getLinetypeTableId(), L"Continuous");
  addRecord<OdDbTextStyleTableRecord>(db->getTextStyleTableId(), L"Standard");
  const OdDbDictionaryPtr layouts = db->getLayoutDictionaryId().safeOpenObject(OdDb::kForWrite);
  for (const auto& [space, page] :
       {std::pair(L"*Model_Space", L"Model"), std::pair(L"*Paper_Space", L"Layout1")}) {
    const OdDbObjectId record = addBlock(space);
    const OdDbLayoutPtr layout = OdDbLayout::createObject();
    layout->setLayoutName(page);
    layout->setBlockTableRecordId(record);
    block(record)->setLayoutId(layouts->setAt(page, layout));
  }
  db->clearUndo();
}

OdDbObjectId SmallDrawing::addRaw(const char* dxfName, OdDbObjectId owner,
                                  std::initializer_list<Group> groups, bool entity) {
  OdDbStub* stub = store().makeStub(store().typeIndex(dxfName, entity), 0, owner.stub());
  stub->flags |= static_cast<OdUInt16>(entity ? OdDbStub::kEntity : OdDbStub::kInObjects);
  OdDbGroupListPtr list(new OdDbGroupList);
  odDbGroups::initialize(*list, {});
  for (const Group& group : groups) list->append(makeGroup(*list, group));
  stub->setGroups(list);
  store().link(stub);
  return OdDbObjectId(stub);
}

void SmallDrawing::setHeader(const char* name, std::initializer_list<Group> groups) {
  OdDbGroupListPtr list(new OdDbGroupList);
  for (const Group& group : groups) list->append(makeGroup(*list, group));
  store().setHeaderVariable(name, list);
}

std::vector<std::wstring> namesOf(OdDbObjectId table) {
  std::vector<std::wstring> names;
  const OdDbSymbolTablePtr open = table.safeOpenObject();
  for (auto record = open->newIterator(); !record->done(); record->step())
    names.push_back(record->getRecord()->getName().str());
  return names;
}

namespace {

class GroupPrinter final : public OdDbDxfFiler {
public:
  std::vector<std::string> lines;

  void wrName(int code, const OdString& value) override { add(code, value.toUtf8()); }
  void wrString(int code, const OdString& value) override { add(code, value.toUtf8()); }
  void wrBool(int code, bool value) override { add(code, std::to_string(value)); }
  void wrInt8(int code, OdInt8 value) override { add(code, std::to_string(value)); }
  void wrUInt8(int code, OdUInt8 value) override { add(code, std::to_string(value)); }
  void wrInt16(int code, OdInt16 value) override { add(code, std::to_string(value)); }
  void wrUInt16(int code, OdUInt16 value) override { add(code, std::to_string(value)); }
  void wrInt32(int code, OdInt32 value) override { add(code, std::to_string(value)); }
  void wrUInt32(int code, OdUInt32 value) override { add(code, std::to_string(value)); }
  void wrInt64(int code, OdInt64 value) override { add(code, std::to_string(value)); }
  void wrUInt64(int code, OdUInt64 value) override { add(code, std::to_string(value)); }
  void wrHandle(int code, OdDbHandle value) override { add(code, value.ascii().toUtf8()); }
  void wrObjectId(int code, OdDbObjectId value) override { wrHandle(code, value.getHandle()); }
  void wrAngle(int code, double value) override { add(code, std::to_string(value)); }
  void wrDouble(int code, double value) override { add(code, std::to_string(value)); }
  void wrPoint2d(int code, const OdGePoint2d&) override { add(code, "point"); }
  void wrPoint3d(int code, const OdGePoint3d&) override { add(code, "point"); }
  void wrVector2d(int code, const OdGeVector2d&) override { add(code, "vector"); }
  void wrVector3d(int code, const OdGeVector3d&) override { add(code, "vector"); }
  void wrScale3d(int code, const OdGeScale3d&) override { add(code, "scale"); }
  void wrBinaryChunk(int code, const OdUInt8*, OdUInt32 size) override { add(code, std::to_string(size)); }

private:
  void add(int code, const std::string& value) { lines.push_back(std::to_string(code) + ":" + value); }
};

} // namespace

std::vector<std::string> writtenGroups(OdDbObjectId id) {
  const OdSmartPtr<GroupPrinter> printer(new GroupPrinter, kOdRxObjAttach);
  id.safeOpenObject()->dxfOut(printer);
  return printer->lines;
}
