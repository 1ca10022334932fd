#include <gtest/gtest.h>

#include "platform/rx/OdRxClass.h"
#include "platform/rx/OdRxClassDictionary.h"

// Test classes live outside an anonymous namespace: their members are defined by macro.
class TestShape : public OdRxObject {
  ODRX_DECLARE_MEMBERS(TestShape);
};
class TestCircle : public TestShape {
  ODRX_DECLARE_MEMBERS(TestCircle);
};
class TestSquare : public TestShape {
  ODRX_DECLARE_MEMBERS(TestSquare);
};
// A protocol: what a class can tell about itself.
class TestDescribePE : public OdRxObject {
  ODRX_DECLARE_MEMBERS(TestDescribePE);

 public:
  virtual const char* describe() const { return "generic"; }
};
class TestCircleDescribePE : public TestDescribePE {
 public:
  const char* describe() const override { return "round"; }
};

ODRX_NO_CONS_DEFINE_MEMBERS(TestShape, OdRxObject)
ODRX_CONS_DEFINE_MEMBERS(TestCircle, TestShape)
ODRX_CONS_DEFINE_MEMBERS(TestSquare, TestShape)
ODRX_NO_CONS_DEFINE_MEMBERS(TestDescribePE, OdRxObject)

class RxClassRegistration : public ::testing::Test {
 protected:
  void SetUp() override {
    TestShape::rxInit();
    TestCircle::rxInit();
    TestSquare::rxInit();
    TestDescribePE::rxInit();
  }
  void TearDown() override {
    TestDescribePE::rxUninit();
    TestSquare::rxUninit();
    TestCircle::rxUninit();
    TestShape::rxUninit();
  }
};

TEST_F(RxClassRegistration, ParentsComeFirstAndChildrenLeaveFirst) {
  auto& dictionary = OdRxClassDictionary::instance();
  EXPECT_EQ(dictionary.getAt("TestCircle")->myParent(), TestShape::desc());
  EXPECT_THROW(TestCircle::rxInit(), OdError);  // twice

  // The parent cannot leave while a child is registered, and stays usable after the refusal.
  try {
    TestShape::rxUninit();
    FAIL() << "a class with registered children was unregistered";
  } catch (const OdError& e) {
    EXPECT_EQ(e.code(), eHasDependents);
  }
  EXPECT_TRUE(dictionary.has("TestShape"));

  // A child whose parent is gone cannot be registered.
  TestSquare::rxUninit();
  TestCircle::rxUninit();
  TestShape::rxUninit();
  EXPECT_EQ(TestCircle::desc(), nullptr);
  EXPECT_THROW(TestCircle::rxInit(), OdError);
  EXPECT_FALSE(dictionary.has("TestCircle"));
  TestShape::rxInit();
  TestCircle::rxInit();
  TestSquare::rxInit();
}

TEST_F(RxClassRegistration, CastsCheckTheRunTimeClass) {
  OdRxObjectPtr circle = TestCircle::createObject();
  EXPECT_TRUE(circle->isKindOf(TestShape::desc()));
  EXPECT_FALSE(circle->isKindOf(TestSquare::desc()));
  EXPECT_TRUE(TestSquare::cast(circle.get()).isNull());
  EXPECT_FALSE(TestShape::cast(circle.get()).isNull());

  try {
    OdSmartPtr<TestSquare> square = circle;
    FAIL() << "a circle was cast to a square";
  } catch (const OdError& e) {
    EXPECT_EQ(e.code(), eNotThatKindOfClass);
    EXPECT_NE(e.description().find("TestCircle"), std::string::npos);
    EXPECT_NE(e.description().find("TestSquare"), std::string::npos);
  }
  OdSmartPtr<TestShape> shape = circle;
  EXPECT_EQ(shape.get(), circle.get());
  EXPECT_EQ(circle->numRefs(), 2);

  EXPECT_THROW(TestShape::createObject(), OdError);  // abstract
  EXPECT_FALSE(OdRxClassDictionary::instance().getAt("TestSquare")->create().isNull());
}

TEST_F(RxClassRegistration, ProtocolExtensionsAreInheritedAndReplaceable) {
  OdStaticRxObject<TestDescribePE> generic;
  OdStaticRxObject<TestCircleDescribePE> round;
  TestShape::desc()->addX(TestDescribePE::desc(), &generic);

  OdRxObjectPtr square = TestSquare::createObject();
  OdSmartPtr<TestDescribePE> pe = square;  // found on the parent
  EXPECT_STREQ(pe->describe(), "generic");

  TestCircle::desc()->addX(TestDescribePE::desc(), &round);
  OdRxObjectPtr circle = TestCircle::createObject();
  EXPECT_STREQ(OdSmartPtr<TestDescribePE>(circle)->describe(), "round");
  EXPECT_STREQ(OdSmartPtr<TestDescribePE>(square)->describe(), "generic");

  EXPECT_EQ(TestCircle::desc()->delX(TestDescribePE::desc()).get(), &round);
  EXPECT_STREQ(OdSmartPtr<TestDescribePE>(circle)->describe(), "generic");
  TestShape::desc()->delX(TestDescribePE::desc());
  EXPECT_THROW(OdSmartPtr<TestDescribePE>{circle}, OdError);
}
