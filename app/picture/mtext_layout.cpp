// Lines of a text of several lines: wrapping, alignment, spacing.
#include "DbTextStyleTableRecord.h"
#include "fields.h"
#include "mtext.h"
#include "palette.h"
#include "run_drawer.h"
#include "text.h"
#include <algorithm>
#include <cmath>

namespace picture {

namespace {

constexpr double kStackHeight = 1.7;      // of the height of the letters, above the base line
constexpr double kLineDistance = 5.0 / 3; // of the height of the letters, between base lines

/// A piece of a line that stays together.
struct Piece {
  const TextSpan* span;
  OdString text;
  double width = 0; ///< drawing units
  bool isBlank = false;
};

struct Line {
  std::vector<Piece> pieces;
  double width = 0; ///< without blanks at the end
  double height = 0;
  bool endsColumn = false;
};

bool mayBreakAround(wchar_t c) {
  constexpr wchar_t kFirstIdeograph = 0x2E80;
  constexpr wchar_t kFirstHangul = 0xAC00;
  constexpr wchar_t kLastHangul = 0xD7A3;
  return c >= kFirstIdeograph && (c < kFirstHangul || c > kLastHangul);
}

/// Breaks spans into lines no wider than the text where that is possible.
class LineBreaker {
public:
  LineBreaker(const Brush& brush, double width) : m_brush(brush), m_width(width) {}
  std::vector<Line> breakUp(const std::vector<TextSpan>& spans);

private:
  void addWords(const TextSpan& span);
  void add(Piece piece);
  void endLine(double height);
  double widthOfStack(const TextSpan& span) const;
  double widthOf(const OdString& text, const TextFormat& format) const {
    return m_brush.measure(text.toUtf8(), format.font) * format.height * format.widthFactor;
  }

  const Brush& m_brush;
  double m_width;
  std::vector<Line> m_lines;
  Line m_line;
  double m_lineTotal = 0;
};

/// The parts of a stack stand above each other, or beside each other where the line between them is slanted.
double LineBreaker::widthOfStack(const TextSpan& span) const {
  const double above = widthOf(span.text, span.format);
  const double below = widthOf(span.below, span.format);
  return span.line == TextSpan::Line::slanted ? above + below : std::max(above, below);
}

void LineBreaker::endLine(double height) {
  // An empty line is as high as the letters that could stand there.
  if (m_line.height == 0) m_line.height = height;
  m_lines.push_back(std::move(m_line));
  m_line = {};
  m_lineTotal = 0;
}

void LineBreaker::add(Piece piece) {
  const bool isTooLong = m_width > 0 && m_lineTotal + piece.width > m_width * (1 + 1e-9);
  if (isTooLong && !piece.isBlank && !m_line.pieces.empty()) endLine(piece.span->format.height);
  m_lineTotal += piece.width;
  if (!piece.isBlank) m_line.width = m_lineTotal;
  const double height = piece.span->format.height;
  m_line.height =
      std::max(m_line.height, piece.span->kind == TextSpan::Kind::stack ? height * kStackHeight : height);
  m_line.pieces.push_back(std::move(piece));
}

void LineBreaker::addWords(const TextSpan& span) {
  const std::wstring& text = span.text.str();
  for (std::size_t at = 0; at < text.size();) {
    const bool isBlank = text[at] == L' ';
    std::size_t end = at + 1;
    while (end < text.size() && (text[end] == L' ') == isBlank && !mayBreakAround(text[end]) &&
           !mayBreakAround(text[end - 1]))
      ++end;
    const OdString word(text.substr(at, end - at));
    add({&span, word, widthOf(word, span.format), isBlank});
    at = end;
  }
}

std::vector<Line> LineBreaker::breakUp(const std::vector<TextSpan>& spans) {
  constexpr double kTab = 4; // letter heights
  double height = 1;
  for (const TextSpan& span : spans) {
    height = span.format.height;
    switch (span.kind) {
    case TextSpan::Kind::text: addWords(span); break;
    case TextSpan::Kind::stack: add({&span, {}, widthOfStack(span)}); break;
    case TextSpan::Kind::tab:
      add({&span, {}, kTab * height - std::fmod(m_lineTotal, kTab * height), true});
      break;
    case TextSpan::Kind::paragraph:
    case TextSpan::Kind::column:
      m_line.endsColumn = span.kind == TextSpan::Kind::column;
      endLine(height);
      break;
    }
  }
  if (!m_line.pieces.empty()) endLine(height);
  return std::move(m_lines);
}

/// Draws lines that were broken up, in a plane whose axes are the directions of the text.
class LinesDrawer {
public:
  LinesDrawer(const LinesOfText& text, const Brush& brush);
  void draw(const std::vector<Line>& lines) const;
  /// Letters below each other, lines beside each other.
  void drawVertically(const std::vector<Line>& lines) const;

private:
  struct Column {
    std::size_t first; ///< line
    std::size_t end;
    double height;
  };
  std::vector<Column> divide(const std::vector<Line>& lines) const;
  double distance(const Line& line) const;
  double align(const Line& line) const;
  void drawLine(const Line& line, const OdGePoint3d& start) const;
  void drawStack(const Piece& piece, const OdGePoint3d& start) const;
  void drawBackground(const OdGePoint3d& corner, double width, double height) const;
  RunDrawer runAt(const OdGePoint3d& start, const TextFormat& format) const;
  /// The upper left corner of an area that the text takes.
  OdGePoint3d cornerOf(double width, double height) const;
  /// -1, 0 or 1: left, centre, right of the attachment.
  int side() const { return (m_text.attachment - 1) % 3 - 1; }

  const LinesOfText& m_text;
  const Brush& m_brush;
  OdGeVector3d m_x; // unit vectors of the lines
  OdGeVector3d m_y;
  double m_spacing;
};

LinesDrawer::LinesDrawer(const LinesOfText& text, const Brush& brush)
    : m_text(text), m_brush(brush), m_x(text.direction), m_spacing(text.spacing) {
  m_y = (text.normal.isZeroLength() ? OdGeVector3d::kZAxis : text.normal).crossProduct(m_x);
  if (!m_y.isZeroLength()) m_y.normalize();
  if (!(m_spacing > 0)) m_spacing = 1;
}

double LinesDrawer::distance(const Line& line) const {
  return (m_text.isExact ? m_text.height : line.height) * kLineDistance * m_spacing;
}

std::vector<LinesDrawer::Column> LinesDrawer::divide(const std::vector<Line>& lines) const {
  std::vector<Column> columns;
  const std::vector<double>& heights = m_text.columns.heights;
  constexpr double kRounding = 1e-9;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const double limit =
        !columns.empty() && columns.size() < heights.size() ? heights[columns.size() - 1] : 0;
    const bool isFull = limit > 0 && columns.back().height + distance(lines[i]) > limit * (1 + kRounding);
    const bool isEnded = i > 0 && lines[i - 1].endsColumn && !heights.empty();
    if (columns.empty() || isFull || isEnded)
      columns.push_back({i, i, lines[i].height});
    else
      columns.back().height += distance(lines[i]);
    columns.back().end = i + 1;
  }
  return columns;
}

OdGePoint3d LinesDrawer::cornerOf(double width, double height) const {
  const int row = (m_text.attachment - 1) / 3;
  return m_text.location + m_x * (-width * (side() + 1) / 2) + m_y * (height * row / 2);
}

void LinesDrawer::draw(const std::vector<Line>& lines) const {
  const std::vector<Column> columns = divide(lines);
  if (columns.empty()) return;
  const bool isOne = m_text.columns.heights.empty();
  double width = isOne ? m_text.width : m_text.columns.width;
  double height = 0;
  if (isOne)
    for (const Line& line : lines) width = std::max(width, line.width);
  for (const Column& column : columns) height = std::max(height, column.height);
  const double step = width + m_text.columns.gutter;
  const double total = width + step * static_cast<double>(columns.size() - 1);
  const OdGePoint3d corner = cornerOf(total, height);
  drawBackground(corner, total, height);
  double left = 0;
  for (const Column& column : columns) {
    double level = lines[column.first].height;
    for (std::size_t i = column.first; i < column.end; ++i) {
      if (i > column.first) level += distance(lines[i]);
      drawLine(lines[i], corner + m_x * (left + (width - lines[i].width) * align(lines[i])) - m_y * level);
    }
    left += step;
  }
}

void LinesDrawer::drawVertically(const std::vector<Line>& lines) const {
  constexpr double kLetterDistance = 1.25; // of the height of the letters
  std::size_t most = 0;
  double width = 0;
  for (const Line& line : lines) {
    std::size_t letters = 0;
    for (const Piece& piece : line.pieces) letters += piece.text.str().size();
    most = std::max(most, letters);
    width += distance(line);
  }
  if (most == 0) return;
  const double step = m_text.height * kLetterDistance;
  const OdGePoint3d corner = cornerOf(width, step * static_cast<double>(most - 1) + m_text.height);
  double middle = 0;
  for (const Line& line : lines) {
    OdGePoint3d place = corner + m_x * (middle + m_text.height / 2) - m_y * m_text.height;
    for (const Piece& piece : line.pieces) {
      for (const wchar_t letter : piece.text.str()) {
        const OdString one(std::wstring(1, letter));
        const TextFormat& format = piece.span->format;
        const double half =
            m_brush.measure(one.toUtf8(), format.font) * format.height * format.widthFactor / 2;
        runAt(place - m_x * half, format).draw(one, format);
        place = place - m_y * step;
      }
    }
    middle += distance(line);
  }
}

/// Part of the free space of the line that stands before it.
double LinesDrawer::align(const Line& line) const {
  switch (line.pieces.empty() ? TextSpan::Align::inherited : line.pieces.front().span->align) {
  case TextSpan::Align::left: return 0;
  case TextSpan::Align::center: return 0.5;
  case TextSpan::Align::right: return 1;
  default: return (side() + 1) / 2.0;
  }
}

RunDrawer LinesDrawer::runAt(const OdGePoint3d& start, const TextFormat& format) const {
  RunDrawer run(m_brush);
  run.origin = start;
  run.along = m_x * (format.height * format.widthFactor);
  run.up = (m_y + m_x * std::tan(std::clamp(format.oblique, -1.4, 1.4))) * format.height;
  return run;
}

void LinesDrawer::drawLine(const Line& line, const OdGePoint3d& start) const {
  double at = 0;
  for (std::size_t i = 0; i < line.pieces.size();) {
    const Piece& piece = line.pieces[i];
    const OdGePoint3d place = start + m_x * at;
    if (piece.span->kind == TextSpan::Kind::stack) drawStack(piece, place);
    // Words of one format are one piece of text again.
    OdString text;
    for (; i < line.pieces.size() && line.pieces[i].span == piece.span; ++i) {
      text += line.pieces[i].text;
      at += line.pieces[i].width;
    }
    runAt(place, piece.span->format).draw(text, piece.span->format);
  }
}

void LinesDrawer::drawStack(const Piece& piece, const OdGePoint3d& start) const {
  constexpr double kGap = 0.2; // between a part and the middle, in letter heights
  const TextFormat& format = piece.span->format;
  const double middle = m_text.height / 2;
  const bool isSlanted = piece.span->line == TextSpan::Line::slanted;
  const auto widthOf = [&](const OdString& text) {
    return m_brush.measure(text.toUtf8(), format.font) * format.height * format.widthFactor;
  };
  const double above = widthOf(piece.span->text);
  const double below = widthOf(piece.span->below);
  const auto drawPart = [&](const OdString& text, double left, double level) {
    runAt(start + m_x * left + m_y * level, format).draw(text, format);
  };
  drawPart(piece.span->text, isSlanted ? 0 : (piece.width - above) / 2, middle + format.height * kGap);
  drawPart(piece.span->below, isSlanted ? above : (piece.width - below) / 2,
           middle - format.height * (1 + kGap));
  if (piece.span->line == TextSpan::Line::none) return;
  const Brush brush = format.color ? m_brush.withColor(*format.color) : m_brush;
  // A slanted line leans like the one of a fraction, through the point between the parts.
  const double reach = isSlanted ? format.height * (1 - kGap) : 0;
  const double left = isSlanted ? above - reach / 2 : 0;
  const double right = isSlanted ? above + reach / 2 : piece.width;
  brush.strokeContinuous(
      {start + m_x * left + m_y * (middle - reach), start + m_x * right + m_y * (middle + reach)});
}

/// Hides what lies behind the text, and draws its frame.
void LinesDrawer::drawBackground(const OdGePoint3d& origin, double width, double height) const {
  const double margin = m_text.margin;
  const auto corner = [&](double x, double y) { return origin + m_x * x + m_y * y; };
  const Points area = {corner(-margin, margin), corner(width + margin, margin),
                       corner(width + margin, -height - margin), corner(-margin, -height - margin)};
  if (m_text.background) m_brush.withColor(*m_text.background).fill({area});
  if (m_text.isFramed) m_brush.strokeContinuous({area[0], area[1], area[2], area[3], area[0]});
}

/// The columns of a text, which stand behind the groups of the text itself.
TextColumns columnsOf(const OdDbMText& text) {
  enum Code {
    kEmbedded = 101,
    kKind = 71,
    kCount = 72,
    kWidth = 44,
    kGutter = 45,
    kHeight = 46,
    kCommon = 41
  };
  const OdDbGroupList& groups = text.groups();
  TextColumns columns;
  int kind = 0;
  int count = 0;
  double common = 0;
  bool isReached = false;
  for (int i = 0; i < odDbGroups::xDataStart(groups); ++i) {
    const OdDbGroup& group = groups[i];
    if (!isReached) {
      isReached = group.code == kEmbedded;
      continue;
    }
    switch (group.code) {
    case kKind: kind = integerOf(group); break;
    case kCount: count = integerOf(group); break;
    case kWidth: columns.width = group.real; break;
    case kGutter: columns.gutter = group.real; break;
    case kCommon: common = group.real; break;
    case kHeight: columns.heights.push_back(group.real); break;
    default: break;
    }
  }
  constexpr int kMost = 1000;
  if (columns.heights.empty() && common > 0)
    columns.heights.assign(static_cast<std::size_t>(std::clamp(count, 1, kMost)), common);
  if (kind == 0 || columns.heights.size() < 2 || !(columns.width > 0)) return {};
  return columns;
}

} // namespace

void drawLines(const LinesOfText& text, const Brush& brush) {
  TextFormat format;
  format.font = fontOf(text.style);
  format.height = text.height;
  const auto style = OdDbTextStyleTableRecord::cast(text.style.openObject());
  bool isVertical = text.flow == OdDbMText::kTtoB;
  if (!style.isNull()) {
    if (style->xScale() > 0) format.widthFactor = style->xScale();
    format.oblique = style->obliquingAngle();
    if (text.flow == OdDbMText::kByStyle) isVertical = style->isVertical();
  }
  // Outline fonts have no vertical form.
  isVertical = isVertical && format.font.widths == Font::Widths::line;
  const std::vector<TextSpan> spans = decodeMText(text.contents, format);
  const double width = text.columns.heights.empty() ? text.width : text.columns.width;
  const std::vector<Line> lines = LineBreaker(brush, isVertical ? 0 : width).breakUp(spans);
  const LinesDrawer drawer(text, brush);
  if (isVertical)
    drawer.drawVertically(lines);
  else
    drawer.draw(lines);
}

void drawMText(const OdDbMText& text, const Brush& brush) {
  constexpr int kBackground = 90;
  constexpr int kFrame = 16;
  LinesOfText lines;
  lines.contents = text.contents();
  lines.style = text.textStyle();
  lines.location = text.location();
  lines.direction = text.direction();
  lines.normal = text.normal();
  lines.height = text.textHeight();
  lines.width = text.width();
  lines.attachment = text.attachment();
  lines.flow = text.flowDirection();
  lines.spacing = text.lineSpacingFactor();
  lines.isExact = text.lineSpacingStyle() == OdDb::kExactly;
  if (text.backgroundFillOn())
    lines.background = text.useBackgroundColorOn() ? kPaper : colorOf(text.getBackgroundFillColor());
  lines.isFramed = (Fields(text).integer(kBackground) & kFrame) != 0;
  lines.margin = lines.height * std::max(0.0, text.getBackgroundScaleFactor() - 1);
  lines.columns = columnsOf(text);
  drawLines(lines, brush);
}

} // namespace picture
