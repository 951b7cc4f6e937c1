#include "text.h"
#include "DbTextStyleTableRecord.h"
#include "run_drawer.h"
#include <cmath>

namespace picture {

namespace {

/// Slants at which letters lie flat make no letters.
double slantOf(double oblique) {
  constexpr double kSteepest = 85 * OdaPI / 180;
  return std::fabs(oblique) < kSteepest ? std::tan(oblique) : 0;
}

double totalWidth(const std::vector<TextSpan>& spans, const Brush& brush) {
  double width = 0;
  for (const TextSpan& span : spans) width += brush.measure(span.text.toUtf8(), span.format.font);
  return width;
}

/// Where a text begins, relative to the point that places it, in heights of its capital letters; `width` is
/// the text's.
OdGeVector2d anchor(OdDb::TextHorzMode horizontal, OdDb::TextVertMode vertical, double width) {
  constexpr double kDescent = 0.3;
  OdGeVector2d offset;
  if (horizontal == OdDb::kTextCenter || horizontal == OdDb::kTextMid) offset.x = -width / 2;
  if (horizontal == OdDb::kTextRight) offset.x = -width;
  if (vertical == OdDb::kTextBottom) offset.y = kDescent;
  if (vertical == OdDb::kTextVCenter || horizontal == OdDb::kTextMid) offset.y = -0.5;
  if (vertical == OdDb::kTextTop) offset.y = -1;
  return offset;
}

} // namespace

Font fontOfFile(const OdString& file) {
  const OdString extension = file.right(4);
  const bool isOutline = extension.iCompare(L".ttf") == 0 || extension.iCompare(L".ttc") == 0 ||
                         extension.iCompare(L".otf") == 0;
  if (isOutline) return fontNamed(file);
  // Letters of the other fonts are lines, of one weight whatever they imitate.
  Font font;
  font.widths = Font::Widths::line;
  return font;
}

Font fontNamed(const OdString& name) {
  OdString lower = name;
  lower.makeLower();
  const auto holds = [&lower](const OdChar* part) { return lower.find(OdString(part)) >= 0; };
  Font font;
  font.widths = Font::Widths::grotesque;
  if (holds(L"times") || holds(L"roman") || holds(L"garamond") || holds(L"georgia") ||
      (holds(L"serif") && !holds(L"sans")))
    font.family = "serif";
  else if (holds(L"cour") || holds(L"mono") || holds(L"consola"))
    font.family = "monospace";
  if (font.family != "sans") font.widths = Font::Widths::own;
  return font;
}

Font fontOf(OdDbObjectId style) {
  constexpr int kFamily = 1000; // extended data of the style, where the font is known by its family
  constexpr int kFlags = 1071;
  constexpr OdInt32 kItalic = 0x1000000;
  constexpr OdInt32 kBold = 0x2000000;
  const auto record = OdDbTextStyleTableRecord::cast(style.openObject());
  if (record.isNull()) return {};
  Font font = fontOfFile(record->fileName());
  for (OdResBufPtr data = record->xData(L"ACAD"); !data.isNull(); data = data->next()) {
    if (data->restype() == kFamily) font = fontNamed(data->getString());
    if (data->restype() == kFlags) {
      font.italic = (data->getInt32() & kItalic) != 0;
      font.bold = (data->getInt32() & kBold) != 0;
    }
  }
  return font;
}

namespace {

bool isVertical(const OdDbText& text, const Font& font) {
  const auto style = OdDbTextStyleTableRecord::cast(text.textStyle().openObject());
  return !style.isNull() && style->isVertical() && font.widths == Font::Widths::line;
}

/// Letters one below the other; the rotation is that of the way from letter to letter.
void drawVertically(const OdDbText& text, const std::vector<TextSpan>& spans, const Brush& brush) {
  constexpr double kLetterDistance = 1.25; // of their height
  const OdGeMatrix3d plane =
      OdGeMatrix3d::planeToWorld(text.normal().isZeroLength() ? OdGeVector3d::kZAxis : text.normal());
  const double height = text.height();
  const OdGeVector3d down = plane * OdGeVector3d(std::cos(text.rotation()), std::sin(text.rotation()), 0);
  const OdGeVector3d right = plane * OdGeVector3d(-std::sin(text.rotation()), std::cos(text.rotation()), 0);
  OdGePoint3d place = (text.isDefaultAlignment() ? text.position() : text.alignmentPoint()) + down * height;
  RunDrawer run(brush);
  run.along = right * (height * text.widthFactor());
  run.up = down * -height;
  for (const TextSpan& span : spans) {
    for (const wchar_t letter : span.text.str()) {
      const OdString one(std::wstring(1, letter));
      run.origin = place - run.along * (brush.measure(one.toUtf8(), span.format.font) / 2);
      run.draw(one, span.format);
      place = place + down * (height * kLetterDistance);
    }
  }
}

} // namespace

void drawText(const OdDbText& text, const OdString& contents, const Brush& brush) {
  TextFormat format;
  format.font = fontOf(text.textStyle());
  const std::vector<TextSpan> spans = decodeLine(contents, format);
  if (isVertical(text, format.font)) return drawVertically(text, spans, brush);
  const double width = totalWidth(spans, brush);
  const OdDb::TextHorzMode horizontal = text.horizontalMode();
  double height = text.height();
  double factor = text.widthFactor();
  double turn = text.rotation();
  const OdGeVector3d normal = text.normal().isZeroLength() ? OdGeVector3d::kZAxis : text.normal();
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(normal);
  OdGePoint3d start = text.position();
  OdGeVector2d offset;
  if (horizontal == OdDb::kTextAlign || horizontal == OdDb::kTextFit) {
    const OdGeVector3d way = plane.inverse() * (text.alignmentPoint() - start);
    if (width > 0 && way.length() > 0 && factor > 0) {
      turn = std::atan2(way.y, way.x);
      if (horizontal == OdDb::kTextAlign)
        height = way.length() / (width * factor);
      else if (height > 0)
        factor = way.length() / (width * height);
    }
  } else if (!text.isDefaultAlignment()) {
    start = text.alignmentPoint();
    offset = anchor(horizontal, text.verticalMode(), width);
  }
  const OdGeVector3d x(std::cos(turn), std::sin(turn), 0);
  const OdGeVector3d y(-x.y, x.x, 0);
  const double mirrorX = text.isMirroredInX() ? -1 : 1;
  const double mirrorY = text.isMirroredInY() ? -1 : 1;
  RunDrawer run(brush);
  run.along = plane * (x * (height * factor * mirrorX));
  run.up = plane * (y * (height * mirrorY) + x * (height * slantOf(text.oblique()) * mirrorX));
  run.origin = start + run.along * offset.x + plane * (y * (height * mirrorY * offset.y));
  for (const TextSpan& span : spans) run.draw(span.text, span.format);
}

void drawAttribute(const OdDbAttribute& attribute, const Brush& brush) {
  if (const OdDbMTextPtr lines = attribute.getMTextAttribute(); !lines.isNull())
    drawMText(*lines, brush);
  else
    drawText(attribute, attribute.textString(), brush);
}

void drawDefinition(const OdDbAttributeDefinition& definition, const Brush& brush) {
  if (!definition.isConstant()) {
    drawText(definition, definition.tag(), brush);
    return;
  }
  if (const OdDbMTextPtr lines = definition.getMTextAttributeDefinition(); !lines.isNull())
    drawMText(*lines, brush);
  else
    drawText(definition, definition.textString(), brush);
}

RunDrawer::RunDrawer(const Brush& brush) : m_brush(brush) {}

void RunDrawer::draw(const OdString& text, const TextFormat& format) {
  if (text.isEmpty()) return;
  TextRun run;
  run.text = text.toUtf8();
  run.font = format.font;
  run.color = format.color.value_or(m_brush.style().color);
  run.width = m_brush.measure(run.text, run.font);
  run.origin = m_brush.map(origin);
  run.along = m_brush.map(along);
  run.up = m_brush.map(up);
  const OdGePoint3d start = origin;
  origin = origin + along * run.width;
  if (!isDrawable(run.origin) || !isDrawable(run.origin + run.along * run.width) ||
      !isDrawable(run.origin + run.up))
    return;
  m_brush.sink().text(run);
  constexpr double kBelow = -0.2;
  constexpr double kAbove = 1.2;
  constexpr double kThrough = 0.4;
  if (format.underlined) line(start, kBelow, format);
  if (format.overlined) line(start, kAbove, format);
  if (format.struck) line(start, kThrough, format);
}

void RunDrawer::line(const OdGePoint3d& start, double level, const TextFormat& format) const {
  const Brush brush = format.color ? m_brush.withColor(*format.color) : m_brush;
  brush.strokeContinuous({start + up * level, origin + up * level});
}

} // namespace picture
