#include "DbBlockReference.h"
#include "DbAttribute.h"
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbMultilinePart.h"
#include "DbOcs.h"
#include "DbSequenceEnd.h"
#include "DbStore.h"
#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <unordered_set>

ODRX_CONS_DEFINE_MEMBERS(OdDbBlockReference, OdDbEntity, "INSERT")

namespace {

enum Code {
  kHasAttributes = 66,
  kBlock = 2,
  kPosition = 10,
  kScale = 41,
  kRotation = 50,
  kColumns = 70,
  kRows = 71,
  kColumnSpacing = 44,
  kRowSpacing = 45,
  kNormal = 210,
};
constexpr OdDbField kFields[] = {
    {kHasAttributes, OdDbFieldKind::kBool},     {kBlock, OdDbFieldKind::kName, true},
    {kPosition, OdDbFieldKind::kPoint3d, true}, {kScale, OdDbFieldKind::kScale3d, false, 1},
    {kRotation, OdDbFieldKind::kAngle},         {kColumns, OdDbFieldKind::kInt16, false, 1},
    {kRows, OdDbFieldKind::kInt16, false, 1},   {kColumnSpacing, OdDbFieldKind::kReal},
    {kRowSpacing, OdDbFieldKind::kReal},        {kNormal, OdDbFieldKind::kVector3d, false, 1},
};
constexpr char kSingleMarker[] = "AcDbBlockReference";
constexpr char kArrayMarker[] = "AcDbMInsertBlock";
const OdDbSubclass kSection{kSingleMarker, kFields, kArrayMarker};
constexpr char kBlockTable[] = "BLOCK_RECORD";
constexpr char kEndMark[] = "SEQEND";
constexpr double kTolerance = 1e-9; // relative

bool arePerpendicular(const OdGeVector3d& a, const OdGeVector3d& b) {
  return std::fabs(a.dotProduct(b)) <= kTolerance * a.length() * b.length();
}

} // namespace

OdDbSchema OdDbBlockReference::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kSection};
  return sections;
}

// --- properties ---

OdDbObjectId OdDbBlockReference::blockTableRecord() const {
  return namedRecord(kSection, kBlock, kBlockTable);
}
void OdDbBlockReference::setBlockTableRecord(OdDbObjectId block) { setNamedRecord(kSection, kBlock, block); }
OdString OdDbBlockReference::blockName() const { return text(kSection, kBlock); }

OdGePoint3d OdDbBlockReference::position() const {
  return odDbOcs::toWorld(point(kSection, kPosition), normal());
}
void OdDbBlockReference::setPosition(const OdGePoint3d& position) {
  setPoint(kSection, kPosition, odDbOcs::fromWorld(position, normal()));
}

OdGeScale3d OdDbBlockReference::scaleFactors() const { return scale(kSection, kScale); }
void OdDbBlockReference::setScaleFactors(const OdGeScale3d& factors) {
  if (factors.sx == 0 || factors.sy == 0 || factors.sz == 0)
    throw OdError(eInvalidInput, L"A scale factor of 0 would flatten the block.");
  setScale(kSection, kScale, factors);
}

double OdDbBlockReference::rotation() const { return angle(kSection, kRotation); }
void OdDbBlockReference::setRotation(double radians) { setAngle(kSection, kRotation, radians); }

OdGeVector3d OdDbBlockReference::normal() const { return vector(kSection, kNormal); }
void OdDbBlockReference::setNormal(const OdGeVector3d& normal) {
  const OdGePoint3d place = position();
  setVector(kSection, kNormal, OdGeVector3d(normal).normalize());
  setPosition(place);
}

int OdDbBlockReference::numColumns() const { return std::max(1, integer(kSection, kColumns)); }
void OdDbBlockReference::setNumColumns(int count) { setCount(kColumns, count); }
int OdDbBlockReference::numRows() const { return std::max(1, integer(kSection, kRows)); }
void OdDbBlockReference::setNumRows(int count) { setCount(kRows, count); }
double OdDbBlockReference::columnSpacing() const { return real(kSection, kColumnSpacing); }
void OdDbBlockReference::setColumnSpacing(double spacing) { setReal(kSection, kColumnSpacing, spacing); }
double OdDbBlockReference::rowSpacing() const { return real(kSection, kRowSpacing); }
void OdDbBlockReference::setRowSpacing(double spacing) { setReal(kSection, kRowSpacing, spacing); }

void OdDbBlockReference::setCount(int code, int count) {
  constexpr int kMaxCount = 32767; // a 16-bit group
  if (count < 1 || count > kMaxCount)
    throw OdError(eInvalidInput, L"The number of columns or rows must be between 1 and 32767.");
  setInteger(kSection, code, count);
  // Arrays go under another marker in drawing files.
  OdDbGroupList& list = mutableGroups();
  for (OdDbGroup& group : list.items)
    if (group.code == 100 && kSection.isMarker(group.bytes()))
      group = list.makeBytes(100, isArrayed() ? kArrayMarker : kSingleMarker);
}

// --- transforms ---

OdGePoint3d OdDbBlockReference::basePoint() const {
  const auto block = OdDbBlockTableRecord::cast(blockTableRecord().openObject());
  return block.isNull() ? OdGePoint3d::kOrigin : block->origin();
}

OdGeMatrix3d OdDbBlockReference::blockTransform() const {
  return OdGeMatrix3d::translation(position().asVector()) * odDbOcs::toWorld(normal()) *
         OdGeMatrix3d::rotation(rotation(), OdGeVector3d::kZAxis) * OdGeMatrix3d::scaling(scaleFactors()) *
         OdGeMatrix3d::translation(-basePoint().asVector());
}

OdResult OdDbBlockReference::setBlockTransform(const OdGeMatrix3d& transform) {
  assertWriteEnabled();
  if (transform.isSingular()) return eNonInvertibleMatrix;
  const OdGeVector3d x = transform.getCsXAxis();
  const OdGeVector3d y = transform.getCsYAxis();
  const OdGeVector3d z = transform.getCsZAxis();
  if (!arePerpendicular(x, y) || !arePerpendicular(y, z) || !arePerpendicular(z, x))
    return eCannotScaleNonUniformly;
  const double side = transform.det() < 0 ? -1 : 1;
  const OdGeVector3d up = z * (1 / z.length());
  setVector(kSection, kNormal, up == OdGeVector3d::kZAxis ? OdGeVector3d::kZAxis : up);
  setPosition(transform * basePoint());
  setScaleFactors(OdGeScale3d(side * x.length(), y.length(), z.length()));
  setRotation(odDbOcs::angleOf(odDbOcs::toWorld(normal()).transpose() * (x * side)));
  return eOk;
}

OdResult OdDbBlockReference::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eNonInvertibleMatrix;
  const odDbOcs::Image image = odDbOcs::image(matrix, normal());
  const OdGeVector3d x = image.axis(rotation());
  const OdGeVector3d y = image.axis(rotation() + OdaPI2);
  const OdGeVector3d z = image.matrix * OdGeVector3d::kZAxis;
  if (!arePerpendicular(x, y) || !arePerpendicular(y, z) || !arePerpendicular(z, x))
    return eCannotScaleNonUniformly;

  const double side = image.mirrored ? -1 : 1;
  const OdGePoint3d place = matrix * position();
  const double acrossColumns = side * x.length();
  if (!(image.normal == normal())) setVector(kSection, kNormal, image.normal);
  setPosition(place);
  setRotation(odDbOcs::angleOf(x * side));
  setScaleFactors(scaleFactors() * OdGeScale3d(acrossColumns, y.length(), image.thickness));
  if (columnSpacing() != 0) setColumnSpacing(columnSpacing() * acrossColumns);
  if (rowSpacing() != 0) setRowSpacing(rowSpacing() * y.length());
  for (const OdDbObjectIteratorPtr each = attributeIterator(); !each->done(); each->step())
    each->entity(OdDb::kForWrite)->transformBy(matrix);
  return eOk;
}

// --- attributes ---

namespace {

bool knowsMultilineRecords(OdDb::DwgVersion version) {
  return version >= OdDb::vAC12 && version < OdDb::vAC32;
}

/// Attributes that show the further lines of others.
std::unordered_set<OdDbObjectId> furtherLines(const OdDbStubList& attributes) {
  std::unordered_set<OdDbObjectId> ids;
  for (OdDbStub* stub = attributes.first; stub; stub = stub->next) {
    if (stub->isErased() || !odDbMultiline::mayHaveRecord(stub)) continue;
    const OdDbObjectIdArray further = odDbMultiline::find(*OdDbObjectId(stub).openObject()).secondaries();
    ids.insert(further.begin(), further.end());
  }
  return ids;
}

} // namespace

OdDbObjectIteratorPtr OdDbBlockReference::attributeIterator() const {
  const OdDbStubList* list = isDBRO() ? objectId().stub()->children : nullptr;
  if (list && knowsMultilineRecords(database()->originalFileVersion())) {
    if (const auto further = furtherLines(*list); !further.empty()) {
      OdDbObjectIdArray shown;
      for (OdDbStub* stub = list->first; stub; stub = stub->next)
        if (const OdDbObjectId id(stub); stub->dxfName() != kEndMark && !further.contains(id))
          shown.append(id);
      return OdDbObjectIterator::overIds(std::move(shown));
    }
  }
  return OdDbObjectIterator::overList(list, kEndMark);
}

OdDbObjectId OdDbBlockReference::appendAttribute(OdDbAttribute* attribute) {
  if (!isDBRO()) throw OdError(eNotInDatabase);
  assertWriteEnabled();
  const OdDbObjectId id = database()->addOdDbObject(attribute, objectId());
  const OdDbStub* last = objectId().stub()->children->last;
  if (last->dxfName() != kEndMark || last->isErased()) {
    const OdDbSequenceEndPtr end = OdDbSequenceEnd::createObject();
    end->setLayer(layer());
    database()->addOdDbObject(end, objectId());
  }
  if (!integer(kSection, kHasAttributes)) setInteger(kSection, kHasAttributes, 1);
  return id;
}

void OdDbBlockReference::copyFrom(const OdDbObject* source) {
  OdDbEntity::copyFrom(source);
  if (const bool own = !attributeIterator()->done(); own != (integer(kSection, kHasAttributes) != 0)) {
    if (own)
      setInteger(kSection, kHasAttributes, 1);
    else
      removeField(kSection, kHasAttributes);
  }
}

// --- extents ---

namespace {

/// Extents of blocks in their own coordinates, each worked out once; a block that contains itself adds
/// nothing.
class BlockExtents {
public:
  OdGeExtents3d of(const OdDbBlockReference& reference) {
    OdGeExtents3d box = ofBlock(reference.blockTableRecord());
    box.transformBy(reference.blockTransform());
    const OdGeMatrix3d turn = odDbOcs::toWorld(reference.normal()) *
                              OdGeMatrix3d::rotation(reference.rotation(), OdGeVector3d::kZAxis);
    const OdGeVector3d columns(reference.columnSpacing() * (reference.numColumns() - 1), 0, 0);
    const OdGeVector3d rows(0, reference.rowSpacing() * (reference.numRows() - 1), 0);
    box.expandBy(turn * columns).expandBy(turn * rows);
    return box;
  }

private:
  OdGeExtents3d ofBlock(OdDbObjectId id) {
    const auto [at, isNew] = m_known.try_emplace(id);
    const auto block = OdDbBlockTableRecord::cast(id.openObject());
    constexpr int kMaxDepth = 200; // of blocks within blocks; no drawing that is meant comes near
    if (!isNew || block.isNull() || m_depth == kMaxDepth) return at->second;
    OdGeExtents3d box;
    ++m_depth;
    for (const OdDbObjectIteratorPtr each = block->newIterator(); !each->done(); each->step()) {
      const OdDbEntityPtr entity = each->entity();
      const auto nested = OdDbBlockReference::cast(entity);
      OdGeExtents3d part;
      if (!nested.isNull())
        part = of(*nested);
      else if (entity->getGeomExtents(part) != eOk)
        continue;
      if (part.isValidExtents()) box.addExt(part);
    }
    --m_depth;
    m_known[id] = box;
    return box;
  }

  std::unordered_map<OdDbObjectId, OdGeExtents3d> m_known;
  int m_depth = 0;
};

} // namespace

OdResult OdDbBlockReference::getGeomExtents(OdGeExtents3d& extents) const {
  extents = BlockExtents().of(*this);
  for (const OdDbObjectIteratorPtr each = attributeIterator(); !each->done(); each->step()) {
    OdGeExtents3d part;
    if (each->entity()->getGeomExtents(part) == eOk && part.isValidExtents()) extents.addExt(part);
  }
  return extents.isValidExtents() ? eOk : eInvalidExtents;
}
