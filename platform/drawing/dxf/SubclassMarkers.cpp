#include "SubclassMarkers.h"
#include <algorithm>
#include <iterator>
#include <span>

namespace {

constexpr int kMarkerCode = 100;
constexpr int kFlagsCode = 70;
constexpr int kFirstXDataCode = 1001;

/// A section of a record: its marker and the codes that go there. The one without codes takes what no other
/// wants; when several have none, the last.
struct Section {
  const char* marker;
  std::span<const int> codes = {};
};
using Sections = std::vector<Section>;

constexpr int kCommon[] = {67, 410, 8, 6, 347, 62, 370, 48, 60, 284, 380, 390, 420, 430, 440};
constexpr int kVertical[] = {73};
constexpr int kAttribute[] = {2, 70, 73, 74};
constexpr int kDefinition[] = {3, 2, 70, 73, 74};
constexpr int kAngles[] = {50, 51};
constexpr int kMeasured[] = {12, 22, 32, 13, 23, 33, 14, 24, 34, 15, 25, 35, 16, 26, 36, 40, 50, 52};

struct PlainRecord {
  std::string_view name;
  const char* marker;
};
/// Records with a single section of their own.
constexpr PlainRecord kPlain[] = {
    {"LINE", "AcDbLine"},         {"POINT", "AcDbPoint"},      {"CIRCLE", "AcDbCircle"},
    {"TRACE", "AcDbTrace"},       {"SOLID", "AcDbTrace"},      {"3DFACE", "AcDbFace"},
    {"SHAPE", "AcDbShape"},       {"BLOCK", "AcDbBlockBegin"}, {"ENDBLK", "AcDbBlockEnd"},
    {"VIEWPORT", "AcDbViewport"}, {"3DLINE", "AcDbLine"},
};
constexpr PlainRecord kTableRecords[] = {
    {"LAYER", "AcDbLayerTableRecord"},
    {"LTYPE", "AcDbLinetypeTableRecord"},
    {"STYLE", "AcDbTextStyleTableRecord"},
    {"VIEW", "AcDbViewTableRecord"},
    {"UCS", "AcDbUCSTableRecord"},
    {"VPORT", "AcDbViewportTableRecord"},
    {"APPID", "AcDbRegAppTableRecord"},
    {"DIMSTYLE", "AcDbDimStyleTableRecord"},
    {"BLOCK_RECORD", "AcDbBlockTableRecord"},
};

const char* markerOf(std::span<const PlainRecord> records, std::string_view name) {
  for (const PlainRecord& record : records)
    if (record.name == name) return record.marker;
  return nullptr;
}

int integerOf(const OdDbGroupList& groups, int code) {
  for (const OdDbGroup& group : groups.items)
    if (group.code == code && group.kind == OdDbGroupKind::kInteger) return static_cast<int>(group.integer);
  return 0;
}

int flagsOf(const OdDbStub* stub) { return stub ? integerOf(*stub->content(), kFlagsCode) : 0; }

enum PolylineBit { k3dPolyline = 8, kMesh = 16, kFaces = 64 };

const char* polylineMarker(int flags) {
  if (flags & k3dPolyline) return "AcDb3dPolyline";
  if (flags & kMesh) return "AcDbPolygonMesh";
  return flags & kFaces ? "AcDbPolyFaceMesh" : "AcDb2dPolyline";
}

/// What a vertex is follows from its polyline; in a mesh of faces there are two kinds.
Sections vertexSections(int polyline, int vertex) {
  constexpr int kMeshVertex = 64;
  if (polyline & k3dPolyline) return {{"AcDbVertex"}, {"AcDb3dPolylineVertex"}};
  if (polyline & kMesh) return {{"AcDbVertex"}, {"AcDbPolygonMeshVertex"}};
  if (!(polyline & kFaces)) return {{"AcDbVertex"}, {"AcDb2dVertex"}};
  if (vertex & kMeshVertex) return {{"AcDbVertex"}, {"AcDbPolyFaceMeshVertex"}};
  return {{"AcDbFaceRecord"}};
}

Sections dimensionSections(int flags) {
  constexpr int kKindMask = 7;
  constexpr const char* kKinds[] = {"AcDbAlignedDimension",      "AcDbAlignedDimension",
                                    "AcDb2LineAngularDimension", "AcDbDiametricDimension",
                                    "AcDbRadialDimension",       "AcDb3PointAngularDimension",
                                    "AcDbOrdinateDimension",     "AcDbAlignedDimension"};
  Sections sections = {{"AcDbDimension"}, {kKinds[flags & kKindMask], kMeasured}};
  static constexpr int kNoCode[] = {0};
  if ((flags & kKindMask) == 0) sections.push_back({"AcDbRotatedDimension", kNoCode});
  return sections;
}

bool isArray(const OdDbGroupList& groups) { return integerOf(groups, 70) > 1 || integerOf(groups, 71) > 1; }

Sections ownSections(const OdDbStub& stub, const OdDbGroupList& groups) {
  const std::string& name = stub.dxfName();
  if (name == "TEXT") return {{"AcDbText"}, {"AcDbText", kVertical}};
  if (name == "ATTRIB") return {{"AcDbText"}, {"AcDbAttribute", kAttribute}};
  if (name == "ATTDEF") return {{"AcDbText"}, {"AcDbAttributeDefinition", kDefinition}};
  if (name == "ARC") return {{"AcDbCircle"}, {"AcDbArc", kAngles}};
  if (name == "INSERT") return {{isArray(groups) ? "AcDbMInsertBlock" : "AcDbBlockReference"}};
  if (name == "POLYLINE") return {{polylineMarker(integerOf(groups, kFlagsCode))}};
  if (name == "VERTEX") return vertexSections(flagsOf(stub.owner), integerOf(groups, kFlagsCode));
  if (name == "DIMENSION") return dimensionSections(integerOf(groups, kFlagsCode));
  const char* marker = markerOf(kPlain, name);
  return marker ? Sections{{marker}} : Sections{};
}

Sections sectionsOf(const OdDbStub& stub, const OdDbGroupList& groups) {
  if (stub.dxfName() == "TABLE") return {{"AcDbSymbolTable"}};
  if (const char* marker = markerOf(kTableRecords, stub.dxfName()))
    return {{"AcDbSymbolTableRecord"}, {marker}};
  if (!(stub.flags & OdDbStub::kEntity)) return {};
  Sections sections = ownSections(stub, groups);
  if (sections.empty()) return {{"AcDbEntity"}};
  sections.insert(sections.begin(), {"AcDbEntity", kCommon});
  return sections;
}

/// The section that a group goes to.
std::size_t placeOf(const Sections& sections, int code) {
  std::size_t rest = 0;
  for (std::size_t i = 0; i < sections.size(); ++i) {
    const std::span<const int> codes = sections[i].codes;
    if (std::find(codes.begin(), codes.end(), code) != codes.end()) return i;
    if (codes.empty()) rest = i;
  }
  return rest;
}

/// Index of the first group behind what stands before all markers: identity, braces, and a table's name.
int behindIdentity(const OdDbStub& stub, const OdDbGroupList& groups) {
  constexpr int kBraceCode = 102;
  constexpr int kNameCode = 2;
  int at = 0;
  bool inBraces = false;
  for (; at < groups.size(); ++at) {
    const OdDbGroup& group = groups[at];
    if (group.code == kBraceCode)
      inBraces = !inBraces;
    else if (!inBraces && !group.isIdentity() && !(group.code == kNameCode && stub.dxfName() == "TABLE"))
      break;
  }
  return at;
}

} // namespace

void dxfAddMarkers(const OdDbStub& stub, OdDbGroupList& groups) {
  const auto isMarker = [](const OdDbGroup& group) { return group.code == kMarkerCode; };
  if (std::any_of(groups.items.begin(), groups.items.end(), isMarker)) return;
  const Sections sections = sectionsOf(stub, groups);
  if (sections.empty()) return;
  const auto begin = groups.items.begin() + behindIdentity(stub, groups);
  const auto end = std::find_if(begin, groups.items.end(),
                                [](const OdDbGroup& group) { return group.code >= kFirstXDataCode; });
  std::vector<std::vector<OdDbGroup>> sorted(sections.size());
  for (auto at = begin; at != end; ++at) sorted[placeOf(sections, at->code)].push_back(*at);
  std::vector<OdDbGroup> result(groups.items.begin(), begin);
  for (std::size_t i = 0; i < sections.size(); ++i) {
    result.push_back(OdDbGroup::ofBytes(kMarkerCode, sections[i].marker));
    std::move(sorted[i].begin(), sorted[i].end(), std::back_inserter(result));
  }
  result.insert(result.end(), end, groups.items.end());
  groups.items = std::move(result);
}
