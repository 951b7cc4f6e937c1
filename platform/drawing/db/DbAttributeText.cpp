#include "DbAttributeText.h"
#include "DbDatabase.h"
#include "DbMultilinePart.h"
#include <algorithm>

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbAttributeText, OdDbText)

namespace {

enum Code {
  kText = 1,
  kTag = 2,
  kModes = 70,
  kFieldLength = 73,
  kVertical = 74,
  kLock = 280, // also the code of the version, which stands before the tag
  kKind = 71,
  kReallyLocked = 72,
  kAlignment = 11,
  kPartLocation = 10,
  kPartAttachment = 71,
  kEmbedded = 101,
};
constexpr wchar_t kLineSuffix[] = L"_001";

int attachmentOf(const OdDbMultilinePart& part) {
  return std::clamp<int>(part.integer(kPartAttachment, OdDbMText::kTopLeft), OdDbMText::kTopLeft,
                         OdDbMText::kBottomRight);
}

} // namespace

int OdDbAttributeText::verticalModeCode() const { return kVertical; }

// --- modes ---

bool OdDbAttributeText::isInvisible() const { return flag(attributeSection(), kModes, kInvisible); }
void OdDbAttributeText::setInvisible(bool invisible) { setMode(kInvisible, invisible); }
bool OdDbAttributeText::isConstant() const { return flag(attributeSection(), kModes, kConstant); }
bool OdDbAttributeText::isVerifiable() const { return flag(attributeSection(), kModes, kVerifiable); }
bool OdDbAttributeText::isPreset() const { return flag(attributeSection(), kModes, kPreset); }
void OdDbAttributeText::setMode(ModeBit bit, bool on) { setFlag(attributeSection(), kModes, bit, on); }

OdUInt16 OdDbAttributeText::fieldLength() const {
  return static_cast<OdUInt16>(integer(attributeSection(), kFieldLength));
}
void OdDbAttributeText::setFieldLength(OdUInt16 length) {
  if (length != fieldLength()) setInteger(attributeSection(), kFieldLength, length);
}

int OdDbAttributeText::tagIndex() const { return odDbGroups::find(groups(), attributeSection(), kTag); }

int OdDbAttributeText::lockIndex() const {
  const int tagAt = tagIndex();
  for (int nth = 0;; ++nth) {
    const int at = odDbGroups::find(groups(), attributeSection(), kLock, nth);
    if (at < 0 || at > tagAt) return at;
  }
}

bool OdDbAttributeText::lockPositionInBlock() const {
  const int at = lockIndex();
  return at >= 0 && groups()[at].integer != 0;
}

void OdDbAttributeText::setLockPositionInBlock(bool lock) {
  OdDbGroupList& list = mutableGroups();
  const OdDbGroup group = OdDbGroup::ofInteger(kLock, lock ? 1 : 0);
  if (const int at = lockIndex(); at >= 0) {
    list[at] = group;
    return;
  }
  if (isDBRO() && database()->originalFileVersion() < OdDb::vAC21) return;
  int behind = tagIndex();
  for (const int code : {kModes, kFieldLength, kVertical})
    behind = std::max(behind, odDbGroups::find(list, attributeSection(), code));
  list.insert(behind + 1, group);
}

// --- one face for both stored forms ---

OdString OdDbAttributeText::tag() const {
  const OdDbMultilinePart part = odDbMultiline::find(*this);
  return part.isRecord() ? part.tag() : text(attributeSection(), kTag);
}

void OdDbAttributeText::setTag(const OdString& tag) {
  assertWriteEnabled();
  OdDbMultilinePart part = odDbMultiline::find(*this);
  if (part.isRecord()) part.setTag(tag);
  setText(attributeSection(), kTag, part.isRecord() ? tag + kLineSuffix : tag);
}

OdString OdDbAttributeText::textString() const {
  const OdDbMultilinePart part = odDbMultiline::find(*this);
  return part.found() ? odDbMTextContents(*part.groups, part.body) : OdDbText::textString();
}

OdGePoint3d OdDbAttributeText::alignmentPoint() const {
  const OdDbMultilinePart part = odDbMultiline::find(*this);
  if (!part.isRecord()) return OdDbText::alignmentPoint();
  return OdGePoint3d(part.real(kPartLocation, 0), part.real(kPartLocation + 10, 0),
                     part.real(kPartLocation + 20, 0));
}

OdDb::TextHorzMode OdDbAttributeText::horizontalMode() const {
  const OdDbMultilinePart part = odDbMultiline::find(*this);
  if (!part.isRecord()) return OdDbText::horizontalMode();
  return OdDbMText::horizontalModeOf(attachmentOf(part));
}

OdDb::TextVertMode OdDbAttributeText::verticalMode() const {
  const OdDbMultilinePart part = odDbMultiline::find(*this);
  if (!part.isRecord()) return OdDbText::verticalMode();
  return OdDbMText::verticalModeOf(attachmentOf(part));
}

/// Changes the text of several lines, if there is one.
template <class Change>
void OdDbAttributeText::change(const Change& change) {
  const OdDbMTextPtr lines = multilineText();
  if (lines.isNull()) return;
  change(*lines);
  storePart(*lines, tag());
}

void OdDbAttributeText::setTextString(const OdString& text) {
  if (!isMultiline()) return OdDbText::setTextString(text);
  assertWriteEnabled();
  change([&](OdDbMText& lines) { lines.setContents(text); });
  showLine(text);
}

void OdDbAttributeText::setAlignmentPoint(const OdGePoint3d& point) {
  OdDbText::setAlignmentPoint(point);
  if (has(attributeSection(), kAlignment))
    setPoint(attributeSection(), kAlignment, OdDbObject::point(kOdDbTextSection, kAlignment));
  change([&](OdDbMText& lines) { lines.setLocation(point); });
}

void OdDbAttributeText::setNormal(const OdGeVector3d& normal) {
  OdDbText::setNormal(normal);
  change([&](OdDbMText& lines) {
    lines.setNormal(normal);
    lines.setRotation(rotation());
  });
}

void OdDbAttributeText::setRotation(double radians) {
  OdDbText::setRotation(radians);
  change([&](OdDbMText& lines) { lines.setRotation(radians); });
}

void OdDbAttributeText::setHeight(double height) {
  OdDbText::setHeight(height);
  change([&](OdDbMText& lines) { lines.setTextHeight(height); });
}

void OdDbAttributeText::setTextStyle(OdDbObjectId style) {
  OdDbText::setTextStyle(style);
  change([&](OdDbMText& lines) { lines.setTextStyle(style); });
}

void OdDbAttributeText::setHorizontalMode(OdDb::TextHorzMode mode) {
  OdDbText::setHorizontalMode(mode);
  change([&](OdDbMText& lines) { lines.setHorizontalMode(mode); });
}

void OdDbAttributeText::setVerticalMode(OdDb::TextVertMode mode) {
  OdDbText::setVerticalMode(mode);
  change([&](OdDbMText& lines) { lines.setVerticalMode(mode); });
}

OdResult OdDbAttributeText::transformBy(const OdGeMatrix3d& matrix) {
  if (!isMultiline()) return OdDbText::transformBy(matrix);
  const OdDbMTextPtr lines = multilineText();
  if (const OdResult result = OdDbText::transformBy(matrix); result != eOk) return result;
  lines->transformBy(matrix);
  setMultilineText(*lines);
  return eOk;
}

OdResult OdDbAttributeText::getGeomExtents(OdGeExtents3d& extents) const {
  const OdDbMTextPtr lines = multilineText();
  return lines.isNull() ? OdDbText::getGeomExtents(extents) : lines->getGeomExtents(extents);
}

// --- the text of several lines ---

bool OdDbAttributeText::isMultiline() const { return odDbMultiline::find(*this).found(); }

OdDbMTextPtr OdDbAttributeText::multilineText() const {
  const OdDbMultilinePart part = odDbMultiline::find(*this);
  if (!part.found()) return {};
  OdDbMTextPtr lines = OdDbMText::createObject();
  lines->setPropertiesFrom(this);
  lines->setBody(*part.groups, part.body);
  return lines;
}

/// The line of the attribute as the text of several lines that looks the same.
OdDbMTextPtr OdDbAttributeText::textFromLine() const {
  OdDbMTextPtr lines = OdDbMText::createObject();
  lines->setPropertiesFrom(this);
  const bool atStart = isDefaultAlignment() || OdDbText::horizontalMode() == OdDb::kTextAlign ||
                       OdDbText::horizontalMode() == OdDb::kTextFit;
  lines->setLocation(atStart ? position() : OdDbText::alignmentPoint());
  lines->setNormal(normal());
  lines->setRotation(rotation());
  lines->setTextHeight(height());
  lines->setTextStyleName(textStyleName());
  lines->setHorizontalMode(OdDbText::horizontalMode());
  lines->setVerticalMode(OdDbText::horizontalMode() == OdDb::kTextMid ? OdDb::kTextVCenter
                                                                      : OdDbText::verticalMode());
  lines->setContents(OdDbText::textString());
  return lines;
}

OdResult OdDbAttributeText::convert(bool multiline) {
  assertWriteEnabled();
  if (multiline == isMultiline()) return eOk;
  if (multiline) {
    if (form() == Form::kNone) return eNotApplicable;
    setMultilineText(*textFromLine());
    return eOk;
  }
  const OdDbMTextPtr lines = multilineText();
  storeLine(*lines);
  removePart();
  OdDbText::setTextString(lines->plainLine());
  return eOk;
}

void OdDbAttributeText::setMultilineText(const OdDbMText& text) {
  assertWriteEnabled();
  if (!isMultiline() && form() == Form::kNone) return OdDbText::setTextString(text.plainLine());
  storePart(text, tag());
  storeLine(text);
}

void OdDbAttributeText::updateMultilineText() {
  const OdDbMTextPtr now = multilineText();
  if (now.isNull()) return;
  now->setLocation(alignmentPoint());
  now->setNormal(normal());
  now->setRotation(rotation());
  now->setTextHeight(height());
  now->setTextStyleName(textStyleName());
  now->setHorizontalMode(horizontalMode());
  now->setVerticalMode(verticalMode());
  setMultilineText(*now);
}

/// The form in which the attribute's drawing stores several lines.
OdDbAttributeText::Form OdDbAttributeText::form() const {
  if (!isDBRO()) return Form::kEmbedded;
  const OdDb::DwgVersion version = database()->originalFileVersion();
  if (version >= OdDb::vAC32) return Form::kEmbedded;
  return version >= OdDb::vAC12 ? Form::kRecord : Form::kNone;
}

void OdDbAttributeText::storePart(const OdDbMText& text, const OdString& tagText) {
  OdDbMultilinePart part = odDbMultiline::find(*this);
  if (part.isEmbedded()) {
    part.replaceBody(mutableGroups(), text.groups(), text.body());
  } else if (part.isRecord()) {
    assertWriteEnabled();
    part.dropSecondaries();
    part.record->upgradeOpen();
    part.replaceBody(part.record->mutableGroups(), text.groups(), text.body());
  } else if (form() == Form::kRecord) {
    odDbMultiline::makeRecord(*this, static_cast<odDbMultiline::Kind>(multilineKind()), tagText,
                              text.groups(), text.body());
    setText(attributeSection(), kTag, tagText + kLineSuffix);
  } else {
    embed(text);
  }
}

void OdDbAttributeText::embed(const OdDbMText& text) {
  OdDbGroupList& list = mutableGroups();
  const OdGePoint3d place = text.location();
  const odDbGroups::Range body = text.body();
  int at = odDbGroups::xDataStart(list);
  const auto add = [&](const OdDbGroup& group) { list.insert(at++, group); };
  add(OdDbGroup::ofInteger(kKind, multilineKind()));
  add(OdDbGroup::ofInteger(kReallyLocked, 0));
  add(OdDbGroup::ofReal(kAlignment, place.x));
  add(OdDbGroup::ofReal(kAlignment + 10, place.y));
  add(OdDbGroup::ofReal(kAlignment + 20, place.z));
  add(list.makeBytes(kEmbedded, odDbMultiline::kEmbeddedMark));
  for (int i = body.first; i < body.last; ++i)
    add(text.groups()[i].isText() ? list.makeText(text.groups()[i].code, text.groups().text(i))
                                  : text.groups()[i]);
}

void OdDbAttributeText::removePart() {
  const OdDbMultilinePart part = odDbMultiline::find(*this);
  if (part.isRecord()) {
    const OdString original = part.tag();
    odDbMultiline::dropRecord(*this);
    setText(attributeSection(), kTag, original);
  } else if (part.found()) {
    OdDbGroupList& list = mutableGroups();
    list.erase(part.body.first - 1, odDbGroups::xDataStart(list));
    for (const int code : {kKind, kReallyLocked, kAlignment}) removeField(attributeSection(), code);
  }
}

/// Lets the attribute itself show the same place and form, and one line of the text where the drawing's
/// release asks for it.
void OdDbAttributeText::storeLine(const OdDbMText& text) {
  OdDbText::setNormal(text.normal());
  OdDbText::setRotation(text.rotation());
  OdDbText::setHeight(text.textHeight());
  setTextStyleName(text.textStyleName());
  OdDbText::setHorizontalMode(text.horizontalMode());
  OdDbText::setVerticalMode(text.verticalMode());
  OdDbText::setAlignmentPoint(text.location());
  mirrorInX(false);
  mirrorInY(false);
  showLine(text.contents());
  if (has(attributeSection(), kAlignment))
    setPoint(attributeSection(), kAlignment, OdDbObject::point(kOdDbTextSection, kAlignment));
  adjustAlignment();
}

void OdDbAttributeText::showLine(const OdString& contents) {
  const int end = contents.find(L"\\P");
  const bool embedded = odDbMultiline::find(*this).isEmbedded();
  OdDbText::setTextString(embedded ? OdString() : odDbPlainLine(end < 0 ? contents : contents.left(end)));
}

// --- the whole ---

void OdDbAttributeText::copyTextFrom(const OdDbAttributeText& source) {
  setPropertiesFrom(&source);
  OdDbText::setNormal(source.normal());
  OdDbText::setPosition(source.position());
  OdDbText::setHorizontalMode(source.horizontalMode());
  OdDbText::setVerticalMode(source.verticalMode());
  OdDbText::setAlignmentPoint(source.alignmentPoint());
  OdDbText::setRotation(source.rotation());
  OdDbText::setHeight(source.height());
  setOblique(source.oblique());
  setWidthFactor(source.widthFactor());
  setThickness(source.thickness());
  mirrorInX(source.isMirroredInX());
  mirrorInY(source.isMirroredInY());
  setTextStyleName(source.textStyleName());
  setTag(source.tag());
  setFieldLength(source.fieldLength());
  setLockPositionInBlock(source.lockPositionInBlock());
  for (const ModeBit bit : {kInvisible, kConstant, kVerifiable, kPreset})
    setMode(bit, source.flag(source.attributeSection(), kModes, bit));
}

void OdDbAttributeText::copyFrom(const OdDbObject* source) {
  OdDbText::copyFrom(source);
  const auto other = OdDbAttributeText::cast(source);
  if (!other.isNull() && odDbMultiline::find(*other).isRecord()) {
    // The XRECORD stays with the source; the copy holds the text itself until it gets a database.
    setText(attributeSection(), kTag, other->tag());
    setMultilineText(*other->multilineText());
  }
  if (isDBRO()) fitToRelease();
}

/// Gives new attributes the form that the drawing's release stores.
void OdDbAttributeText::fitToRelease() {
  const OdDb::DwgVersion version = database()->originalFileVersion();
  OdDbGroupList& list = mutableGroups();
  const int versionAt = odDbGroups::find(list, attributeSection(), kLock);
  if (version < OdDb::vAC24 && versionAt >= 0 && versionAt < tagIndex()) list.erase(versionAt, versionAt + 1);
  if (const int lockAt = lockIndex(); version < OdDb::vAC21 && lockAt >= 0)
    list.erase(lockAt, lockAt + 1);
  else if (version >= OdDb::vAC21 && lockAt < 0)
    setLockPositionInBlock(false);
  if (form() == Form::kEmbedded || !odDbMultiline::find(*this).isEmbedded()) return;
  const OdDbMTextPtr lines = multilineText();
  removePart();
  if (form() == Form::kRecord)
    setMultilineText(*lines);
  else
    OdDbText::setTextString(lines->plainLine());
}
