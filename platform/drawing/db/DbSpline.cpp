#include "DbSpline.h"
#include "Ge/GeNurbCurve3d.h"
#include <algorithm>

ODRX_CONS_DEFINE_MEMBERS(OdDbSpline, OdDbCurve, "SPLINE")

namespace {

enum Code {
  kNormal = 210,
  kFlags = 70,
  kDegree = 71,
  kKnotCount = 72,
  kControlCount = 73,
  kFitCount = 74,
  kKnotTolerance = 42,
  kControlTolerance = 43,
  kFitTolerance = 44,
  kStartTangent = 12,
  kEndTangent = 13,
  // as often as there are
  kKnot = 40,
  kWeight = 41,
  kControl = 10,
  kFit = 11,
};
enum FlagBit { kClosed = 1, kPeriodic = 2, kRational = 4, kPlanar = 8 };

constexpr OdDbField kFields[] = {
    {kNormal, OdDbFieldKind::kVector3d, false, 1},
    {kFlags, OdDbFieldKind::kInt16, true},
    {kDegree, OdDbFieldKind::kInt16, true, 3},
    {kKnotCount, OdDbFieldKind::kInt16, true},
    {kControlCount, OdDbFieldKind::kInt16, true},
    {kFitCount, OdDbFieldKind::kInt16, true},
    {kKnotTolerance, OdDbFieldKind::kReal, true, 1e-7},
    {kControlTolerance, OdDbFieldKind::kReal, true, 1e-7},
    {kFitTolerance, OdDbFieldKind::kReal, false, 1e-10},
    {kStartTangent, OdDbFieldKind::kVector3d},
    {kEndTangent, OdDbFieldKind::kVector3d},
};
const OdDbSubclass kSection{"AcDbSpline", kFields};

constexpr bool isRepeated(int code) {
  for (const int first : {kControl, kFit})
    if (code == first || code == first + 10 || code == first + 20) return true;
  return code == kKnot || code == kWeight;
}

/// Groups that belong to a section: from behind its marker to the next.
odDbGroups::Range sectionRange(const OdDbGroupList& groups) {
  const int end = odDbGroups::xDataStart(groups);
  int first = 0;
  while (first < end && !(groups[first].code == 100 && kSection.isMarker(groups[first].bytes()))) ++first;
  if (first == end) return {0, end};
  int last = ++first;
  while (last < end && groups[last].code != 100) ++last;
  return {first, last};
}

void appendPoint(std::vector<OdDbGroup>& groups, int code, const OdGePoint3d& point) {
  groups.push_back(OdDbGroup::ofReal(code, point.x));
  groups.push_back(OdDbGroup::ofReal(code + 10, point.y));
  groups.push_back(OdDbGroup::ofReal(code + 20, point.z));
}

void appendToSection(OdDbGroupList& list, const std::vector<OdDbGroup>& groups) {
  list.items.insert(list.items.begin() + sectionRange(list).last, groups.begin(), groups.end());
}

} // namespace

OdDbSchema OdDbSpline::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kSection};
  return sections;
}

// --- reading ---

std::vector<double> OdDbSpline::reals(int code) const {
  std::vector<double> values;
  const OdDbGroupList& list = groups();
  const auto [first, last] = sectionRange(list);
  for (int i = first; i < last; ++i)
    if (list[i].code == code && list[i].kind == OdDbGroupKind::kReal) values.push_back(list[i].real);
  return values;
}

std::vector<OdGePoint3d> OdDbSpline::points(int code) const {
  std::vector<OdGePoint3d> places;
  const OdDbGroupList& list = groups();
  const auto [first, last] = sectionRange(list);
  for (int i = first; i < last; ++i) {
    if (list[i].kind != OdDbGroupKind::kReal) continue;
    if (list[i].code == code) places.emplace_back(list[i].real, 0, 0);
    if (places.empty()) continue;
    if (list[i].code == code + 10) places.back().y = list[i].real;
    if (list[i].code == code + 20) places.back().z = list[i].real;
  }
  return places;
}

int OdDbSpline::degree() const { return integer(kSection, kDegree); }
bool OdDbSpline::isRational() const { return has(kSection, kWeight); }
unsigned int OdDbSpline::numControlPoints() const { return static_cast<unsigned>(points(kControl).size()); }
unsigned int OdDbSpline::numFitPoints() const { return static_cast<unsigned>(points(kFit).size()); }
OdGePoint3d OdDbSpline::getControlPointAt(unsigned int index) const { return pointAt(kControl, index); }
OdGePoint3d OdDbSpline::getFitPointAt(unsigned int index) const { return pointAt(kFit, index); }

OdGePoint3d OdDbSpline::pointAt(int code, unsigned int index) const {
  const std::vector<OdGePoint3d> all = points(code);
  if (index >= all.size()) throw OdError_InvalidIndex();
  return all[index];
}

void OdDbSpline::getNurbsData(int& degree, bool& rational, bool& closed, bool& periodic,
                              OdGePoint3dArray& controlPoints, OdGeDoubleArray& knots,
                              OdGeDoubleArray& weights) const {
  degree = this->degree();
  rational = isRational();
  closed = flag(kSection, kFlags, kClosed);
  periodic = flag(kSection, kFlags, kPeriodic);
  controlPoints.clear();
  knots.clear();
  weights.clear();
  for (const OdGePoint3d& point : points(kControl)) controlPoints.append(point);
  for (const double knot : reals(kKnot)) knots.append(knot);
  for (const double weight : reals(kWeight)) weights.append(weight);
}

std::unique_ptr<OdGeCurve3d> OdDbSpline::makeGeCurve() const {
  const std::vector<OdGePoint3d> controls = points(kControl);
  if (controls.empty())
    return OdGeNurbCurve3d::through(points(kFit), flag(kSection, kFlags, kClosed),
                                    vector(kSection, kStartTangent), vector(kSection, kEndTangent));
  return std::make_unique<OdGeNurbCurve3d>(degree(), reals(kKnot), controls, reals(kWeight),
                                           flag(kSection, kFlags, kPeriodic));
}

// --- changing ---

void OdDbSpline::clearCurve() {
  for (const int code : {kNormal, kFitTolerance, kStartTangent, kEndTangent}) removeField(kSection, code);
  OdDbGroupList& list = mutableGroups();
  const auto [first, last] = sectionRange(list);
  const auto isOld = [](const OdDbGroup& group) { return isRepeated(group.code); };
  list.items.erase(std::remove_if(list.items.begin() + first, list.items.begin() + last, isOld),
                   list.items.begin() + last);
}

void OdDbSpline::setNurbsData(int degree, bool rational, bool closed, bool periodic,
                              const OdGePoint3dArray& controlPoints, const OdGeDoubleArray& knots,
                              const OdGeDoubleArray& weights) {
  assertWriteEnabled();
  const std::vector<double> used =
      rational ? std::vector<double>(weights.begin(), weights.end()) : std::vector<double>();
  if (rational && used.empty()) throw OdError(eInvalidInput);
  const OdGeNurbCurve3d check(degree, {knots.begin(), knots.end()},
                              {controlPoints.begin(), controlPoints.end()}, used);
  clearCurve();
  setInteger(kSection, kFlags,
             (closed ? kClosed : 0) | (periodic ? kPeriodic : 0) | (rational ? kRational : 0));
  setInteger(kSection, kDegree, degree);
  setInteger(kSection, kKnotCount, knots.size());
  setInteger(kSection, kControlCount, controlPoints.size());
  setInteger(kSection, kFitCount, 0);
  std::vector<OdDbGroup> added;
  for (const double knot : knots) added.push_back(OdDbGroup::ofReal(kKnot, knot));
  for (const double weight : used) added.push_back(OdDbGroup::ofReal(kWeight, weight));
  for (const OdGePoint3d& point : controlPoints) appendPoint(added, kControl, point);
  appendToSection(mutableGroups(), added);
}

void OdDbSpline::setFitData(const OdGePoint3dArray& fitPoints, bool closed, const OdGeVector3d& startTangent,
                            const OdGeVector3d& endTangent) {
  assertWriteEnabled();
  OdGeNurbCurve3d::through({fitPoints.begin(), fitPoints.end()}, closed, startTangent, endTangent);
  clearCurve();
  setInteger(kSection, kFlags, closed ? kClosed : 0);
  setInteger(kSection, kDegree, 3);
  setInteger(kSection, kKnotCount, 0);
  setInteger(kSection, kControlCount, 0);
  setInteger(kSection, kFitCount, fitPoints.size());
  if (!startTangent.isZeroLength()) setVector(kSection, kStartTangent, startTangent.normal());
  if (!endTangent.isZeroLength()) setVector(kSection, kEndTangent, endTangent.normal());
  std::vector<OdDbGroup> added;
  for (const OdGePoint3d& point : fitPoints) appendPoint(added, kFit, point);
  appendToSection(mutableGroups(), added);
}

OdResult OdDbSpline::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eNonInvertibleMatrix;
  OdDbGroupList& list = mutableGroups();
  const auto [first, last] = sectionRange(list);
  for (int i = first; i + 2 < last; ++i) {
    const int code = list[i].code;
    const bool isPoint = code == kControl || code == kFit;
    const bool isVector = code == kStartTangent || code == kEndTangent;
    if ((!isPoint && !isVector) || list[i + 1].code != code + 10 || list[i + 2].code != code + 20) continue;
    OdGePoint3d moved(list[i].real, list[i + 1].real, list[i + 2].real);
    if (isPoint)
      moved.transformBy(matrix);
    else
      moved = OdGePoint3d::kOrigin + (matrix * moved.asVector());
    list[i].real = moved.x;
    list[i + 1].real = moved.y;
    list[i + 2].real = moved.z;
  }
  if (has(kSection, kNormal)) {
    const OdGeMatrix3d plane = OdGeMatrix3d(matrix).setTranslation({}).inverse().transpose();
    setVector(kSection, kNormal, (plane * vector(kSection, kNormal)).normal());
  }
  return eOk;
}
