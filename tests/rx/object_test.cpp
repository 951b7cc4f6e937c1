#include "RxObject.h"
#include <gmock/gmock.h>

// Not anonymous: nobody makes objects of every class here.
namespace rx_test {

static int s_alive = 0;

class Shape : public OdRxObject {
  ODRX_DECLARE_MEMBERS(Shape);

public:
  Shape() { ++s_alive; }
  ~Shape() override { --s_alive; }
};

class Disc : public Shape {
  ODRX_DECLARE_MEMBERS(Disc);
};

class Box : public Shape {
  ODRX_DECLARE_MEMBERS(Box);
};

// The children are registered before their parent, as happens across files.
ODRX_CONS_DEFINE_MEMBERS(Disc, Shape, "TESTDISC")
ODRX_CONS_DEFINE_MEMBERS(Box, Shape, "")
ODRX_NO_CONS_DEFINE_MEMBERS(Shape, OdRxObject)

TEST(ClassRegistry, FindsClassesByTheirExactNames) {
  EXPECT_EQ(odrxGetClassByName(L"Disc"), Disc::desc());
  EXPECT_EQ(odrxGetClassByDxfName("TESTDISC"), Disc::desc());
  EXPECT_EQ(odrxGetClassByName(L"OdRxObject"), OdRxObject::desc());
  EXPECT_EQ(odrxGetClassByName(L"disc"), nullptr);
  EXPECT_EQ(odrxGetClassByDxfName("TestDisc"), nullptr);
  EXPECT_EQ(odrxGetClassByDxfName(""), nullptr);
  EXPECT_TRUE(Disc::desc()->isDerivedFrom(Shape::desc()));
  EXPECT_TRUE(Disc::desc()->isDerivedFrom(OdRxObject::desc()));
  EXPECT_FALSE(Shape::desc()->isDerivedFrom(Disc::desc()));
  EXPECT_FALSE(Disc::desc()->isDerivedFrom(nullptr));
  EXPECT_TRUE(Shape::desc()->create().isNull());
  EXPECT_EQ(Disc::desc()->create()->isA(), Disc::desc());
}

TEST(ClassRegistry, ForgetsAClassThatIsGoneButNotItsNamesake) {
  {
    const OdRxClass passing("Passing", Shape::desc(), nullptr, "PASSING");
    const OdRxClass namesake("Disc", nullptr, nullptr, "TESTDISC");
    EXPECT_EQ(odrxGetClassByName(L"Passing"), &passing);
    EXPECT_EQ(odrxGetClassByName(L"Disc"), Disc::desc());
  }
  EXPECT_EQ(odrxGetClassByName(L"Passing"), nullptr);
  EXPECT_EQ(odrxGetClassByDxfName("PASSING"), nullptr);
  EXPECT_EQ(odrxGetClassByDxfName("TESTDISC"), Disc::desc());
}

TEST(SmartPointer, ConvertsOnlyToClassesOfTheObject) {
  const OdRxObjectPtr object = Disc::createObject();
  const OdSmartPtr<Shape> shape = object;
  const OdSmartPtr<Disc> disc = shape;
  EXPECT_EQ(disc.get(), object.get());
  EXPECT_EQ(object->numRefs(), 3);
  EXPECT_TRUE(Box::cast(object).isNull());
  EXPECT_EQ(Shape::cast(object).get(), shape.get());
  try {
    const OdSmartPtr<Box> box = object;
    FAIL();
  } catch (const OdError_NotThatKindOfClass& error) {
    EXPECT_EQ(error.code(), eNotThatKindOfClass);
    EXPECT_STREQ(error.what(), "An object of class Disc was given where class Box is required.");
  }
  EXPECT_EQ(object->numRefs(), 3);
  const OdSmartPtr<Box> none = OdRxObjectPtr();
  EXPECT_TRUE(none.isNull());
  EXPECT_THROW(none->isA(), OdError);
}

TEST(SmartPointer, CountsEveryReferenceOnce) {
  const int before = s_alive;
  OdSmartPtr<Disc> first = Disc::createObject();
  OdSmartPtr<Shape> second = first;
  OdSmartPtr<Shape> moved = std::move(second);
  second = moved;
  second = second.get();
  EXPECT_EQ(first->numRefs(), 3);
  Shape* raw = second.detach();
  moved.attach(raw);
  EXPECT_EQ(first->numRefs(), 2);
  first = nullptr;
  EXPECT_EQ(s_alive, before + 1);
  moved.release();
  EXPECT_EQ(s_alive, before);
}

} // namespace rx_test
