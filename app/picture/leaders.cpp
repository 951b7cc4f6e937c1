#include "DbBlockTableRecord.h"
#include "DbSymbolTable.h"
#include "annotations.h"
#include "curves.h"
#include "fields.h"
#include "palette.h"
#include "run_drawer.h"
#include "text.h"
#include <cmath>
#include <map>

namespace picture {

namespace {

/// A dimension style with what an entity has changed in it.
class DimensionStyle {
public:
  explicit DimensionStyle(const OdDbEntity& entity);

  double arrowSize() const { return scaled(41, L"$DIMASZ"); }
  double textHeight() const { return scaled(140, L"$DIMTXT"); }
  OdDbObjectId leaderArrow() const { return reference(341); }
  OdDbObjectId textStyle() const { return reference(340); }
  Brush lineBrush(const Brush& brush) const { return coloured(brush, 176); }
  Brush textBrush(const Brush& brush) const { return coloured(brush, 178); }

private:
  void readChanges(const OdDbEntity& entity);
  double real(int code, const OdChar* variable, double fallback) const;
  double scaled(int code, const OdChar* variable) const;
  OdDbObjectId reference(int code) const;
  Brush coloured(const Brush& brush, int code) const;

  const OdDbDatabase& m_database;
  OdDbObjectPtr m_style;
  std::map<int, OdResBufPtr> m_changes;
};

DimensionStyle::DimensionStyle(const OdDbEntity& entity) : m_database(*entity.database()) {
  constexpr int kStyleName = 3;
  const auto styles = OdDbSymbolTable::cast(m_database.getDimStyleTableId().openObject());
  if (!styles.isNull()) m_style = styles->getAt(Fields(entity).text(kStyleName)).openObject();
  readChanges(entity);
}

/// Extended data: DSTYLE, and in braces the code and the value of each change.
void DimensionStyle::readChanges(const OdDbEntity& entity) {
  constexpr int kText = 1000;
  constexpr int kBrace = 1002;
  OdResBufPtr data = entity.xData(L"ACAD");
  while (!data.isNull() && !(data->restype() == kText && data->getString() == L"DSTYLE")) data = data->next();
  if (!data.isNull()) data = data->next();
  if (data.isNull() || data->restype() != kBrace) return;
  for (data = data->next(); !data.isNull() && data->restype() != kBrace && data->next();
       data = data->next()->next())
    m_changes[data->getInt32()] = data->next();
}

double DimensionStyle::real(int code, const OdChar* variable, double fallback) const {
  if (const auto change = m_changes.find(code); change != m_changes.end()) return change->second->getDouble();
  const double common = headerReal(m_database, variable, fallback);
  return m_style.isNull() ? common : Fields(*m_style).real(code, common);
}

double DimensionStyle::scaled(int code, const OdChar* variable) const {
  constexpr double kUsual = 0.18;
  const double scale = real(40, L"$DIMSCALE", 1);
  return real(code, variable, kUsual) * (scale > 0 ? scale : 1);
}

OdDbObjectId DimensionStyle::reference(int code) const {
  if (const auto change = m_changes.find(code); change != m_changes.end())
    return m_database.getOdDbObjectId(change->second->getHandle());
  if (m_style.isNull()) return {};
  const Fields fields(*m_style);
  const OdDbGroup* found = fields.find(code, fields.begin());
  return found == fields.end() ? OdDbObjectId() : m_database.getOdDbObjectId(found->handle);
}

/// Colours 0 and 256 leave it to the entity.
Brush DimensionStyle::coloured(const Brush& brush, int code) const {
  int color = m_style.isNull() ? 0 : Fields(*m_style).integer(code);
  if (const auto change = m_changes.find(code); change != m_changes.end()) color = change->second->getInt32();
  return color > 0 && color < 256 ? brush.withColor(paletteColor(color)) : brush;
}

std::vector<OdString> split(OdString text, const OdString& separator) {
  std::vector<OdString> parts;
  for (int at = text.find(separator); at >= 0; at = text.find(separator)) {
    parts.push_back(text.left(at));
    text = text.mid(at + separator.getLength());
  }
  parts.push_back(text);
  return parts;
}

/// Rows of cells that stand beside each other.
class ToleranceFrame {
public:
  ToleranceFrame(const Brush& lines, const Brush& letters, const TextFormat& format, const OdGeVector3d& x,
                 const OdGeVector3d& y)
      : m_lines(lines), m_letters(letters), m_format(format), m_x(x), m_y(y) {}
  /// `middle` is at the left end of the row.
  void drawRow(const OdString& row, const OdGePoint3d& middle) const {
    OdGePoint3d left = middle;
    for (const OdString& cell : split(row, L"%%v"))
      if (!cell.isEmpty()) left = drawCell(cell, left);
  }

private:
  /// The left end of the next cell.
  OdGePoint3d drawCell(const OdString& contents, const OdGePoint3d& left) const {
    const double height = m_format.height;
    const std::vector<TextSpan> spans = decodeMText(contents, m_format);
    double width = height; // half of it at each end
    for (const TextSpan& span : spans)
      width += m_letters.measure(span.text.toUtf8(), span.format.font) * height;
    const auto corner = [&](double x, double y) { return left + m_x * x + m_y * y; };
    m_lines.strokeContinuous({corner(0, height), corner(width, height), corner(width, -height),
                              corner(0, -height), corner(0, height)});
    RunDrawer run(m_letters);
    run.origin = corner(height / 2, -height / 2);
    run.along = m_x * height;
    run.up = m_y * height;
    for (const TextSpan& span : spans) run.draw(span.text, span.format);
    return corner(width, 0);
  }

  const Brush& m_lines;
  const Brush& m_letters;
  const TextFormat& m_format;
  OdGeVector3d m_x; // unit vectors
  OdGeVector3d m_y;
};

} // namespace

void drawArrow(const Arrow& arrow, const OdGePoint3d& tip, const OdGeVector3d& way,
               const OdGeVector3d& normal, const Brush& brush, const DrawBlock& drawBlock) {
  if (!(arrow.size > 0) || !(way.length() > 0)) return;
  const OdGeVector3d back = way * (arrow.size / way.length());
  OdGeVector3d side = normal.crossProduct(back);
  if (arrow.block.isNull()) {
    constexpr double kSlim = 6; // length over half of the width
    side = side / kSlim;
    brush.fill({{tip, tip + back + side, tip + back - side}});
    return;
  }
  OdGeMatrix3d placed;
  placed.setCoordSystem(tip, -back, -side, normal * arrow.size);
  drawBlock(arrow.block, placed);
}

void drawLeader(const OdDbEntity& entity, const Brush& entityBrush, const DrawBlock& drawBlock) {
  constexpr int kSpline = 1;
  const Fields leader(entity);
  const DimensionStyle style(entity);
  const Brush brush = style.lineBrush(entityBrush);
  const Points points = leader.points(10);
  if (points.size() < 2) throw OdError(eDegenerateGeometry);
  Points curve;
  if (leader.integer(72) == kSpline)
    addSmooth(curve, points, false, brush);
  else
    curve = points;
  const Arrow arrow{style.leaderArrow(), style.arrowSize()};
  const OdGeVector3d way = points[1] - points[0];
  // There is no head where it would be as long as the line.
  if (leader.integer(71, 1) != 0 && way.length() > 2 * arrow.size)
    drawArrow(arrow, points[0], way, leader.normal(), brush, drawBlock);
  brush.stroke(curve);
}

void drawTolerance(const OdDbEntity& entity, const Brush& brush) {
  const Fields tolerance(entity);
  const DimensionStyle style(entity);
  TextFormat format;
  format.font = fontOf(style.textStyle());
  format.height = style.textHeight();
  OdGeVector3d x = tolerance.has(11) ? tolerance.point(11).asVector() : OdGeVector3d::kXAxis;
  if (x.isZeroLength() || !(format.height > 0)) throw OdError(eDegenerateGeometry);
  x.normalize();
  const OdGeVector3d y = tolerance.normal().crossProduct(x);
  const Brush lines = style.lineBrush(brush);
  const Brush letters = style.textBrush(brush);
  const ToleranceFrame frame(lines, letters, format, x, y);
  OdGePoint3d middle = tolerance.point(10);
  for (const OdString& row : split(tolerance.text(1), L"\n")) {
    frame.drawRow(row, middle);
    middle = middle - y * (2 * format.height);
  }
}

} // namespace picture
