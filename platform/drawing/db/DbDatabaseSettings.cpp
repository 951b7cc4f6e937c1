// The header variables of a drawing: defaults of new entities, units, coordinate systems.
#include "DbDatabase.h"
#include "DbResBufGroups.h"
#include "DbStore.h"
#include "DbSymbolTableRecord.h"
#include <cmath>

namespace {

enum Code {
  kTextValue = 1,
  kNameValue = 2,
  kLinetypeValue = 6,
  kStyleValue = 7,
  kLayerValue = 8,
  kPointValue = 10,
  kRealValue = 40,
  kColorValue = 62,
  kIntegerValue = 70
};
constexpr int kCoordinateStep = 10;
constexpr int kByLayer = 256;
constexpr double kDefaultTextSize = 2.5;
constexpr int kDefaultLinearUnits = 2; // decimal
constexpr int kDefaultLinearPrecision = 4;

const OdDbGroupList* valueOf(const OdDbDatabase& database, const char* name) {
  const OdDbHeaderVariable* variable = database.store().headerVariable(name);
  return variable && variable->groups && !variable->groups->items.empty() ? variable->groups.get() : nullptr;
}

OdString textOf(const OdDbDatabase& database, const char* name, const OdChar* fallback) {
  const OdDbGroupList* value = valueOf(database, name);
  return value ? value->text(0) : OdString(fallback);
}

double realOf(const OdDbDatabase& database, const char* name, double fallback) {
  const OdDbGroupList* value = valueOf(database, name);
  return value && (*value)[0].kind == OdDbGroupKind::kReal ? (*value)[0].real : fallback;
}

int integerOf(const OdDbDatabase& database, const char* name, int fallback) {
  const OdDbGroupList* value = valueOf(database, name);
  return value && (*value)[0].kind == OdDbGroupKind::kInteger ? static_cast<int>((*value)[0].integer)
                                                              : fallback;
}

OdGePoint3d pointOf(const OdDbDatabase& database, const std::string& name, const OdGePoint3d& fallback) {
  const OdDbGroupList* value = valueOf(database, name.c_str());
  if (!value) return fallback;
  const OdResBufPtr item = odDbResBufs::read(*value, 0, value->size());
  const auto* point = std::get_if<OdGePoint3d>(&item->value());
  return point ? *point : fallback;
}

void setVariable(OdDbDatabase& database, const std::string& name, int code, OdResBuf::Value value) {
  OdDbGroupListPtr groups(new OdDbGroupList);
  odDbResBufs::insert(*groups, 0, OdResBuf::newRb(code, std::move(value)));
  database.store().setHeaderVariable(name, groups);
}

OdDbObjectId recordOf(const OdDbDatabase& database, OdDbObjectId table, const OdString& name) {
  return OdDbObjectId(database.store().findRecord(table.stub(), name.str()));
}

/// Makes a table record the value of a variable that holds its name.
void setRecord(OdDbDatabase& database, const char* variable, int code, OdDbObjectId table, OdDbObjectId id) {
  const OdDbSymbolTableRecordPtr record = id.safeOpenObject();
  if (record->ownerId() != table) throw OdError(eInvalidInput, L"The record belongs to another table.");
  setVariable(database, variable, code, record->getName());
}

} // namespace

// --- defaults of new entities ---

OdDbObjectId OdDbDatabase::getCLAYER() const {
  return recordOf(*this, getLayerTableId(), textOf(*this, "$CLAYER", L"0"));
}
void OdDbDatabase::setCLAYER(OdDbObjectId layer) {
  setRecord(*this, "$CLAYER", kLayerValue, getLayerTableId(), layer);
}

OdCmColor OdDbDatabase::getCECOLOR() const {
  return OdCmColor::fromIndex(integerOf(*this, "$CECOLOR", kByLayer));
}
void OdDbDatabase::setCECOLOR(const OdCmColor& color) {
  if (color.colorMethod() == OdCmColor::kByColor)
    throw OdError(eInvalidInput, L"The colour of new entities is by layer, by block or a palette index.");
  setVariable(*this, "$CECOLOR", kColorValue, OdInt64{color.colorIndex()});
}

OdDbObjectId OdDbDatabase::getCELTYPE() const {
  return recordOf(*this, getLinetypeTableId(), textOf(*this, "$CELTYPE", L"ByLayer"));
}
void OdDbDatabase::setCELTYPE(OdDbObjectId linetype) {
  setRecord(*this, "$CELTYPE", kLinetypeValue, getLinetypeTableId(), linetype);
}

double OdDbDatabase::getCELTSCALE() const { return realOf(*this, "$CELTSCALE", 1); }
OdDb::LineWeight OdDbDatabase::getCELWEIGHT() const {
  return static_cast<OdDb::LineWeight>(integerOf(*this, "$CELWEIGHT", OdDb::kLnWtByLayer));
}

OdDbObjectId OdDbDatabase::getTEXTSTYLE() const {
  return recordOf(*this, getTextStyleTableId(), textOf(*this, "$TEXTSTYLE", L"Standard"));
}
void OdDbDatabase::setTEXTSTYLE(OdDbObjectId style) {
  setRecord(*this, "$TEXTSTYLE", kStyleValue, getTextStyleTableId(), style);
}
double OdDbDatabase::getTEXTSIZE() const { return realOf(*this, "$TEXTSIZE", kDefaultTextSize); }

int OdDbDatabase::getPDMODE() const { return integerOf(*this, "$PDMODE", 0); }
void OdDbDatabase::setPDMODE(int mode) {
  constexpr int kSigns = 7;
  constexpr int kAround = 32 | 64;
  if (mode < 0 || (mode & ~(kSigns | kAround)) != 0 || (mode & kSigns) > 4)
    throw OdError(eInvalidInput, L"Points are shown in the modes 0 to 4, and with 32, 64 or 96 added.");
  setVariable(*this, "$PDMODE", kIntegerValue, OdInt64{mode});
}
double OdDbDatabase::getPDSIZE() const { return realOf(*this, "$PDSIZE", 0); }
void OdDbDatabase::setPDSIZE(double size) {
  if (!std::isfinite(size)) throw OdError(eInvalidInput);
  setVariable(*this, "$PDSIZE", kRealValue, size);
}

bool OdDbDatabase::getTILEMODE() const { return integerOf(*this, "$TILEMODE", 1) != 0; }
void OdDbDatabase::setTILEMODE(bool modelSpace) {
  if (modelSpace != getTILEMODE()) setVariable(*this, "$TILEMODE", kIntegerValue, OdInt64{modelSpace});
}

// --- units ---

int OdDbDatabase::getLUNITS() const { return integerOf(*this, "$LUNITS", kDefaultLinearUnits); }
int OdDbDatabase::getLUPREC() const { return integerOf(*this, "$LUPREC", kDefaultLinearPrecision); }
int OdDbDatabase::getAUNITS() const { return integerOf(*this, "$AUNITS", 0); }
int OdDbDatabase::getAUPREC() const { return integerOf(*this, "$AUPREC", 0); }
double OdDbDatabase::getANGBASE() const { return OdaToRadian(realOf(*this, "$ANGBASE", 0)); }
bool OdDbDatabase::getANGDIR() const { return integerOf(*this, "$ANGDIR", 0) != 0; }

// --- coordinate systems ---

/// The coordinate system of paper space has variables of its own.
static std::string ucsVariable(const OdDbDatabase& database, const char* name) {
  const bool onSheet = !database.getTILEMODE() && database.activeViewportId() == database.sheetViewportId();
  const std::string variable = std::string(onSheet ? "$PUCS" : "$UCS") + name;
  // R10 calls the axes XORI and YORI.
  std::string old = variable;
  if (const auto at = old.find("DIR"); at != std::string::npos) old.replace(at, 3, "ORI");
  return valueOf(database, old.c_str()) ? old : variable;
}

OdGePoint3d OdDbDatabase::getUCSORG() const {
  return pointOf(*this, ucsVariable(*this, "ORG"), OdGePoint3d());
}

OdGeVector3d OdDbDatabase::getUCSXDIR() const {
  return pointOf(*this, ucsVariable(*this, "XDIR"), OdGePoint3d(1, 0, 0)).asVector();
}

OdGeVector3d OdDbDatabase::getUCSYDIR() const {
  return pointOf(*this, ucsVariable(*this, "YDIR"), OdGePoint3d(0, 1, 0)).asVector();
}

void OdDbDatabase::setUCS(const OdGePoint3d& origin, const OdGeVector3d& xAxis, const OdGeVector3d& yAxis) {
  if (!xAxis.isPerpendicularTo(yAxis))
    throw OdError(eInvalidInput, L"The axes of a coordinate system are perpendicular to each other.");
  const auto asPoint = [](const OdGeVector3d& v) { return OdGePoint3d(v.x, v.y, v.z); };
  setVariable(*this, ucsVariable(*this, "ORG"), kPointValue, origin);
  setVariable(*this, ucsVariable(*this, "XDIR"), kPointValue, asPoint(xAxis.normal()));
  setVariable(*this, ucsVariable(*this, "YDIR"), kPointValue, asPoint(yAxis.normal()));
  // It is none of the named ones any more.
  const std::string name = ucsVariable(*this, "NAME");
  if (valueOf(*this, name.c_str())) setVariable(*this, name, kNameValue, OdString());
}

OdGeMatrix3d OdDbDatabase::ucsToWorld() const {
  const OdGeVector3d xAxis = getUCSXDIR();
  const OdGeVector3d yAxis = getUCSYDIR();
  OdGeMatrix3d matrix;
  matrix.setCoordSystem(getUCSORG(), xAxis, yAxis, xAxis.crossProduct(yAxis));
  return matrix;
}

// --- any variable ---

OdResBufPtr OdDbDatabase::getSysVar(const OdString& name) const {
  const OdDbGroupList* value = valueOf(*this, name.toUtf8().c_str());
  return value ? odDbResBufs::read(*value, 0, value->size()) : OdResBufPtr();
}

void OdDbDatabase::setSysVar(const OdString& name, const OdResBuf* value) {
  if (name.isEmpty() || name[0] != L'$')
    throw OdError(eInvalidInput, L"The name of a header variable begins with $.");
  const std::string key = name.toUtf8();
  if (!value) {
    store().setHeaderVariable(key, {});
    return;
  }
  odDbResBufs::check(value);
  const OdDbGroupList* old = valueOf(*this, key.c_str());
  if (old && (*old)[0].code != value->restype()) {
    OdString reason;
    reason.format(L"%s is stored under group code %d.", name.c_str(), int{(*old)[0].code});
    throw OdError(eInvalidInput, reason);
  }
  OdDbGroupListPtr groups(new OdDbGroupList);
  odDbResBufs::insert(*groups, 0, value);
  // Points of the plane, such as the drawing limits, are stored without the third coordinate.
  const bool isPlanar = old && old->size() == 2 && (*old)[1].code == (*old)[0].code + kCoordinateStep;
  if (isPlanar && groups->size() == 3) groups->erase(2, 3);
  store().setHeaderVariable(key, groups);
}
