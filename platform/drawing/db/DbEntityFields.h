#pragma once
#include "DbEntity.h"
#include <vector>

/// The groups of an entity behind those that all entities share, without extended data and embedded records:
/// how to look at entities that the library has no class for. The object must outlive this and not change.
class OdDbEntityFields {
public:
  explicit OdDbEntityFields(const OdDbObject& object);

  const OdDbGroup* begin() const { return m_begin; }
  const OdDbGroup* end() const { return m_end; }
  /// The first group with this code behind (or at) `from`, or end().
  const OdDbGroup* find(int code, const OdDbGroup* from) const;
  bool has(int code) const { return find(code, m_begin) != m_end; }
  double real(int code, double fallback = 0) const;
  /// Never outside the range of int.
  int integer(int code, int fallback = 0) const;
  OdString text(int code) const;
  OdGePoint3d point(int code) const;
  std::vector<OdGePoint3d> points(int code) const;
  std::vector<double> reals(int code) const;
  /// The direction of extrusion (210), the Z axis where there is none.
  OdGeVector3d normal() const;
  /// The point whose first coordinate is the group; coordinates that do not follow it are 0.
  OdGePoint3d pointAt(const OdDbGroup* group) const;
  const OdDbGroupList& list() const { return m_list; }

private:
  const OdDbGroupList& m_list;
  const OdDbGroup* m_begin;
  const OdDbGroup* m_end;
};

/// The value of an integer group within the range of int; 0 for groups of other kinds.
int odDbIntegerOf(const OdDbGroup& group);
