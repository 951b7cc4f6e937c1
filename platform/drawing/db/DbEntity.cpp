#include "DbEntity.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbStore.h"
#include "DbSymbolTableRecord.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbEntity, OdDbObject)

namespace {

enum Code {
  kLayout = 410,
  kPaperSpace = 67,
  kLayer = 8,
  kLinetype = 6,
  kMaterial = 347,
  kColor = 62,
  kLineWeight = 370,
  kLinetypeScale = 48,
  kVisibility = 60,
  kTrueColor = 420,
  kColorName = 430,
  kTransparency = 440,
  kPlotStyle = 390,
  kPlotStyleType = 380,
  kShadow = 284,
};

// The colour by value has no default that could be stored; it is no field, and stands behind all of them.
constexpr OdDbField kFields[] = {
    {kPaperSpace, OdDbFieldKind::kInt16},
    {kLayer, OdDbFieldKind::kName, true, 0, "0"},
    {kLinetype, OdDbFieldKind::kName, false, 0, "ByLayer"},
    {kMaterial, OdDbFieldKind::kObjectId},
    {kColor, OdDbFieldKind::kInt16, false, 256},
    {kLineWeight, OdDbFieldKind::kInt16, false, OdDb::kLnWtByLayer},
    {kLinetypeScale, OdDbFieldKind::kReal, false, 1},
    {kVisibility, OdDbFieldKind::kInt16},
};

constexpr int kPropertyCodes[] = {kLayer,         kLinetype,      kMaterial,  kColor,     kLineWeight,
                                  kLinetypeScale, kVisibility,    kTrueColor, kColorName, kTransparency,
                                  kPlotStyle,     kPlotStyleType, kShadow};

constexpr wchar_t kByLayer[] = L"ByLayer";
constexpr wchar_t kByBlock[] = L"ByBlock";
constexpr char kLayerTable[] = "LAYER";
constexpr char kLinetypeTable[] = "LTYPE";

} // namespace

const OdDbSubclass kOdDbEntitySection{"AcDbEntity", kFields};

OdDbSchema OdDbEntity::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection};
  return sections;
}

void OdDbEntity::copyFrom(const OdDbObject* source) {
  OdDbObject::copyFrom(source);
  if (const auto entity = OdDbEntity::cast(source); !entity.isNull())
    setNamesDatabase(entity->namesDatabase());
}

// --- names of table records ---

OdDbDatabase* OdDbEntity::namesDatabase() const {
  if (isDBRO()) return database();
  const auto names = m_names.lock();
  return names ? *names : nullptr;
}

void OdDbEntity::setNamesDatabase(const OdDbDatabase* names) {
  if (names)
    m_names = names->store().token;
  else
    m_names.reset();
}

OdDbObjectId OdDbEntity::namedRecord(const OdDbSubclass& section, int code, const char* table) const {
  const OdDbDatabase* names = namesDatabase();
  if (!names) return {};
  OdDbStore& store = names->store();
  return OdDbObjectId(store.findRecord(store.table(table), leadingText(section, code).str()));
}

OdDbObjectId OdDbEntity::namedReference(const OdDbSubclass& section, int code) const {
  const OdDbDatabase* names = namesDatabase();
  const int at = odDbGroups::find(groups(), section, code);
  return names && at >= 0 ? names->getOdDbObjectId(groups()[at].handle) : OdDbObjectId();
}

void OdDbEntity::setNamedRecord(const OdDbSubclass& section, int code, OdDbObjectId record) {
  if (record.isNull()) throw OdError(eNullObjectId);
  if (isDBRO() && record.database() != database()) throw OdError(eWrongDatabase);
  const OdDbSymbolTableRecordPtr opened = record.safeOpenObject();
  setText(section, code, opened->getName());
  setNamesDatabase(record.database());
}

void OdDbEntity::setRecordByName(const OdDbSubclass& section, int code, const char* table,
                                 const OdString& name) {
  if (OdDbDatabase* names = namesDatabase()) {
    OdDbStub* record = names->store().findRecord(names->store().table(table), name.str());
    if (!record)
      throw OdError(eKeyNotFound, name + L": the drawing has no such " + OdString(table) + L" record.");
    setNamedRecord(section, code, OdDbObjectId(record));
  } else {
    setText(section, code, name);
  }
}

// --- properties ---

OdString OdDbEntity::layer() const { return text(kOdDbEntitySection, kLayer); }
OdDbObjectId OdDbEntity::layerId() const { return namedRecord(kOdDbEntitySection, kLayer, kLayerTable); }
void OdDbEntity::setLayer(const OdString& name) {
  setRecordByName(kOdDbEntitySection, kLayer, kLayerTable, name);
}
void OdDbEntity::setLayer(OdDbObjectId layer) { setNamedRecord(kOdDbEntitySection, kLayer, layer); }

OdString OdDbEntity::linetype() const { return text(kOdDbEntitySection, kLinetype); }
OdDbObjectId OdDbEntity::linetypeId() const {
  return namedRecord(kOdDbEntitySection, kLinetype, kLinetypeTable);
}
void OdDbEntity::setLinetype(const OdString& name) {
  // Old releases have no records for two of the names.
  const bool isByAnother = name.iCompare(kByLayer) == 0 || name.iCompare(kByBlock) == 0;
  if (const OdDbDatabase* names = namesDatabase(); names && isByAnother)
    if (OdDbStore& store = names->store(); !store.findRecord(store.table(kLinetypeTable), name.str()))
      return setText(kOdDbEntitySection, kLinetype, name);
  setRecordByName(kOdDbEntitySection, kLinetype, kLinetypeTable, name);
}
void OdDbEntity::setLinetype(OdDbObjectId linetype) {
  setNamedRecord(kOdDbEntitySection, kLinetype, linetype);
}

OdCmColor OdDbEntity::color() const {
  if (!has(kOdDbEntitySection, kTrueColor)) return OdCmColor::fromIndex(integer(kOdDbEntitySection, kColor));
  const auto rgb = static_cast<OdUInt32>(integer(kOdDbEntitySection, kTrueColor));
  return OdCmColor::fromRgb(static_cast<OdUInt8>(rgb >> 16), static_cast<OdUInt8>(rgb >> 8),
                            static_cast<OdUInt8>(rgb));
}

void OdDbEntity::setColor(const OdCmColor& color) {
  assertWriteEnabled();
  removeField(kOdDbEntitySection, kColorName);
  if (color.colorMethod() == OdCmColor::kByColor) {
    removeField(kOdDbEntitySection, kColor);
    setInteger(kOdDbEntitySection, kTrueColor, color.rgb());
    return;
  }
  removeField(kOdDbEntitySection, kTrueColor);
  if (color.isByLayer())
    removeField(kOdDbEntitySection, kColor);
  else
    setInteger(kOdDbEntitySection, kColor, color.colorIndex());
}

double OdDbEntity::linetypeScale() const { return real(kOdDbEntitySection, kLinetypeScale); }
void OdDbEntity::setLinetypeScale(double scale) { setReal(kOdDbEntitySection, kLinetypeScale, scale); }

OdDb::LineWeight OdDbEntity::lineWeight() const {
  return static_cast<OdDb::LineWeight>(integer(kOdDbEntitySection, kLineWeight));
}
void OdDbEntity::setLineWeight(OdDb::LineWeight weight) {
  setInteger(kOdDbEntitySection, kLineWeight, weight);
}

OdDb::Visibility OdDbEntity::visibility() const {
  return integer(kOdDbEntitySection, kVisibility) ? OdDb::kInvisible : OdDb::kVisible;
}
void OdDbEntity::setVisibility(OdDb::Visibility visibility) {
  setInteger(kOdDbEntitySection, kVisibility, visibility);
}

OdCmTransparency OdDbEntity::transparency() const {
  return OdCmTransparency::fromStored(static_cast<OdUInt32>(integer(kOdDbEntitySection, kTransparency)));
}
void OdDbEntity::setTransparency(const OdCmTransparency& transparency) {
  setInteger(kOdDbEntitySection, kTransparency, transparency.stored());
}

OdDbObjectId OdDbEntity::materialId() const { return namedReference(kOdDbEntitySection, kMaterial); }
void OdDbEntity::setMaterial(OdDbObjectId material) {
  if (material.isNull())
    removeField(kOdDbEntitySection, kMaterial);
  else
    setReference(kOdDbEntitySection, kMaterial, material);
}

OdDb::PlotStyleNameType OdDbEntity::getPlotStyleNameId(OdDbObjectId& id) const {
  id = namedReference(kOdDbEntitySection, kPlotStyle);
  if (!id.isNull()) return OdDb::kPlotStyleNameById;
  return static_cast<OdDb::PlotStyleNameType>(integer(kOdDbEntitySection, kPlotStyleType));
}

void OdDbEntity::setPlotStyleName(OdDb::PlotStyleNameType type, OdDbObjectId id) {
  assertWriteEnabled();
  if (type == OdDb::kPlotStyleNameById) {
    if (id.isNull()) throw OdError(eNullObjectId);
    setReference(kOdDbEntitySection, kPlotStyle, id);
  } else {
    removeField(kOdDbEntitySection, kPlotStyle);
  }
  if (type == OdDb::kPlotStyleNameByLayer || type == OdDb::kPlotStyleNameById)
    removeField(kOdDbEntitySection, kPlotStyleType);
  else
    setInteger(kOdDbEntitySection, kPlotStyleType, type);
}

/// The dictionary of plot style names of a drawing; null when there is none.
static OdDbDictionaryPtr plotStyles(OdDbDatabase* database) {
  return database ? OdDbDictionary::cast(database->getPlotStyleNameDictionaryId(false).openObject())
                  : OdDbDictionaryPtr();
}

OdString OdDbEntity::plotStyleName() const {
  OdDbObjectId id;
  const OdDb::PlotStyleNameType type = getPlotStyleNameId(id);
  if (type == OdDb::kPlotStyleNameByLayer) return kByLayer;
  if (type == OdDb::kPlotStyleNameByBlock) return kByBlock;
  const OdDbDictionaryPtr styles = plotStyles(namesDatabase());
  return styles.isNull() || id.isNull() ? OdString() : styles->nameAt(id);
}

void OdDbEntity::setPlotStyleName(const OdString& name) {
  if (name.iCompare(kByLayer) == 0) return setPlotStyleName(OdDb::kPlotStyleNameByLayer);
  if (name.iCompare(kByBlock) == 0) return setPlotStyleName(OdDb::kPlotStyleNameByBlock);
  const OdDbDictionaryPtr styles = plotStyles(namesDatabase());
  const OdDbObjectId id = styles.isNull() ? OdDbObjectId() : styles->getAt(name);
  if (id.isNull()) throw OdError(eKeyNotFound, name + L": the drawing has no such plot style.");
  setPlotStyleName(OdDb::kPlotStyleNameById, id);
}

void OdDbEntity::setDatabaseDefaults(OdDbDatabase* database) {
  OdDbDatabase* from = database ? database : namesDatabase();
  if (!from) throw OdError(eNoDatabase);
  setNamesDatabase(from);
  if (const OdDbObjectId layer = from->getCLAYER(); !layer.isNull()) setLayer(layer);
  setColor(from->getCECOLOR());
  // The usual values are what a file means by storing none.
  if (const OdDbObjectId type = from->getCELTYPE(); !type.isNull() && type != linetypeId()) setLinetype(type);
  if (from->getCELTSCALE() != linetypeScale()) setLinetypeScale(from->getCELTSCALE());
  if (from->getCELWEIGHT() != lineWeight()) setLineWeight(from->getCELWEIGHT());
}

void OdDbEntity::setPropertiesFrom(const OdDbEntity* source) {
  if (source == this) return;
  OdDbGroupList& target = mutableGroups();
  const OdDbGroupList& other = source->groups();
  for (const int code : kPropertyCodes) {
    removeField(kOdDbEntitySection, code);
    const int index = odDbGroups::find(other, kOdDbEntitySection, code);
    if (index < 0) continue;
    const int at = odDbGroups::place(target, schema(), kOdDbEntitySection, code);
    target.insert(at, other[index].isText() ? target.makeText(code, other.text(index)) : other[index]);
  }
  setNamesDatabase(source->namesDatabase());
}

// --- geometry ---

OdResult OdDbEntity::transformBy(const OdGeMatrix3d&) { return eNotApplicable; }
OdResult OdDbEntity::explode(OdRxObjectPtrArray&) const { return eNotApplicable; }
OdResult OdDbEntity::getGeomExtents(OdGeExtents3d&) const { return eInvalidExtents; }
