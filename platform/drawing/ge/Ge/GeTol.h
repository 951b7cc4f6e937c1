#pragma once

/// How far apart two points or two vectors may lie and still count as equal. Drawing units for points; for
/// directions the length of the difference of the unit vectors, which for small angles is the angle.
class OdGeTol {
public:
  constexpr OdGeTol(double both = 1.e-10) : OdGeTol(both, both) {}
  constexpr OdGeTol(double equalPoint, double equalVector) : m_point(equalPoint), m_vector(equalVector) {}

  constexpr double equalPoint() const { return m_point; }
  constexpr double equalVector() const { return m_vector; }
  constexpr void setEqualPoint(double distance) { m_point = distance; }
  constexpr void setEqualVector(double distance) { m_vector = distance; }

private:
  double m_point;
  double m_vector;
};
