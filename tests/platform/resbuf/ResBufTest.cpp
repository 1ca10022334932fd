#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/ge/OdGeTol.h"
#include "platform/resbuf/OdResBuf.h"

namespace {
// Distinct non-null ids without a database: ids compare by their stub address only.
OdDbObjectId fakeId(int& slot) {
  return OdDbObjectId(reinterpret_cast<OdDbStub*>(&slot));
}

std::vector<int> restypesOf(const OdResBufPtr& head) {
  std::vector<int> types;
  for (OdResBufPtr rb = head; !rb.isNull(); rb = rb->next())
    types.push_back(rb->restype());
  return types;
}

template <class Call>
std::string invalidResBufMessage(Call call) {
  try {
    call();
  } catch (const OdError& e) {
    EXPECT_EQ(e.code(), eInvalidResBuf) << e.what();
    return e.what();
  }
  ADD_FAILURE() << "no OdError was raised";
  return {};
}
}  // namespace

TEST(ResBufCodes, KindChangesExactlyAtRangeBoundaries) {
  using T = OdDxfCode;
  constexpr T::Type None = T::Unknown, Str = T::String, Bool = T::Bool, I16 = T::Integer16,
                    I32 = T::Integer32, I64 = T::Integer64, Real = T::Double, Pt = T::Point,
                    Bin = T::BinaryChunk, Hnd = T::Handle, Id = T::ObjectId,
                    SoftP = T::SoftPointerId, HardP = T::HardPointerId, SoftO = T::SoftOwnershipId,
                    HardO = T::HardOwnershipId;
  struct Case {
    int code;
    OdDxfCode::Type type;
  };
  // clang-format off
  const Case cases[] = {
      {-6, None}, {-5, Id}, {-4, Str}, {-3, None}, {-1, Id}, {0, Str}, {9, Str}, {10, Pt},
      {18, Pt}, {20, Real}, {39, Real}, {40, Real}, {59, Real}, {60, I16}, {79, I16}, {80, None},
      {90, I32}, {99, I32}, {100, Str}, {102, Str}, {103, None}, {105, Hnd}, {110, Pt}, {112, Pt},
      {113, Real}, {149, Real}, {150, None}, {160, I64}, {169, I64}, {170, I16}, {180, None},
      {210, Pt}, {211, Real}, {239, Real}, {240, None}, {270, I16}, {289, I16}, {290, Bool},
      {299, Bool}, {300, Str}, {309, Str}, {310, Bin}, {319, Bin}, {320, Hnd}, {329, Hnd},
      {330, SoftP}, {339, SoftP}, {340, HardP}, {350, SoftO}, {360, HardO}, {369, HardO},
      {370, I16}, {389, I16}, {390, Hnd}, {399, Hnd}, {400, I16}, {410, Str}, {420, I32},
      {430, Str}, {440, I32}, {459, I32}, {460, Real}, {470, Str}, {481, Hnd}, {482, None},
      {998, None}, {999, Str}, {1003, Str}, {1004, Bin}, {1005, Hnd}, {1006, Str}, {1009, Str},
      {1010, Pt}, {1013, Pt}, {1014, Real}, {1059, Real}, {1060, I16}, {1070, I16}, {1071, I32},
      {1072, None}, {5000, None}, {5001, Real}, {5002, Pt}, {5003, I16}, {5004, Real},
      {5005, Str}, {5006, Id}, {5007, None}, {5009, Pt}, {5010, I32}, {5011, None},
  };
  // clang-format on
  for (const Case& c : cases) {
    EXPECT_EQ(OdDxfCode::_getType(c.code), c.type) << "group code " << c.code;
  }
  EXPECT_TRUE(OdDxfCode::isObjectId(OdDxfCode::HardOwnershipId));
  EXPECT_FALSE(OdDxfCode::isObjectId(OdDxfCode::Handle));
}

TEST(ResBufValues, GettersAndSettersKeepToTheKindOfTheirType) {
  const OdResBufPtr real = OdResBuf::newRb(OdResBuf::kRtDouble, 2.5);
  const std::string message = invalidResBufMessage([&] { real->getString(); });
  EXPECT_NE(message.find("restype 5001 holds a real, not a string"), std::string::npos) << message;
  EXPECT_NE(invalidResBufMessage([&] { real->setInt32(1); }).find("not an integer"),
            std::string::npos);
  invalidResBufMessage([] { OdResBuf::newRb(40, "text"); });
  invalidResBufMessage([] { OdResBuf::newRb(OdResBuf::kRtDouble, 3); });
  // Markers carry nothing: every read fails.
  invalidResBufMessage([] { OdResBuf::newRb(-3)->getObjectId(); });

  // A C string is text, never the boolean it would silently convert to.
  EXPECT_EQ(OdResBuf::newRb(1000, "name")->getString(), "name");
  EXPECT_TRUE(OdResBuf::newRb(OdResBuf::kDxfBool, true)->getBool());

  // Points, 2-D points and vectors share one store.
  const OdResBufPtr point = OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGeVector3d(1, 2, 3));
  EXPECT_DOUBLE_EQ(point->getPoint3d().z, 3.0);
  EXPECT_DOUBLE_EQ(point->getPoint2d().y, 2.0);
  point->setPoint2d(OdGePoint2d(4, 5));
  EXPECT_DOUBLE_EQ(point->getVector3d().z, 0.0);
  invalidResBufMessage([] { OdResBuf::newRb(1005)->getObjectId(); });  // a handle is not an id
}

TEST(ResBufValues, IntegersReadWiderAndRefuseWhatDoesNotFit) {
  const OdResBufPtr shortInt = OdResBuf::newRb(70, -300);
  EXPECT_EQ(shortInt->getInt64(), -300);
  EXPECT_EQ(shortInt->getInt32(), -300);
  EXPECT_NE(invalidResBufMessage([&] { shortInt->getInt8(); }).find("8-bit"), std::string::npos);
  invalidResBufMessage([&] { shortInt->setInt32(40000); });  // wider than the 16-bit code
  EXPECT_EQ(shortInt->getInt16(), -300);                     // and left unchanged
  invalidResBufMessage([] { OdResBuf::newRb(1070, 32768); });

  const OdResBufPtr bigInt = OdResBuf::newRb(160);
  bigInt->setInt64(std::int64_t{1} << 40);
  invalidResBufMessage([&] { bigInt->getInt32(); });
  EXPECT_EQ(OdResBuf::newRb(OdResBuf::kRtInt32, -2147483647 - 1)->getInt32(), -2147483647 - 1);
  invalidResBufMessage([] { OdResBuf::newRb(OdResBuf::kDxfBool, 1); });
}

TEST(ResBufValues, RetypingKeepsAValueOfTheSameKindOnly) {
  const OdResBufPtr rb = OdResBuf::newRb(OdResBuf::kRtDouble, 1.25);
  rb->setRestype(OdResBuf::kRtAngle);
  EXPECT_DOUBLE_EQ(rb->getDouble(), 1.25);
  int slot = 0;
  const OdResBufPtr id = OdResBuf::newRb(330, fakeId(slot));
  id->setRestype(360);  // another reference kind, still an id
  EXPECT_EQ(id->getObjectId(), fakeId(slot));
  rb->setRestype(OdResBuf::kRtInt32);
  EXPECT_EQ(rb->getInt32(), 0);
}

TEST(ResBufEquality, RealsAndPointsCompareWithinTolerance) {
  const double tol = OdGeContext::gTol.equalPoint();
  const OdResBufPtr a = OdResBuf::newRb(OdResBuf::kRtDouble, 1.0);
  EXPECT_TRUE(a->isEqualTo(OdResBuf::newRb(OdResBuf::kRtDouble, 1.0 + 0.5e-10).get()));
  EXPECT_FALSE(a->isEqualTo(OdResBuf::newRb(OdResBuf::kRtDouble, 1.0 + 1e-9).get()));
  // The same number under another type is another value.
  EXPECT_FALSE(a->isEqualTo(OdResBuf::newRb(OdResBuf::kRtAngle, 1.0).get()));
  EXPECT_FALSE(a->isEqualTo(nullptr));

  const OdResBufPtr p = OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d(1, 2, 3));
  EXPECT_TRUE(
      p->isEqualTo(OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d(1, 2, 3 + tol * 0.5)).get()));
  EXPECT_FALSE(
      p->isEqualTo(OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d(1, 2, 3 + tol * 10)).get()));

  int first = 0;
  int second = 0;
  EXPECT_FALSE(
      OdResBuf::newRb(330, fakeId(first))->isEqualTo(OdResBuf::newRb(330, fakeId(second)).get()));
  const OdResBufPtr chunk = OdResBuf::newRb(1004);
  chunk->setBinaryChunk(OdBinaryData{1, 2});
  EXPECT_FALSE(chunk->isEqualTo(OdResBuf::newRb(1004).get()));
}

class ResBufChain : public ::testing::Test {
 protected:
  void SetUp() override {
    head = OdResBuf::newRb(OdResBuf::kRtString, "id");
    head->setNext(OdResBuf::newRb(OdResBuf::kRtInt32, 1))
        ->setNext(OdResBuf::newRb(OdResBuf::kDxfBool, true))
        ->setNext(OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d(1, 2, 0)));
  }
  OdResBufPtr head;
};

TEST_F(ResBufChain, BuildsWalksAndSplices) {
  EXPECT_EQ(restypesOf(head), (std::vector<int>{5005, 5010, 290, 5009}));
  EXPECT_EQ(head->last()->restype(), 5009);
  EXPECT_EQ(head->last()->last(), head->last());

  // Insert a two-item chain after the first item; the old successor follows its tail.
  OdResBufPtr pair = OdResBuf::newRb(OdResBuf::kRtDouble, 0.5);
  pair->setNext(OdResBuf::newRb(OdResBuf::kRtAngle, 0.25));
  head->insert(pair);
  EXPECT_EQ(restypesOf(head), (std::vector<int>{5005, 5001, 5004, 5010, 290, 5009}));

  // Links that would loop are refused and leave the chain as it was.
  EXPECT_THROW(head->last()->setNext(head), OdError);
  EXPECT_THROW(head->next()->insert(head->next()->next()->next()), OdError);
  EXPECT_THROW(head->insert(head), OdError);
  EXPECT_EQ(restypesOf(head).size(), 6u);

  head->next()->setNext(OdResBufPtr());
  EXPECT_EQ(restypesOf(head), (std::vector<int>{5005, 5001}));
}

TEST_F(ResBufChain, CopiesAreDeepWhileLinksAreShared) {
  const OdResBufPtr copy = head->copyChain();
  EXPECT_EQ(restypesOf(copy), restypesOf(head));
  for (OdResBufPtr a = head, b = copy; !a.isNull(); a = a->next(), b = b->next()) {
    EXPECT_NE(a.get(), b.get());
    EXPECT_TRUE(a->isEqualTo(b.get()));
  }
  copy->next()->setInt32(7);
  EXPECT_EQ(head->next()->getInt32(), 1);

  // A second handle on a chain sees every change made through the first.
  const OdResBufPtr alias = head->next();
  alias->setInt32(9);
  EXPECT_EQ(head->next()->getInt32(), 9);

  // copyFrom and clone take the value, never the links.
  const OdResBufPtr single = OdResBuf::newRb(OdResBuf::kRtInt16);
  single->copyFrom(head.get());
  EXPECT_EQ(single->getString(), "id");
  EXPECT_TRUE(single->next().isNull());
  const OdResBufPtr cloned = OdResBuf::cast(head->clone().get());
  ASSERT_FALSE(cloned.isNull());
  EXPECT_TRUE(cloned->isEqualTo(head.get()));
  EXPECT_TRUE(cloned->next().isNull());
}

TEST_F(ResBufChain, LongChainsAreReleasedWithoutDeepRecursion) {
  OdResBufPtr tail = head->last();
  for (int i = 0; i < 500000; ++i)
    tail = tail->setNext(OdResBuf::newRb(OdResBuf::kRtInt32, i));
  const OdResBufPtr kept = tail;
  head.release();  // would overflow the stack if each buffer released its successor recursively
  EXPECT_EQ(kept->getInt32(), 499999);
}
