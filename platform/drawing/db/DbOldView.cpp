#include "DbOldView.h"
#include <algorithm>

namespace {

constexpr int kFirstXDataCode = 1001;
constexpr int kTextCode = 1000;
constexpr int kLayerCode = 1003;

/// Takes the values one after another. Where another kind of value stands than is expected, it counts as 0.
class Sequence {
public:
  Sequence(const OdDbGroupList& groups, int at) : m_groups(groups), m_at(at) {}
  double real() {
    const OdDbGroup* group = next();
    return group && group->kind == OdDbGroupKind::kReal ? group->real : 0;
  }
  OdInt64 integer() {
    const OdDbGroup* group = next();
    return group && group->kind == OdDbGroupKind::kInteger ? group->integer : 0;
  }
  OdGePoint2d pair() {
    const double x = real();
    return {x, real()};
  }
  OdGePoint3d triple() {
    const OdGePoint2d xy = pair();
    return {xy.x, xy.y, real()};
  }
  std::vector<OdString> layers() const {
    std::vector<OdString> names;
    for (int i = m_at; i < m_groups.size() && m_groups[i].code != kFirstXDataCode; ++i)
      if (m_groups[i].code == kLayerCode) names.push_back(m_groups.text(i));
    return names;
  }

private:
  const OdDbGroup* next() {
    return m_at < m_groups.size() && m_groups[m_at].code != kFirstXDataCode ? &m_groups[m_at++] : nullptr;
  }

  const OdDbGroupList& m_groups;
  int m_at;
};

/// Each of these stands for some bits of the view's flags.
OdInt64 flagsOf(OdInt64 mode, Sequence& values) {
  struct Part {
    OdInt64 mask; ///< of the bits that the value has; 0: it is true or false
    OdInt64 factor;
  };
  // Fast zoom, icon of the coordinate system, snap, grid, isometric snap, its plane.
  constexpr Part kParts[] = {{0, 128}, {3, 32}, {0, 256}, {0, 512}, {0, 1024}, {3, 4096}};
  OdInt64 flags = mode & 0x1F;
  for (const Part& part : kParts) {
    const OdInt64 value = values.integer();
    flags |= (part.mask ? value & part.mask : OdInt64{value != 0}) * part.factor;
  }
  return flags;
}

} // namespace

std::optional<OdDbOldView> odDbOldView(const OdDbGroupList& groups) {
  const auto name = std::find_if(groups.items.begin(), groups.items.end(), [&](const OdDbGroup& group) {
    return group.code == kTextCode && groups.text(group) == OdString(L"MVIEW");
  });
  if (name == groups.items.end()) return {};
  constexpr OdInt64 kHiddenLinesRemoved = 2048;
  Sequence values(groups, static_cast<int>(name - groups.items.begin()) + 2); // behind the opening brace
  OdDbOldView view;
  values.integer(); // version of the data
  view.target = values.triple();
  view.direction = values.triple().asVector();
  view.twist = values.real();
  view.height = values.real();
  view.center = values.pair();
  view.lens = values.real();
  view.frontClip = values.real();
  view.backClip = values.real();
  const OdInt64 mode = values.integer();
  view.circleZoom = values.integer();
  view.flags = flagsOf(mode, values);
  view.snapAngle = values.real();
  view.snapBase = values.pair();
  view.snapSpacing = values.pair();
  view.gridSpacing = values.pair();
  if (values.integer() != 0) view.flags |= kHiddenLinesRemoved;
  view.frozenLayers = values.layers();
  return view;
}
