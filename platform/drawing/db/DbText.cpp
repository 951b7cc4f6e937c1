#include "DbText.h"
#include "DbDatabase.h"
#include "DbOcs.h"
#include <cmath>

ODRX_CONS_DEFINE_MEMBERS(OdDbText, OdDbEntity, "TEXT")

namespace {

enum Code {
  kThickness = 39,
  kPosition = 10,
  kHeight = 40,
  kText = 1,
  kRotation = 50,
  kWidthFactor = 41,
  kOblique = 51,
  kStyle = 7,
  kGeneration = 71,
  kHorizontal = 72,
  kAlignment = 11,
  kNormal = 210,
  kVertical = 73,
};
enum GenerationBit { kBackwards = 2, kUpsideDown = 4 };

constexpr OdDbField kFields[] = {
    {kThickness, OdDbFieldKind::kReal},       {kPosition, OdDbFieldKind::kPoint3d, true},
    {kHeight, OdDbFieldKind::kReal, true, 1}, {kText, OdDbFieldKind::kString, true},
    {kRotation, OdDbFieldKind::kAngle},       {kWidthFactor, OdDbFieldKind::kReal, false, 1},
    {kOblique, OdDbFieldKind::kAngle},        {kStyle, OdDbFieldKind::kName, false, 0, "Standard"},
    {kGeneration, OdDbFieldKind::kInt16},     {kHorizontal, OdDbFieldKind::kInt16},
    {kAlignment, OdDbFieldKind::kPoint3d},    {kNormal, OdDbFieldKind::kVector3d, false, 1},
};
// Files repeat the marker; the vertical alignment stands behind the second.
constexpr OdDbField kTailFields[] = {{kVertical, OdDbFieldKind::kInt16}};
const OdDbSubclass kTail{"AcDbText", kTailFields, nullptr, 1};

constexpr char kStyleTable[] = "STYLE";
constexpr double kSmallest = 1e-9;

} // namespace

const OdDbSubclass kOdDbTextSection{"AcDbText", kFields};

OdDbSchema OdDbText::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kOdDbTextSection, &kTail};
  return sections;
}

const OdDbSubclass& OdDbText::verticalModeSection() const { return kTail; }
int OdDbText::verticalModeCode() const { return kVertical; }

// --- place ---

OdGePoint3d OdDbText::position() const {
  return odDbOcs::toWorld(point(kOdDbTextSection, kPosition), normal());
}
void OdDbText::setPosition(const OdGePoint3d& position) {
  setPoint(kOdDbTextSection, kPosition, odDbOcs::fromWorld(position, normal()));
}

OdGePoint3d OdDbText::alignmentPoint() const {
  return odDbOcs::toWorld(point(kOdDbTextSection, kAlignment), normal());
}
void OdDbText::setAlignmentPoint(const OdGePoint3d& point) {
  setPoint(kOdDbTextSection, kAlignment, odDbOcs::fromWorld(point, normal()));
}

OdGeVector3d OdDbText::normal() const { return vector(kOdDbTextSection, kNormal); }
void OdDbText::setNormal(const OdGeVector3d& normal) {
  const OdGePoint3d start = OdDbText::position();
  const OdGePoint3d alignment = OdDbText::alignmentPoint();
  setVector(kOdDbTextSection, kNormal, OdGeVector3d(normal).normalize());
  OdDbText::setPosition(start);
  if (has(kOdDbTextSection, kAlignment)) OdDbText::setAlignmentPoint(alignment);
}

OdGePoint3d OdDbText::at(double along, double up) const {
  const OdGeVector3d x(std::cos(rotation()), std::sin(rotation()), 0);
  const OdGeVector3d y(-x.y, x.x, 0);
  return odDbOcs::toWorld(point(kOdDbTextSection, kPosition) + x * along + y * up, normal());
}

double OdDbText::estimatedWidth() const {
  constexpr double kAverageAdvance = 0.8; // of the height, over common drafting fonts
  return textString().getLength() * height() * widthFactor() * kAverageAdvance;
}

OdGeVector2d OdDbText::anchorOffset() const {
  constexpr double kDescent = 1.0 / 3;
  OdGeVector2d offset;
  switch (horizontalMode()) {
  case OdDb::kTextCenter:
  case OdDb::kTextMid: offset.x = estimatedWidth() / 2; break;
  case OdDb::kTextRight: offset.x = estimatedWidth(); break;
  default: break;
  }
  switch (verticalMode()) {
  case OdDb::kTextBottom: offset.y = -height() * kDescent; break;
  case OdDb::kTextVCenter: offset.y = height() / 2; break;
  case OdDb::kTextTop: offset.y = height(); break;
  default: offset.y = horizontalMode() == OdDb::kTextMid ? height() / 2 : 0;
  }
  if (isMirroredInX()) offset.x = -offset.x;
  if (isMirroredInY()) offset.y = -offset.y;
  return offset;
}

void OdDbText::adjustAlignment(OdDbDatabase* database) {
  assertWriteEnabled();
  if (database && !isDBRO()) setNamesDatabase(database);
  const OdDb::TextHorzMode mode = horizontalMode();
  if (isDefaultAlignment() || mode == OdDb::kTextAlign || mode == OdDb::kTextFit) return;
  const OdGeVector2d offset = anchorOffset();
  const OdGeVector3d way = at(offset.x, offset.y) - at(0, 0);
  OdDbText::setPosition(alignmentPoint() - way);
}

// --- letters ---

double OdDbText::thickness() const { return real(kOdDbTextSection, kThickness); }
void OdDbText::setThickness(double thickness) { setReal(kOdDbTextSection, kThickness, thickness); }
double OdDbText::rotation() const { return angle(kOdDbTextSection, kRotation); }
void OdDbText::setRotation(double radians) { setAngle(kOdDbTextSection, kRotation, radians); }
double OdDbText::oblique() const { return angle(kOdDbTextSection, kOblique); }
void OdDbText::setOblique(double radians) { setAngle(kOdDbTextSection, kOblique, radians); }
double OdDbText::height() const { return real(kOdDbTextSection, kHeight); }
void OdDbText::setHeight(double height) { setReal(kOdDbTextSection, kHeight, height); }
double OdDbText::widthFactor() const { return real(kOdDbTextSection, kWidthFactor); }
void OdDbText::setWidthFactor(double factor) { setReal(kOdDbTextSection, kWidthFactor, factor); }

OdString OdDbText::textString() const { return text(kOdDbTextSection, kText); }
void OdDbText::setTextString(const OdString& text) { setText(kOdDbTextSection, kText, text); }

OdDbObjectId OdDbText::textStyle() const { return namedRecord(kOdDbTextSection, kStyle, kStyleTable); }
OdString OdDbText::textStyleName() const { return text(kOdDbTextSection, kStyle); }
void OdDbText::setTextStyle(OdDbObjectId style) { setNamedRecord(kOdDbTextSection, kStyle, style); }
void OdDbText::setTextStyleName(const OdString& name) { setText(kOdDbTextSection, kStyle, name); }

OdDb::TextHorzMode OdDbText::horizontalMode() const {
  return static_cast<OdDb::TextHorzMode>(integer(kOdDbTextSection, kHorizontal));
}
void OdDbText::setHorizontalMode(OdDb::TextHorzMode mode) {
  if (mode == OdDbText::horizontalMode()) return assertWriteEnabled();
  setInteger(kOdDbTextSection, kHorizontal, mode);
  needAlignmentPoint();
}

OdDb::TextVertMode OdDbText::verticalMode() const {
  return static_cast<OdDb::TextVertMode>(integer(verticalModeSection(), verticalModeCode()));
}
void OdDbText::setVerticalMode(OdDb::TextVertMode mode) {
  if (mode == OdDbText::verticalMode()) return assertWriteEnabled();
  setInteger(verticalModeSection(), verticalModeCode(), mode);
  needAlignmentPoint();
}

void OdDbText::needAlignmentPoint() {
  // Files must hold both points as soon as the text is not left aligned on its base line.
  if (!has(kOdDbTextSection, kAlignment)) OdDbText::setAlignmentPoint(position());
}

bool OdDbText::isMirroredInX() const { return flag(kOdDbTextSection, kGeneration, kBackwards); }
void OdDbText::mirrorInX(bool mirror) {
  if (mirror != isMirroredInX()) setFlag(kOdDbTextSection, kGeneration, kBackwards, mirror);
}
bool OdDbText::isMirroredInY() const { return flag(kOdDbTextSection, kGeneration, kUpsideDown); }
void OdDbText::mirrorInY(bool mirror) {
  if (mirror != isMirroredInY()) setFlag(kOdDbTextSection, kGeneration, kUpsideDown, mirror);
}

// --- the whole ---

void OdDbText::setDatabaseDefaults(OdDbDatabase* database) {
  OdDbEntity::setDatabaseDefaults(database);
  const OdDbDatabase* from = namesDatabase();
  if (const OdDbObjectId style = from->getTEXTSTYLE(); !style.isNull()) OdDbText::setTextStyle(style);
  if (from->getTEXTSIZE() > 0) OdDbText::setHeight(from->getTEXTSIZE());
}

OdResult OdDbText::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eNonInvertibleMatrix;
  const odDbOcs::Image image = odDbOcs::image(matrix, normal());
  const OdGeVector3d along = image.axis(rotation());
  const OdGeVector3d upright = image.axis(rotation() + OdaPI2);
  const bool backwards = isMirroredInX() != image.mirrored;
  const OdGeVector3d direction = along * ((image.mirrored ? -1 : 1) / along.length());
  // Height is what rises from the base line. Files slant the letters before the mirror flags apply.
  const double rise = upright.dotProduct(OdGeVector3d(-direction.y, direction.x, 0));
  if (!(rise > kSmallest * upright.length())) return eCannotScaleNonUniformly;
  const double slide = upright.dotProduct(direction) * (backwards == isMirroredInY() ? 1 : -1);

  moveBy(matrix, image);
  const double slant = std::atan((std::tan(oblique()) * along.length() + slide) / rise);
  const double factor = widthFactor() * along.length() / rise;
  if (const double turned = odDbOcs::angleOf(direction); std::fabs(turned - rotation()) > kSmallest)
    OdDbText::setRotation(turned);
  OdDbText::setHeight(OdDbText::height() * rise);
  if (std::fabs(factor - widthFactor()) > kSmallest) setWidthFactor(factor);
  if (std::fabs(slant - oblique()) > kSmallest) setOblique(slant);
  mirrorInX(backwards);
  return eOk;
}

void OdDbText::moveBy(const OdGeMatrix3d& matrix, const odDbOcs::Image& image) {
  const OdGePoint3d start = matrix * OdDbText::position();
  const OdGePoint3d alignment = matrix * OdDbText::alignmentPoint();
  if (!(image.normal == normal())) setVector(kOdDbTextSection, kNormal, image.normal);
  OdDbText::setPosition(start);
  if (has(kOdDbTextSection, kAlignment)) OdDbText::setAlignmentPoint(alignment);
  if (thickness() != 0) setThickness(thickness() * image.thickness);
}

OdResult OdDbText::getGeomExtents(OdGeExtents3d& extents) const {
  const double width = isMirroredInX() ? -estimatedWidth() : estimatedWidth();
  const double top = isMirroredInY() ? -height() : height();
  OdGeVector3d shift;
  if (!isDefaultAlignment() && horizontalMode() != OdDb::kTextAlign && horizontalMode() != OdDb::kTextFit) {
    const OdGeVector2d offset = anchorOffset();
    shift = alignmentPoint() - at(offset.x, offset.y);
  }
  extents = OdGeExtents3d();
  for (const double x : {0.0, width})
    for (const double y : {0.0, top}) extents.addPoint(at(x, y) + shift);
  return eOk;
}
