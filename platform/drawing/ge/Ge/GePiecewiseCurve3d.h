#pragma once
#include "GeCurve3d.h"
#include <vector>

/// A curve of pieces that follow each other. It knows its length up to each piece, so that a question costs
/// the logarithm of their number and one piece.
class OdGePiecewiseCurve3d : public OdGeCurve3d {
public:
  double startParam() const override { return m_joints.front().param; }
  double endParam() const override { return m_joints.back().param; }
  double lengthTo(double param) const override;
  double paramAtLength(double length) const override;
  double closestParam(const OdGePoint3d& point) const override;
  OdGeExtents3d extents() const override;
  std::size_t numPieces() const { return m_joints.size() - 1; }

protected:
  /// Where pieces meet. Lengths are of the curve up to there.
  struct Joint {
    double param;
    double length;
    OdGePoint3d point;
  };
  /// To be called once, by the constructor. Throws eDegenerateGeometry when the length is none.
  void setJoints(std::vector<Joint> joints);
  const Joint& joint(std::size_t index) const { return m_joints[index]; }
  /// The piece of a parameter; at a joint the one behind it, at the end the last.
  std::size_t pieceAt(double param) const;

  /// The length of a piece from its beginning to the parameter, and the inverse.
  virtual double lengthInPiece(std::size_t piece, double param) const = 0;
  virtual double paramInPiece(std::size_t piece, double length) const = 0;
  virtual double closestInPiece(std::size_t piece, const OdGePoint3d& point) const = 0;
  virtual OdGeExtents3d pieceExtents(std::size_t piece) const = 0;

private:
  struct Nearest;
  void buildBoxes() const;
  void search(std::size_t node, Nearest& nearest) const;

  std::vector<Joint> m_joints;
  /// Boxes of a binary tree over the pieces, the root first; made when somebody asks for the nearest point.
  mutable std::vector<OdGeExtents3d> m_boxes;
  mutable std::size_t m_leaves = 0;
};
