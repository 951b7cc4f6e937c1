// Leaders of several lines that hold their own text or block. What they look like stands in a section of its
// own, CONTEXT_DATA, with sections for each leader and each of its lines inside.
#include "DbAttributeDefinition.h"
#include "DbBlockTableRecord.h"
#include "annotations.h"
#include "curves.h"
#include "fields.h"
#include "mtext.h"
#include "palette.h"
#include "text.h"
#include <algorithm>

namespace picture {

namespace {

struct LeaderLines {
  std::vector<Points> lines; ///< each begins at its arrow
  OdGePoint3d end;           ///< where the lines meet
  OdGeVector3d landing;      ///< from there to the text; zero: there is none
  double landingLength = 0;
  bool hasEnd = false;
  bool isVertical = false; ///< comes from above or below, and has no landing
};

struct AttributeValue {
  OdDbObjectId definition;
  OdString text;
};

enum LineKind { kInvisible = 0, kStraight = 1, kSpline = 2 };

struct Multileader {
  std::vector<LeaderLines> leaders;
  LinesOfText text;
  bool hasText = false;
  OdInt64 textColor = 0;
  OdInt64 backgroundColor = 0;
  bool hasBackground = false;
  double backgroundScale = 1;
  double gap = 0; ///< between frame and text
  OdDbObjectId block;
  OdGeVector3d blockNormal = OdGeVector3d::kZAxis;
  OdGePoint3d blockPosition;
  OdGeScale3d blockScale{1, 1, 1};
  double blockRotation = 0;
  std::vector<AttributeValue> attributes;
  Arrow arrow;
  int lineKind = kStraight;
  OdInt64 lineColor = 0;
  bool hasLanding = true;
  bool isFramed = false;
  OdGeVector3d normal = OdGeVector3d::kZAxis;
};

/// Colours are stored as a number whose highest byte says what the others mean; by layer and by block leave
/// it to the entity.
std::optional<Color> colorOfNumber(OdInt64 number) {
  enum Method { kRgb = 0xC2, kIndex = 0xC3 };
  const auto bits = static_cast<OdUInt32>(number);
  constexpr OdUInt32 kIndexBits = 0xFF;
  if (bits >> 24 == kRgb) return fromRgb(bits);
  if (bits >> 24 == kIndex) return paletteColor(static_cast<int>(bits & kIndexBits));
  return std::nullopt;
}

class MultileaderReader {
public:
  explicit MultileaderReader(const OdDbEntity& entity) : m_fields(entity), m_database(*entity.database()) {}
  Multileader read();

private:
  enum class Section { entity, context, leader, line };
  bool changeSection(const OdDbGroup& group);
  void readEntity(const OdDbGroup& group);
  void readContext(const OdDbGroup& group);
  void readText(const OdDbGroup& group);
  void readBlock(const OdDbGroup& group);
  void readLeader(const OdDbGroup& group);
  OdDbObjectId idOf(const OdDbGroup& group) const { return m_database.getOdDbObjectId(group.handle); }
  OdGeVector3d vectorAt(const OdDbGroup& group) const { return m_fields.pointAt(&group).asVector(); }

  Fields m_fields;
  const OdDbDatabase& m_database;
  Section m_section = Section::entity;
  Multileader m_read;
};

/// Sections begin with a text such as "LEADER{" and end with a code of their own.
bool MultileaderReader::changeSection(const OdDbGroup& group) {
  const struct {
    Section outer;
    int begin;
    Section inner;
    int end;
  } sections[] = {{Section::entity, 300, Section::context, 301},
                  {Section::context, 302, Section::leader, 303},
                  {Section::leader, 304, Section::line, 305}};
  for (const auto& [outer, begin, inner, end] : sections) {
    if (m_section == outer && group.code == begin) {
      m_section = inner;
      if (inner == Section::leader) m_read.leaders.emplace_back();
      if (inner == Section::line) m_read.leaders.back().lines.emplace_back();
      return true;
    }
    if (m_section == inner && group.code == end) {
      m_section = outer;
      return true;
    }
  }
  return false;
}

Multileader MultileaderReader::read() {
  for (const OdDbGroup& group : m_fields) {
    if (changeSection(group)) continue;
    switch (m_section) {
    case Section::entity: readEntity(group); break;
    case Section::context: readContext(group); break;
    case Section::leader: readLeader(group); break;
    case Section::line:
      if (group.code == 10) m_read.leaders.back().lines.back().push_back(m_fields.pointAt(&group));
      break;
    }
  }
  return std::move(m_read);
}

void MultileaderReader::readEntity(const OdDbGroup& group) {
  switch (group.code) {
  case 170: m_read.lineKind = integerOf(group); break;
  case 91: m_read.lineColor = group.integer; break;
  case 290:
  case 291: m_read.hasLanding = m_read.hasLanding && integerOf(group) != 0; break;
  case 292: m_read.isFramed = integerOf(group) != 0; break;
  case 342: m_read.arrow.block = idOf(group); break;
  case 330: m_read.attributes.push_back({idOf(group), {}}); break;
  case 302:
    if (!m_read.attributes.empty()) m_read.attributes.back().text = m_fields.list().text(group);
    break;
  default: break;
  }
}

void MultileaderReader::readContext(const OdDbGroup& group) {
  switch (group.code) {
  case 140: m_read.arrow.size = group.real; break;
  case 145: m_read.gap = group.real; break;
  case 290: m_read.hasText = integerOf(group) != 0; break;
  default: readText(group); readBlock(group);
  }
}

void MultileaderReader::readText(const OdDbGroup& group) {
  LinesOfText& text = m_read.text;
  switch (group.code) {
  case 41: text.height = group.real; break;
  case 304: text.contents += m_fields.list().text(group); break;
  case 11: m_read.normal = text.normal = vectorAt(group); break;
  case 340: text.style = idOf(group); break;
  case 12: text.location = m_fields.pointAt(&group); break;
  case 13: text.direction = vectorAt(group); break;
  case 43: text.width = group.real; break;
  case 45: text.spacing = group.real; break;
  case 170: text.isExact = integerOf(group) == OdDb::kExactly; break;
  case 90: m_read.textColor = group.integer; break;
  case 171:
    text.attachment = std::clamp<int>(integerOf(group), OdDbMText::kTopLeft, OdDbMText::kTopRight);
    break;
  case 172: text.flow = integerOf(group); break;
  case 91: m_read.backgroundColor = group.integer; break;
  case 141: m_read.backgroundScale = group.real; break;
  case 291: m_read.hasBackground = integerOf(group) != 0; break;
  default: break;
  }
}

void MultileaderReader::readBlock(const OdDbGroup& group) {
  switch (group.code) {
  case 341: m_read.block = idOf(group); break;
  case 14: m_read.blockNormal = vectorAt(group); break;
  case 15: m_read.blockPosition = m_fields.pointAt(&group); break;
  case 16: {
    const OdGePoint3d factors = m_fields.pointAt(&group);
    m_read.blockScale = {factors.x, factors.y, factors.z};
    break;
  }
  case 46: m_read.blockRotation = group.real; break;
  default: break;
  }
}

void MultileaderReader::readLeader(const OdDbGroup& group) {
  LeaderLines& leader = m_read.leaders.back();
  switch (group.code) {
  case 290: leader.hasEnd = integerOf(group) != 0; break;
  case 10: leader.end = m_fields.pointAt(&group); break;
  case 11: leader.landing = vectorAt(group); break;
  case 40: leader.landingLength = group.real; break;
  case 271: leader.isVertical = integerOf(group) != 0; break;
  default: break;
  }
}

void drawLeaders(const Multileader& read, const Brush& brush, const DrawBlock& drawBlock) {
  if (read.lineKind == kInvisible) return;
  for (const LeaderLines& leader : read.leaders) {
    for (Points points : leader.lines) {
      if (leader.hasEnd) points.push_back(leader.end);
      if (points.size() < 2) continue;
      drawArrow(read.arrow, points[0], points[1] - points[0], read.normal, brush, drawBlock);
      Points curve;
      if (read.lineKind == kSpline)
        addSmooth(curve, points, false, brush);
      else
        curve = std::move(points);
      brush.stroke(curve);
    }
    if (read.hasLanding && !leader.isVertical && leader.landingLength > 0 && !leader.landing.isZeroLength())
      brush.stroke({leader.end, leader.end + leader.landing * leader.landingLength});
  }
}

void drawContents(Multileader& read, const Brush& brush) {
  LinesOfText& text = read.text;
  if (read.hasBackground) {
    text.background = colorOfNumber(read.backgroundColor).value_or(kPaper);
    text.margin = text.height * std::max(0.0, read.backgroundScale - 1);
  }
  if (read.isFramed) {
    text.isFramed = true;
    text.margin = read.gap;
  }
  drawLines(text, brush.withColor(colorOfNumber(read.textColor).value_or(brush.style().color)));
}

void drawBlockContents(const Multileader& read, const Brush& brush, const DrawBlock& drawBlock) {
  const auto record = OdDbBlockTableRecord::cast(read.block.openObject());
  if (record.isNull() || read.blockNormal.isZeroLength()) return;
  const OdGeMatrix3d placed = OdGeMatrix3d::translation(read.blockPosition.asVector()) *
                              OdGeMatrix3d::planeToWorld(read.blockNormal) *
                              OdGeMatrix3d::rotation(read.blockRotation, OdGeVector3d::kZAxis) *
                              OdGeMatrix3d::scaling(read.blockScale) *
                              OdGeMatrix3d::translation(-record->origin().asVector());
  drawBlock(read.block, placed);
  for (const AttributeValue& value : read.attributes) {
    const auto definition = OdDbAttributeDefinition::cast(value.definition.openObject());
    if (!definition.isNull() && !definition->isConstant() && !definition->isInvisible())
      drawText(*definition, value.text, brush.placed(placed));
  }
}

} // namespace

void drawMultileader(const OdDbEntity& entity, const Brush& brush, const DrawBlock& drawBlock) {
  Multileader read = MultileaderReader(entity).read();
  if (read.leaders.empty() && !read.hasText && read.block.isNull()) throw OdError(eDegenerateGeometry);
  drawLeaders(read, brush.withColor(colorOfNumber(read.lineColor).value_or(brush.style().color)), drawBlock);
  if (read.hasText) drawContents(read, brush);
  if (!read.block.isNull()) drawBlockContents(read, brush, drawBlock);
}

} // namespace picture
