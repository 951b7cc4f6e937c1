#pragma once
#include "DbEntity.h"
#include "PlanProbe.h"
#include <memory>
#include <vector>

namespace host {

/// What can be seen of an entity that contains no others.
class Figure {
public:
  /// `entity` must outlive the figure and not change. What the library does not know is the box around the
  /// points that it stores.
  explicit Figure(const OdDbEntity& entity);
  /// The bottom of a box as an area.
  static Figure ofBox(const OdGeExtents3d& box);

  /// In the coordinates of what contains the entity; empty for a figure without ends or without parts.
  OdGeExtents3d extents() const;
  /// Gives the parts to a probe; `toPlan` is for the coordinates of what contains the entity.
  void show(PlanProbe& probe, const OdGeMatrix3d& toPlan) const;

private:
  Figure() = default;
  enum class Kind { lines, area, text };
  using Points = std::vector<OdGePoint3d>;

  void readUnknown(const OdDbEntity& entity);
  void add(std::unique_ptr<OdGeCurve3d> edge);
  void addPolygon(const Points& corners, bool isClosed = true);
  void addBox(const OdGeExtents3d& box);
  /// A text, by its box in the directions of its lines.
  template <class Text>
  void addText(const Text& text);

  Kind m_kind = Kind::lines;
  OdGeMatrix3d m_placement; ///< of edges and points
  std::vector<const OdGeCurve3d*> m_edges;
  std::vector<std::unique_ptr<OdGeCurve3d>> m_own; ///< edges that the entity does not hold
  Points m_points;
};

} // namespace host
