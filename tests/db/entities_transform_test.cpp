// What transformations make of texts, references and curves, checked against the geometry that they stand
// for.
#include "DbArc.h"
#include "DbAttribute.h"
#include "DbAttributeDefinition.h"
#include "DbBlockReference.h"
#include "DbLine.h"
#include "DbMText.h"
#include "DbPoint.h"
#include "Ge/GePlane.h"
#include "tables_drawing.h"
#include <cmath>
#include <gmock/gmock.h>

namespace {

MATCHER_P(Near3d, expected, "") { return arg.distanceTo(expected) < 1e-8; }

OdGeMatrix3d mirror(const OdGeVector3d& normal) {
  return OdGeMatrix3d::mirroring(OdGePlane(OdGePoint3d(3, 1, 0), normal));
}
OdGeMatrix3d turn(double angle, const OdGeVector3d& axis) {
  return OdGeMatrix3d::rotation(angle, axis, OdGePoint3d(1, 2, 0));
}
OdGeMatrix3d stretch(double x, double y, double z) { return OdGeMatrix3d::scaling(OdGeScale3d(x, y, z)); }

struct Transform {
  const char* name;
  OdGeMatrix3d matrix;
};
std::vector<Transform> transforms() {
  const OdGeVector3d oblique = OdGeVector3d(1, 2, 3).normalize();
  return {{"move", OdGeMatrix3d::translation(OdGeVector3d(5, -7, 2))},
          {"turn", turn(0.7, OdGeVector3d::kZAxis)},
          {"tilt", turn(1.1, oblique)},
          {"turn over", turn(OdaPI, OdGeVector3d::kXAxis)},
          {"mirror left and right", mirror(OdGeVector3d::kXAxis)},
          {"mirror top and bottom", mirror(OdGeVector3d::kYAxis)},
          {"mirror through the plane", mirror(OdGeVector3d::kZAxis)},
          {"mirror at a tilted plane", mirror(oblique)},
          {"point reflection", OdGeMatrix3d::mirroring(OdGePoint3d(1, 1, 1))},
          {"scale", stretch(2.5, 2.5, 2.5)},
          {"stretch", stretch(3, 2, 1)},
          {"stretch and mirror", stretch(-3, 2, 1)},
          {"stretch a tilted one", stretch(1, 1, 4) * turn(0.5, oblique) * stretch(2, 1, 1)}};
}

/// The axes that drawing files give to a normal, by their arbitrary axis rule.
OdGeMatrix3d planeAxes(const OdGeVector3d& n) {
  const bool nearZ = std::fabs(n.x) < 1.0 / 64 && std::fabs(n.y) < 1.0 / 64;
  const OdGeVector3d x = (nearZ ? OdGeVector3d::kYAxis : OdGeVector3d::kZAxis).crossProduct(n).normal();
  return OdGeMatrix3d().setCoordSystem(OdGePoint3d(), x, n.crossProduct(x).normal(), n);
}

/// Where a place of a letter (in units of its height, from the start of the base line) lies: slanted,
/// mirrored, scaled, turned, in this order.
OdGePoint3d letter(const OdDbText& text, double x, double y) {
  const double across =
      (text.isMirroredInX() ? -1 : 1) * (x * text.widthFactor() + y * std::tan(text.oblique()));
  const double up = text.isMirroredInY() ? -y : y;
  const double c = std::cos(text.rotation());
  const double s = std::sin(text.rotation());
  const OdGeVector3d flat = OdGeVector3d(across * c - up * s, across * s + up * c, 0) * text.height();
  return text.position() + planeAxes(text.normal()) * flat;
}

TEST(TextTransform, LettersGoWhereTheMatrixTakesThem) {
  for (const auto& [name, matrix] : transforms()) {
    for (const bool backwards : {false, true}) {
      for (const bool upsideDown : {false, true}) {
        SCOPED_TRACE(testing::Message() << name << backwards << upsideDown);
        const OdDbTextPtr text = OdDbText::createObject();
        text->setNormal(OdGeVector3d(0, 0.6, 0.8));
        text->setPosition(OdGePoint3d(4, 5, 6));
        text->setAlignmentPoint(OdGePoint3d(5, 5, 6));
        text->setRotation(0.4);
        text->setHeight(2);
        text->setWidthFactor(0.8);
        text->setOblique(0.2);
        text->mirrorInX(backwards);
        text->mirrorInY(upsideDown);
        std::vector<OdGePoint3d> wanted;
        for (const auto& [x, y] : {std::pair(0.0, 0.0), {3.0, 0.0}, {0.0, 1.0}, {2.0, 1.0}})
          wanted.push_back(matrix * letter(*text, x, y));
        ASSERT_EQ(text->transformBy(matrix), eOk);
        EXPECT_THAT(letter(*text, 0, 0), Near3d(wanted[0]));
        EXPECT_THAT(letter(*text, 3, 0), Near3d(wanted[1]));
        EXPECT_THAT(letter(*text, 0, 1), Near3d(wanted[2]));
        EXPECT_THAT(letter(*text, 2, 1), Near3d(wanted[3]));
        EXPECT_THAT(text->alignmentPoint(), Near3d(matrix * OdGePoint3d(5, 5, 6)));
      }
    }
  }
}

TEST(TextTransform, MirroredTextFacesTheSideItFacedAndRunsBackwards) {
  const OdDbTextPtr text = OdDbText::createObject();
  text->setPosition(OdGePoint3d(10, 0, 0));
  text->transformBy(mirror(OdGeVector3d::kXAxis));
  EXPECT_TRUE(text->isMirroredInX());
  EXPECT_EQ(text->normal(), OdGeVector3d::kZAxis);
  EXPECT_EQ(text->rotation(), 0);
  EXPECT_EQ(text->position(), OdGePoint3d(-4, 0, 0));
}

TEST(TextTransform, RefusedMatrixLeavesTheTextAsItWas) {
  const OdDbTextPtr text = OdDbText::createObject();
  text->setPosition(OdGePoint3d(10, 0, 0));
  EXPECT_EQ(text->transformBy(stretch(1, 0, 1)), eNonInvertibleMatrix);
  EXPECT_EQ(text->position(), OdGePoint3d(10, 0, 0));
  EXPECT_EQ(text->height(), 1);
}

TEST(MTextTransform, MirroredLinesStayReadableAndCoverTheMirroredPlace) {
  struct Case {
    const char* name;
    OdGeMatrix3d matrix;
    OdDbMText::AttachmentPoint attachment;
    OdGeVector3d direction;
    double height;
    double width;
  };
  const Case cases[] = {
      {"left and right", mirror(OdGeVector3d::kXAxis), OdDbMText::kTopRight, {1, 0, 0}, 1, 10},
      {"top and bottom", mirror(OdGeVector3d::kYAxis), OdDbMText::kBottomLeft, {1, 0, 0}, 1, 10},
      {"turned", turn(OdaPI2, OdGeVector3d::kZAxis), OdDbMText::kTopLeft, {0, 1, 0}, 1, 10},
      {"stretched", stretch(3, 2, 1), OdDbMText::kTopLeft, {1, 0, 0}, 2, 30},
      {"tilted", turn(OdaPI2, OdGeVector3d::kXAxis), OdDbMText::kTopLeft, {1, 0, 0}, 1, 10},
  };
  for (const Case& expected : cases) {
    SCOPED_TRACE(expected.name);
    const OdDbMTextPtr text = OdDbMText::createObject();
    text->setLocation(OdGePoint3d(5, 6, 0));
    text->setWidth(10);
    ASSERT_EQ(text->transformBy(expected.matrix), eOk);
    EXPECT_EQ(text->attachment(), expected.attachment);
    EXPECT_EQ(text->direction(), expected.direction);
    EXPECT_NEAR(text->textHeight(), expected.height, 1e-9);
    EXPECT_NEAR(text->width(), expected.width, 1e-9);
    EXPECT_THAT(text->location(), Near3d(expected.matrix * OdGePoint3d(5, 6, 0)));
  }
}

TEST(MTextDirection, LaterOfVectorAndAngleCounts) {
  SmallDrawing drawing;
  const OdDbObjectId space = drawing.db->getModelSpaceId();
  const auto direction = [&](std::initializer_list<SmallDrawing::Group> groups) {
    return OdDbMTextPtr(drawing.addRaw("MTEXT", space, groups).safeOpenObject())->direction();
  };
  EXPECT_EQ(direction({{100, "AcDbMText"}}), OdGeVector3d::kXAxis);
  EXPECT_EQ(direction({{100, "AcDbMText"}, {50, 90.0}}), OdGeVector3d::kYAxis);
  EXPECT_EQ(direction({{100, "AcDbMText"}, {50, 90.0}, {11, -1.0}, {21, 0.0}, {31, 0.0}}),
            -OdGeVector3d::kXAxis);
  EXPECT_EQ(direction({{100, "AcDbMText"}, {11, -1.0}, {21, 0.0}, {31, 0.0}, {50, 90.0}}),
            OdGeVector3d::kYAxis);
}

TEST(ReferenceTransform, BlockTransformIsThatOfBothOrRefused) {
  SmallDrawing drawing;
  const OdDbObjectId block = drawing.addBlock(L"DOOR");
  drawing.block(block)->setOrigin(OdGePoint3d(1, 1, 0));
  for (const auto& [name, matrix] : transforms()) {
    SCOPED_TRACE(name);
    const OdDbBlockReferencePtr reference =
        drawing.addReference(drawing.db->getModelSpaceId(), "DOOR").safeOpenObject(OdDb::kForWrite);
    reference->setPosition(OdGePoint3d(4, 5, 6));
    reference->setScaleFactors(OdGeScale3d(-2, 3, 0.5));
    reference->setRotation(0.5);
    const OdDbAttributePtr attribute = OdDbAttribute::createObject();
    attribute->setPosition(OdGePoint3d(4, 6, 6));
    reference->appendAttribute(attribute);
    const OdGeMatrix3d wanted = matrix * reference->blockTransform();
    const bool slants = std::string_view(name).starts_with("stretch");
    EXPECT_EQ(reference->transformBy(matrix), slants ? eCannotScaleNonUniformly : eOk);
    if (slants) continue;
    EXPECT_TRUE(reference->blockTransform().isEqualTo(wanted, OdGeTol(1e-8)));
    EXPECT_THAT(attribute->position(), Near3d(matrix * OdGePoint3d(4, 6, 6)));

    EXPECT_EQ(reference->setBlockTransform(wanted), eOk);
    EXPECT_TRUE(reference->blockTransform().isEqualTo(wanted, OdGeTol(1e-8)));
  }
}

TEST(ReferenceTransform, StretchAlongTheAxesIsTaken) {
  const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
  reference->setRotation(OdaPI2);
  reference->setNumColumns(3);
  reference->setColumnSpacing(10);
  EXPECT_EQ(reference->transformBy(stretch(3, 2, 1)), eOk);
  EXPECT_EQ(reference->scaleFactors(), OdGeScale3d(2, 3, 1));
  EXPECT_NEAR(reference->columnSpacing(), 20, 1e-12);
  EXPECT_EQ(reference->transformBy(mirror(OdGeVector3d::kXAxis)), eOk);
  EXPECT_EQ(reference->scaleFactors(), OdGeScale3d(-2, 3, 1));
  EXPECT_NEAR(reference->columnSpacing(), -20, 1e-12);
}

TEST(CurveTransform, ArcsKeepTheirEndsAndRefuseToBecomeEllipses) {
  for (const auto& [name, matrix] : transforms()) {
    SCOPED_TRACE(name);
    const OdDbArcPtr arc = OdDbArc::createObject();
    arc->setCenter(OdGePoint3d(1, 2, 3));
    arc->setRadius(2);
    arc->setStartAngle(0.3);
    arc->setEndAngle(2);
    const OdGePoint3d start = matrix * arc->startPoint();
    const OdGePoint3d end = matrix * arc->endPoint();
    const bool stretches = std::string_view(name).starts_with("stretch");
    ASSERT_EQ(arc->transformBy(matrix), stretches ? eCannotScaleNonUniformly : eOk);
    if (stretches) continue;
    const bool swapped = arc->startPoint().distanceTo(end) < 1e-8;
    EXPECT_THAT(arc->startPoint(), Near3d(swapped ? end : start));
    EXPECT_THAT(arc->endPoint(), Near3d(swapped ? start : end));
    EXPECT_NEAR(std::remainder(arc->endAngle() - arc->startAngle() - 1.7, Oda2PI), 0, 1e-8);
    EXPECT_THAT(arc->center(), Near3d(matrix * OdGePoint3d(1, 2, 3)));
  }
}

TEST(CurveTransform, PointsAndLinesTakeEveryMatrix) {
  for (const auto& [name, matrix] : transforms()) {
    SCOPED_TRACE(name);
    const OdDbLinePtr line = OdDbLine::createObject();
    line->setEndPoint(OdGePoint3d(1, 2, 3));
    line->setThickness(2);
    EXPECT_EQ(line->transformBy(matrix), eOk);
    EXPECT_THAT(line->startPoint(), Near3d(matrix * OdGePoint3d()));
    EXPECT_THAT(line->endPoint(), Near3d(matrix * OdGePoint3d(1, 2, 3)));
    EXPECT_TRUE(
        (line->normal() * line->thickness()).isEqualTo(matrix * OdGeVector3d(0, 0, 2), OdGeTol(1e-8)));
    const OdDbPointPtr point = OdDbPoint::createObject();
    point->setPosition(OdGePoint3d(1, 2, 3));
    EXPECT_EQ(point->transformBy(matrix), eOk);
    EXPECT_THAT(point->position(), Near3d(matrix * OdGePoint3d(1, 2, 3)));
  }
}

TEST(CurveExtents, ArcReachesOnlyWhatItCovers) {
  const OdDbArcPtr arc = OdDbArc::createObject();
  arc->setRadius(2);
  arc->setStartAngle(OdaPI / 4);
  arc->setEndAngle(OdaPI);
  OdGeExtents3d box;
  ASSERT_EQ(arc->getGeomExtents(box), eOk);
  EXPECT_THAT(box.minPoint(), Near3d(OdGePoint3d(-2, 0, 0)));
  EXPECT_THAT(box.maxPoint(), Near3d(OdGePoint3d(std::sqrt(2.0), 2, 0)));
}

TEST(Normals, SettingOneLeavesPlacesWhereTheyAre) {
  const OdGeVector3d down(0, 0, -1);
  const OdDbTextPtr text = OdDbText::createObject();
  text->setPosition(OdGePoint3d(1, 2, 3));
  text->setNormal(down);
  EXPECT_EQ(text->position(), OdGePoint3d(1, 2, 3));
  const OdDbCirclePtr circle = OdDbCircle::createObject();
  circle->setCenter(OdGePoint3d(1, 2, 3));
  circle->setNormal(down);
  EXPECT_EQ(circle->center(), OdGePoint3d(1, 2, 3));
  // Seen from below, files count X to the other side.
  const int at = odDbGroups::find(circle->groups(), *circle->schema()[1], 10);
  EXPECT_EQ(circle->groups()[at].real, -1);
}

} // namespace
