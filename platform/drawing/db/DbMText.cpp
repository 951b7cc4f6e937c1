#include "DbMText.h"
#include "DbDatabase.h"
#include "DbOcs.h"
#include <algorithm>
#include <cmath>

ODRX_CONS_DEFINE_MEMBERS(OdDbMText, OdDbEntity, "MTEXT")

namespace {

enum Code {
  kLocation = 10,
  kHeight = 40,
  kWidth = 41,
  kDefinedHeight = 46,
  kAttachment = 71,
  kFlow = 72,
  kContents = 1,
  kMoreContents = 3,
  kStyle = 7,
  kNormal = 210,
  kDirection = 11,
  kRotation = 50,
  kSpacingStyle = 73,
  kSpacingFactor = 44,
  kFill = 90,
  kFillColor = 63,
  kFillRgb = 421,
  kFillScale = 45,
  kFillTransparency = 441,
};
enum FillBit { kFillOn = 1, kFillWindow = 2 };

// The direction has no field: its default is the X axis of the text's plane.
constexpr OdDbField kFields[] = {
    {kLocation, OdDbFieldKind::kPoint3d, true},
    {kHeight, OdDbFieldKind::kReal, true, 1},
    {kWidth, OdDbFieldKind::kReal, true},
    {kDefinedHeight, OdDbFieldKind::kReal},
    {kAttachment, OdDbFieldKind::kInt16, true, OdDbMText::kTopLeft},
    {kFlow, OdDbFieldKind::kInt16, true, OdDbMText::kByStyle},
    {kContents, OdDbFieldKind::kString, true},
    {kStyle, OdDbFieldKind::kName, false, 0, "Standard"},
    {kNormal, OdDbFieldKind::kVector3d, false, 1},
    {kSpacingStyle, OdDbFieldKind::kInt16, true, OdDb::kAtLeast},
    {kSpacingFactor, OdDbFieldKind::kReal, true, 1},
    {kFill, OdDbFieldKind::kInt32},
    {kFillColor, OdDbFieldKind::kInt16, false, 256},
    {kFillScale, OdDbFieldKind::kReal, false, 1.5},
};
const OdDbSubclass kSection{"AcDbMText", kFields};
constexpr char kStyleTable[] = "STYLE";

} // namespace

OdDbSchema OdDbMText::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kSection};
  return sections;
}

// --- place ---

OdGePoint3d OdDbMText::location() const { return point(kSection, kLocation); }
void OdDbMText::setLocation(const OdGePoint3d& location) {
  setPoint(kSection, kLocation, location);
  updateColumns();
}

OdGeVector3d OdDbMText::normal() const { return vector(kSection, kNormal); }
void OdDbMText::setNormal(const OdGeVector3d& normal) {
  setVector(kSection, kNormal, OdGeVector3d(normal).normalize());
}

OdGeVector3d OdDbMText::direction() const {
  // Files may hold the direction, or the angle, or both: then the later counts.
  const int vectorAt = odDbGroups::find(groups(), kSection, kDirection);
  const int angleAt = odDbGroups::find(groups(), kSection, kRotation);
  if (vectorAt > angleAt) {
    const OdGeVector3d stored = vector(kSection, kDirection);
    if (!stored.isZeroLength()) return stored.normal();
  }
  const double turned = angleAt >= 0 ? angle(kSection, kRotation) : 0;
  return odDbOcs::toWorld(normal()) * OdGeVector3d(std::cos(turned), std::sin(turned), 0);
}

void OdDbMText::setDirection(const OdGeVector3d& direction) {
  const OdGeVector3d unit = OdGeVector3d(direction).normalize();
  removeField(kSection, kRotation);
  setVector(kSection, kDirection, unit);
  updateColumns();
}

double OdDbMText::rotation() const {
  return odDbOcs::angleOf(odDbOcs::toWorld(normal()).transpose() * direction());
}
void OdDbMText::setRotation(double radians) {
  setDirection(odDbOcs::toWorld(normal()) * OdGeVector3d(std::cos(radians), std::sin(radians), 0));
}

double OdDbMText::width() const { return real(kSection, kWidth); }
void OdDbMText::setWidth(double width) {
  setReal(kSection, kWidth, width);
  updateColumns();
}
double OdDbMText::textHeight() const { return real(kSection, kHeight); }
void OdDbMText::setTextHeight(double height) { setReal(kSection, kHeight, height); }

void OdDbMText::updateColumns() {
  // The embedded record of the columns repeats direction, location and width; readers may take them from
  // there.
  const OdGePoint3d place = location();
  const OdGeVector3d along = direction();
  const double wide = width();
  OdDbGroupList& list = mutableGroups();
  const auto [first, last] = odDbGroups::embedded(list);
  for (int i = first; first >= 0 && i < last; ++i) {
    OdDbGroup& group = list[i];
    switch (group.code) {
    case 10: group.real = along.x; break;
    case 20: group.real = along.y; break;
    case 30: group.real = along.z; break;
    case 11: group.real = place.x; break;
    case 21: group.real = place.y; break;
    case 31: group.real = place.z; break;
    case 40: group.real = wide; break;
    default: break;
    }
  }
}

// --- form ---

OdDbObjectId OdDbMText::textStyle() const { return namedRecord(kSection, kStyle, kStyleTable); }
OdString OdDbMText::textStyleName() const { return text(kSection, kStyle); }
void OdDbMText::setTextStyle(OdDbObjectId style) { setNamedRecord(kSection, kStyle, style); }
void OdDbMText::setTextStyleName(const OdString& name) { setText(kSection, kStyle, name); }

OdDbMText::AttachmentPoint OdDbMText::attachment() const {
  return static_cast<AttachmentPoint>(std::clamp(integer(kSection, kAttachment), 1, 9));
}
void OdDbMText::setAttachment(AttachmentPoint attachment) { setInteger(kSection, kAttachment, attachment); }
OdDbMText::FlowDirection OdDbMText::flowDirection() const {
  return static_cast<FlowDirection>(integer(kSection, kFlow));
}
void OdDbMText::setFlowDirection(FlowDirection flow) { setInteger(kSection, kFlow, flow); }

OdDb::TextHorzMode OdDbMText::horizontalModeOf(int attachment) {
  return static_cast<OdDb::TextHorzMode>((attachment - 1) % 3);
}
void OdDbMText::setHorizontalMode(OdDb::TextHorzMode mode) {
  const int row = (attachment() - 1) / 3;
  int column = 0;
  if (mode == OdDb::kTextCenter || mode == OdDb::kTextMid) column = 1;
  if (mode == OdDb::kTextRight) column = 2;
  setAttachment(static_cast<AttachmentPoint>(row * 3 + column + 1));
}

OdDb::TextVertMode OdDbMText::verticalModeOf(int attachment) {
  return static_cast<OdDb::TextVertMode>(OdDb::kTextTop - (attachment - 1) / 3);
}
void OdDbMText::setVerticalMode(OdDb::TextVertMode mode) {
  const int column = (attachment() - 1) % 3;
  const int row = OdDb::kTextTop - std::max<int>(mode, OdDb::kTextBottom);
  setAttachment(static_cast<AttachmentPoint>(row * 3 + column + 1));
}

OdDb::LineSpacingStyle OdDbMText::lineSpacingStyle() const {
  return static_cast<OdDb::LineSpacingStyle>(integer(kSection, kSpacingStyle));
}
void OdDbMText::setLineSpacingStyle(OdDb::LineSpacingStyle style) {
  setInteger(kSection, kSpacingStyle, style);
}
double OdDbMText::lineSpacingFactor() const { return real(kSection, kSpacingFactor); }
void OdDbMText::setLineSpacingFactor(double factor) { setReal(kSection, kSpacingFactor, factor); }

// --- background ---

bool OdDbMText::backgroundFillOn() const { return flag(kSection, kFill, kFillOn | kFillWindow); }
void OdDbMText::setBackgroundFill(bool on) {
  if (on == backgroundFillOn()) return;
  if (on && !has(kSection, kFillScale)) setBackgroundScaleFactor(getBackgroundScaleFactor());
  setFlag(kSection, kFill, on ? kFillOn : kFillOn | kFillWindow, on);
}
bool OdDbMText::useBackgroundColorOn() const { return flag(kSection, kFill, kFillWindow); }
void OdDbMText::setUseBackgroundColor(bool on) {
  if (on == useBackgroundColorOn()) return;
  setFlag(kSection, kFill, kFillWindow, on);
  setFlag(kSection, kFill, kFillOn, true);
}

OdCmColor OdDbMText::getBackgroundFillColor() const {
  if (!has(kSection, kFillRgb)) return OdCmColor::fromIndex(integer(kSection, kFillColor));
  const auto rgb = static_cast<OdUInt32>(integer(kSection, kFillRgb));
  return OdCmColor::fromRgb(static_cast<OdUInt8>(rgb >> 16), static_cast<OdUInt8>(rgb >> 8),
                            static_cast<OdUInt8>(rgb));
}
void OdDbMText::setBackgroundFillColor(const OdCmColor& color) {
  setInteger(kSection, kFillColor, color.colorIndex());
  if (color.colorMethod() == OdCmColor::kByColor)
    setInteger(kSection, kFillRgb, color.rgb());
  else
    removeField(kSection, kFillRgb);
}
double OdDbMText::getBackgroundScaleFactor() const { return real(kSection, kFillScale); }
void OdDbMText::setBackgroundScaleFactor(double factor) { setReal(kSection, kFillScale, factor); }
OdCmTransparency OdDbMText::getBackgroundTransparency() const {
  return OdCmTransparency::fromStored(static_cast<OdUInt32>(integer(kSection, kFillTransparency)));
}
void OdDbMText::setBackgroundTransparency(const OdCmTransparency& transparency) {
  setInteger(kSection, kFillTransparency, transparency.stored());
}

// --- the whole ---

void OdDbMText::setDatabaseDefaults(OdDbDatabase* database) {
  OdDbEntity::setDatabaseDefaults(database);
  const OdDbDatabase* from = namesDatabase();
  if (const OdDbObjectId style = from->getTEXTSTYLE(); !style.isNull()) setTextStyle(style);
  if (from->getTEXTSIZE() > 0) setTextHeight(from->getTEXTSIZE());
}

/// The attachment with left and right exchanged, or top and bottom.
static OdDbMText::AttachmentPoint mirrored(OdDbMText::AttachmentPoint attachment, bool leftRight) {
  const int row = (attachment - 1) / 3;
  const int column = (attachment - 1) % 3;
  return static_cast<OdDbMText::AttachmentPoint>(leftRight ? row * 3 + 3 - column
                                                           : (2 - row) * 3 + column + 1);
}

OdResult OdDbMText::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eNonInvertibleMatrix;
  const odDbOcs::Image image = odDbOcs::image(matrix, normal());
  const OdGeVector3d along = image.axis(rotation());
  const OdGeVector3d upright = image.axis(rotation() + OdaPI2);
  OdGeVector3d line = along * (1 / along.length());
  const double rise = std::fabs(upright.dotProduct(OdGeVector3d(-line.y, line.x, 0)));
  const OdGePoint3d place = matrix * location();
  if (image.mirrored) {
    // Lines cannot run backwards. They go on as they ran, on the other side of the attachment point.
    const bool backwards = line.dotProduct(OdGeVector3d(std::cos(rotation()), std::sin(rotation()), 0)) < 0;
    if (backwards) line.negate();
    setAttachment(mirrored(attachment(), backwards));
  }
  if (!(image.normal == normal())) setNormal(image.normal);
  setPoint(kSection, kLocation, place);
  setReal(kSection, kWidth, width() * along.length());
  setTextHeight(textHeight() * rise);
  setDirection(odDbOcs::toWorld(image.normal) * line);
  return eOk;
}

OdResult OdDbMText::getGeomExtents(OdGeExtents3d& extents) const {
  constexpr double kAverageAdvance = 0.8; // of the height, over common drafting fonts
  constexpr double kLineDistance = 5.0 / 3;
  const double single = plainLine().getLength() * textHeight() * kAverageAdvance;
  const double wide = width() > 0 ? std::min(width(), single) : single;
  const double lines = wide > 0 ? std::ceil(single / wide) : 1;
  const double high = textHeight() * (1 + (lines - 1) * kLineDistance * lineSpacingFactor());
  const OdGeVector3d x = direction();
  const OdGeVector3d y = OdGeVector3d(normal().crossProduct(x)).normalize();
  const int columns = horizontalMode();
  const int rows = verticalMode() - OdDb::kTextBottom;
  const OdGePoint3d corner = location() - x * (wide * columns / 2) - y * (high * rows / 2);
  extents = OdGeExtents3d();
  for (const double along : {0.0, wide})
    for (const double up : {0.0, high}) extents.addPoint(corner + x * along + y * up);
  return eOk;
}

odDbGroups::Range OdDbMText::body() const {
  const OdDbGroupList& list = groups();
  int last = 0;
  int first = -1;
  for (; last < list.size() && list[last].code != 101 && list[last].code < 1001; ++last)
    if (list[last].code == 100 && kSection.isMarker(list[last].bytes())) first = last + 1;
  return {first < 0 ? last : first, last};
}

void OdDbMText::setBody(const OdDbGroupList& from, odDbGroups::Range range) {
  const auto [first, last] = body();
  OdDbGroupList& list = mutableGroups();
  list.erase(first, last);
  for (int i = range.first, at = first; i < range.last; ++i) {
    if (from[i].code == kContents || from[i].code == kMoreContents) continue;
    list.insert(at++, from[i].isText() ? list.makeText(from[i].code, from.text(i)) : from[i]);
  }
  setContents(odDbMTextContents(from, range));
}
