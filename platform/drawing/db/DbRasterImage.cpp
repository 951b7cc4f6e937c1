#include "DbRasterImage.h"
#include "DbWipeout.h"
#include "Ge/GePlane.h"
#include <cmath>

ODRX_CONS_DEFINE_MEMBERS(OdDbRasterImage, OdDbEntity, "IMAGE")
ODRX_CONS_DEFINE_MEMBERS(OdDbWipeout, OdDbRasterImage, "WIPEOUT")

namespace {

enum Code {
  kClassVersion = 90,
  kOrigin = 10,
  kUPixel = 11,
  kVPixel = 12,
  kSize = 13,
  kDefinition = 340,
  kDisplay = 70,
  kIsClipped = 280,
  kBrightness = 281,
  kContrast = 282,
  kFade = 283,
  kReactor = 360,
  kClipType = 71,
  kClipCount = 91,
  kClipX = 14,
  kClipY = 24,
};
enum ClipType { kRectangle = 1, kPolygon = 2 };
constexpr int kUsualDisplay =
    OdDbRasterImage::kShow | OdDbRasterImage::kShowUnAligned | OdDbRasterImage::kClip;

constexpr OdDbField kFields[] = {
    {kClassVersion, OdDbFieldKind::kInt32, true},
    {kOrigin, OdDbFieldKind::kPoint3d, true},
    {kUPixel, OdDbFieldKind::kDirection, true, 1},
    {kVPixel, OdDbFieldKind::kVector3d, true},
    {kSize, OdDbFieldKind::kPoint2d, true},
    {kDefinition, OdDbFieldKind::kObjectId, true},
    {kDisplay, OdDbFieldKind::kInt16, true, kUsualDisplay},
    {kIsClipped, OdDbFieldKind::kInt16, true, 1},
    {kBrightness, OdDbFieldKind::kInt16, true, 50},
    {kContrast, OdDbFieldKind::kInt16, true, 50},
    {kFade, OdDbFieldKind::kInt16, true},
    {kReactor, OdDbFieldKind::kObjectId, true},
    {kClipType, OdDbFieldKind::kInt16, true, kPolygon},
    {kClipCount, OdDbFieldKind::kInt32, true},
};
const OdDbSubclass kImageSection{"AcDbRasterImage", kFields};
// Some programs write wipeouts under the marker of what they are like.
const OdDbSubclass kWipeoutSection{"AcDbWipeout", kFields, "AcDbRasterImage"};

/// Perpendicular to the plane that suits all points of a polygon; its length is twice the area. M. Newell's
/// method.
OdGeVector3d areaVector(const OdGePoint3dArray& points) {
  OdGeVector3d sum;
  for (unsigned int i = 0; i < points.size(); ++i)
    sum += (points[i] - points[0]).crossProduct(points[(i + 1) % points.size()] - points[0]);
  return sum;
}

bool isFinite(const OdGePoint3d& p) { return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z); }

} // namespace

OdDbSchema OdDbRasterImage::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kImageSection};
  return sections;
}
OdDbSchema OdDbWipeout::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kWipeoutSection};
  return sections;
}
const OdDbSubclass& OdDbRasterImage::section() const { return kImageSection; }
const OdDbSubclass& OdDbWipeout::section() const { return kWipeoutSection; }

bool OdDbRasterImage::isSetDisplayOpt(ImageDisplayOpt option) const {
  return flag(section(), kDisplay, option) && (option != kClip || integer(section(), kIsClipped) != 0);
}

void OdDbRasterImage::setDisplayOpt(ImageDisplayOpt option, bool on) {
  setFlag(section(), kDisplay, option, on);
  if (option == kClip) setInteger(section(), kIsClipped, on ? 1 : 0);
}

OdResult OdDbWipeout::setBoundary(const OdGePoint3dArray& given) {
  assertWriteEnabled();
  OdGePoint3dArray points = given;
  for (const OdGePoint3d& point : points)
    if (!isFinite(point)) return eInvalidInput;
  while (points.size() > 1 && points.last() == points.first()) points.removeLast();
  OdGeVector3d normal = points.size() < 3 ? OdGeVector3d() : areaVector(points);
  OdGeExtents3d around;
  for (const OdGePoint3d& point : points) around.addPoint(point);
  const double size = points.isEmpty() ? 0 : (around.maxPoint() - around.minPoint()).length();
  constexpr double kThin = 1e-12;
  if (!(normal.length() > kThin * size * size)) return eDegenerateGeometry;
  if (normal.z < 0) normal.negate(); // seen from above, as the XY plane of the world is
  const OdGePlane plane(points[0], normal);
  const OdGeMatrix3d toPlane = OdGeMatrix3d::worldToPlane(plane);
  OdGeExtents3d box;
  for (OdGePoint3d& point : points) {
    point = toPlane * point;
    point.z = 0;
    box.addPoint(point);
  }
  const OdGePoint3d low = box.minPoint();
  const double width = box.maxPoint().x - low.x;
  const double height = box.maxPoint().y - low.y;
  const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(plane);
  setPoint(section(), kOrigin, toWorld * low);
  setVector(section(), kUPixel, toWorld.getCsXAxis() * width);
  setVector(section(), kVPixel, toWorld.getCsYAxis() * height);
  setReal(section(), kSize, 1);
  setReal(section(), kSize + 10, 1);
  setInteger(section(), kClipType, kPolygon);
  setInteger(section(), kClipCount, points.size() + 1);
  // The middle of the only pixel is the origin; rows count downwards.
  points.append(OdGePoint3d(points.first()));
  std::vector<OdDbGroup> added;
  for (const OdGePoint3d& point : points) {
    added.push_back(OdDbGroup::ofReal(kClipX, (point.x - low.x) / width - 0.5));
    added.push_back(OdDbGroup::ofReal(kClipY, 0.5 - (point.y - low.y) / height));
  }
  OdDbGroupList& list = mutableGroups();
  std::erase_if(list.items,
                [](const OdDbGroup& group) { return group.code == kClipX || group.code == kClipY; });
  const int at = odDbGroups::find(list, section(), kClipCount) + 1;
  list.items.insert(list.items.begin() + at, added.begin(), added.end());
  return eOk;
}

void OdDbRasterImage::getOrientation(OdGePoint3d& origin, OdGeVector3d& u, OdGeVector3d& v) const {
  const OdGePoint3d pixels = point(section(), kSize);
  origin = point(section(), kOrigin);
  u = vector(section(), kUPixel) * pixels.x;
  v = vector(section(), kVPixel) * pixels.y;
}

void OdDbRasterImage::outline(OdGePoint3dArray& points) const {
  const OdGePoint3d pixels = point(section(), kSize);
  OdGePoint3dArray clip; // in pixels
  if (isSetDisplayOpt(kClip))
    for (int at = odDbGroups::find(groups(), section(), kClipX);
         at >= 0 && at + 1 < groups().size() && groups()[at].code == kClipX &&
         groups()[at + 1].code == kClipY;
         at += 2)
      clip.append({groups()[at].real, groups()[at + 1].real, 0});
  if (clip.size() == 2 && integer(section(), kClipType) == kRectangle)
    clip = {clip[0], {clip[1].x, clip[0].y, 0}, clip[1], {clip[0].x, clip[1].y, 0}};
  if (clip.size() < 3) {
    const double right = pixels.x - 0.5;
    const double bottom = pixels.y - 0.5;
    clip = {{-0.5, -0.5, 0}, {right, -0.5, 0}, {right, bottom, 0}, {-0.5, bottom, 0}};
  }
  if (!(clip.last() == clip.first())) clip.append(OdGePoint3d(clip.first()));
  const OdGePoint3d origin = point(section(), kOrigin);
  const OdGeVector3d u = vector(section(), kUPixel);
  const OdGeVector3d v = vector(section(), kVPixel);
  points.clear();
  for (const OdGePoint3d& pixel : clip)
    points.append(origin + u * (pixel.x + 0.5) + v * (pixels.y - pixel.y - 0.5));
}

OdResult OdDbRasterImage::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eNonInvertibleMatrix;
  setPoint(section(), kOrigin, matrix * point(section(), kOrigin));
  setVector(section(), kUPixel, matrix * vector(section(), kUPixel));
  setVector(section(), kVPixel, matrix * vector(section(), kVPixel));
  return eOk;
}

OdResult OdDbRasterImage::getGeomExtents(OdGeExtents3d& extents) const {
  OdGePoint3dArray points;
  outline(points);
  extents = OdGeExtents3d();
  for (const OdGePoint3d& point : points) extents.addPoint(point);
  return extents.isValidExtents() ? eOk : eInvalidExtents;
}
