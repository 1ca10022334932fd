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
  struct Case {
    int code;
    OdDxfCode::Type type;
  };
  const Case cases[] = {
      {-6, OdDxfCode::Unknown},
      {-5, OdDxfCode::ObjectId},
      {-4, OdDxfCode::String},
      {-3, OdDxfCode::Unknown},
      {-1, OdDxfCode::ObjectId},
      {0, OdDxfCode::String},
      {9, OdDxfCode::String},
      {10, OdDxfCode::Point},
      {18, OdDxfCode::Point},
      {20, OdDxfCode::Double},
      {39, OdDxfCode::Double},
      {40, OdDxfCode::Double},
      {59, OdDxfCode::Double},
      {60, OdDxfCode::Integer16},
      {79, OdDxfCode::Integer16},
      {80, OdDxfCode::Unknown},
      {90, OdDxfCode::Integer32},
      {99, OdDxfCode::Integer32},
      {100, OdDxfCode::String},
      {102, OdDxfCode::String},
      {103, OdDxfCode::Unknown},
      {105, OdDxfCode::Handle},
      {110, OdDxfCode::Point},
      {112, OdDxfCode::Point},
      {113, OdDxfCode::Double},
      {149, OdDxfCode::Double},
      {150, OdDxfCode::Unknown},
      {160, OdDxfCode::Integer64},
      {169, OdDxfCode::Integer64},
      {170, OdDxfCode::Integer16},
      {180, OdDxfCode::Unknown},
      {210, OdDxfCode::Point},
      {211, OdDxfCode::Double},
      {239, OdDxfCode::Double},
      {240, OdDxfCode::Unknown},
      {270, OdDxfCode::Integer16},
      {289, OdDxfCode::Integer16},
      {290, OdDxfCode::Bool},
      {299, OdDxfCode::Bool},
      {300, OdDxfCode::String},
      {309, OdDxfCode::String},
      {310, OdDxfCode::BinaryChunk},
      {319, OdDxfCode::BinaryChunk},
      {320, OdDxfCode::Handle},
      {329, OdDxfCode::Handle},
      {330, OdDxfCode::SoftPointerId},
      {339, OdDxfCode::SoftPointerId},
      {340, OdDxfCode::HardPointerId},
      {350, OdDxfCode::SoftOwnershipId},
      {360, OdDxfCode::HardOwnershipId},
      {369, OdDxfCode::HardOwnershipId},
      {370, OdDxfCode::Integer16},
      {389, OdDxfCode::Integer16},
      {390, OdDxfCode::Handle},
      {399, OdDxfCode::Handle},
      {400, OdDxfCode::Integer16},
      {410, OdDxfCode::String},
      {420, OdDxfCode::Integer32},
      {430, OdDxfCode::String},
      {440, OdDxfCode::Integer32},
      {459, OdDxfCode::Integer32},
      {460, OdDxfCode::Double},
      {470, OdDxfCode::String},
      {481, OdDxfCode::Handle},
      {482, OdDxfCode::Unknown},
      {998, OdDxfCode::Unknown},
      {999, OdDxfCode::String},
      {1003, OdDxfCode::String},
      {1004, OdDxfCode::BinaryChunk},
      {1005, OdDxfCode::Handle},
      {1006, OdDxfCode::String},
      {1009, OdDxfCode::String},
      {1010, OdDxfCode::Point},
      {1013, OdDxfCode::Point},
      {1014, OdDxfCode::Double},
      {1059, OdDxfCode::Double},
      {1060, OdDxfCode::Integer16},
      {1070, OdDxfCode::Integer16},
      {1071, OdDxfCode::Integer32},
      {1072, OdDxfCode::Unknown},
      {5000, OdDxfCode::Unknown},
      {5001, OdDxfCode::Double},
      {5002, OdDxfCode::Point},
      {5003, OdDxfCode::Integer16},
      {5004, OdDxfCode::Double},
      {5005, OdDxfCode::String},
      {5006, OdDxfCode::ObjectId},
      {5007, OdDxfCode::Unknown},
      {5009, OdDxfCode::Point},
      {5010, OdDxfCode::Integer32},
      {5011, OdDxfCode::Unknown},
  };
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
  EXPECT_TRUE(OdResBuf::newRb(330, OdDbObjectId())->getObjectId().isNull());

  // Points, 2-D points and vectors share one store.
  const OdResBufPtr point = OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGeVector3d(1, 2, 3));
  EXPECT_DOUBLE_EQ(point->getPoint3d().z, 3.0);
  EXPECT_DOUBLE_EQ(point->getPoint2d().y, 2.0);
  point->setPoint2d(OdGePoint2d(4, 5));
  EXPECT_DOUBLE_EQ(point->getVector3d().z, 0.0);

  const OdResBufPtr chunk = OdResBuf::newRb(310);
  chunk->setBinaryChunk(OdBinaryData{0x00, 0xff});
  EXPECT_EQ(chunk->getBinaryChunk().length(), 2u);
  const OdResBufPtr handle = OdResBuf::newRb(1005);
  handle->setHandle(OdDbHandle(0x2a));
  EXPECT_EQ(handle->getHandle().value(), 0x2au);
  invalidResBufMessage([&] { handle->getObjectId(); });
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
  rb->setRestype(OdResBuf::kRtString);
  EXPECT_TRUE(rb->getString().isEmpty());
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

  EXPECT_FALSE(OdResBuf::newRb(1, "Door")->isEqualTo(OdResBuf::newRb(1, "door").get()));
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
