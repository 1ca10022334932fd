// Proxy elements keep an element's data as bytes and ids by kind, and give the element back.
#include "CoreTestSupport.h"
#include "core/CJbCustBlockElementFiler.h"
#include "core/CJbCustBlockProxyElement.h"
#include "platform/rx/OdRxClass.h"

// A class that can be taken away while its proxy lives.
class LonelyElement : public CJbCustBlockElement {
  ODRX_DECLARE_MEMBERS(LonelyElement);
};
ODRX_CONS_DEFINE_MEMBERS(LonelyElement, CJbCustBlockElement)

class ProxyElementTest : public CoreTest {
 protected:
  // Stand-ins for ids of objects in a drawing; the proxy never opens them.
  static OdDbObjectId fakeId(std::uintptr_t n) {
    return OdDbObjectId(reinterpret_cast<OdDbStub*>(n * 16));
  }
};

TEST_F(ProxyElementTest, ElementFiledToAProxyComesBackEqual) {
  auto source = add(graph.get());
  auto partner = add(graph.get());
  source->AddConnection(partner->GetElementId(), true, false);
  source->SetName("Handle");
  source->SetVisible(false);
  source->payload = -42;
  source->label = "ab\xC3\xA9";
  source->softOwner = fakeId(1);
  source->hardOwner = fakeId(2);
  source->softPointer = fakeId(3);
  source->hardPointer = fakeId(4);

  CJbCustBlockProxyElementPtr proxy =
      CJbCustBlockProxyElement::CreateProxyFromElement(source.get(), graph.get());
  EXPECT_TRUE(proxy->IsProxy());
  EXPECT_EQ(proxy->GetOriginalClassName(), "RecordingElement");
  EXPECT_EQ(proxy->GetName(), "Handle");
  EXPECT_EQ(proxy->GetElementId(), source->GetElementId());
  // Ids stay out of the bytes, each in the list of its kind.
  EXPECT_EQ(proxy->GetIds(OdDb::kSoftOwnershipRef), OdDbObjectIdArray({fakeId(1)}));
  EXPECT_EQ(proxy->GetIds(OdDb::kHardOwnershipRef), OdDbObjectIdArray({fakeId(2)}));
  EXPECT_EQ(proxy->GetIds(OdDb::kSoftPointerRef), OdDbObjectIdArray({fakeId(3)}));
  EXPECT_EQ(proxy->GetIds(OdDb::kHardPointerRef), OdDbObjectIdArray({fakeId(4)}));
  // Only the element's own data: a 4-byte int and a length-prefixed 4-byte string.
  EXPECT_EQ(proxy->GetData().length(), 4u + 4u + 4u);

  CJbCustBlockElementPtr made = proxy->CreateElement(graph.get());
  auto copy = OdSmartPtr<RecordingElement>(made.get());
  ASSERT_FALSE(copy.isNull());
  EXPECT_FALSE(copy->IsProxy());
  EXPECT_EQ(copy->GetName(), "Handle");
  EXPECT_FALSE(copy->IsVisible());
  EXPECT_EQ(copy->GetElementId(), source->GetElementId());
  EXPECT_TRUE(copy->HasConnection(partner->GetElementId(), true, false));
  EXPECT_EQ(copy->payload, -42);
  EXPECT_EQ(copy->label, source->label);
  EXPECT_EQ(copy->softOwner, fakeId(1));
  EXPECT_EQ(copy->hardOwner, fakeId(2));
  EXPECT_EQ(copy->softPointer, fakeId(3));
  EXPECT_EQ(copy->hardPointer, fakeId(4));

  // A proxy of a proxy is the same proxy.
  CJbCustBlockProxyElementPtr again =
      CJbCustBlockProxyElement::CreateProxyFromElement(proxy.get(), graph.get());
  EXPECT_EQ(again->GetData(), proxy->GetData());
  EXPECT_EQ(again->GetOriginalClassName(), proxy->GetOriginalClassName());
}

TEST_F(ProxyElementTest, UnavailableOrForeignClassesAreNotCreated) {
  LonelyElement::rxInit();
  CJbCustBlockProxyElementPtr proxy = CJbCustBlockProxyElement::CreateProxyFromElement(
      OdSmartPtr<LonelyElement>(new LonelyElement).get(), graph.get());
  LonelyElement::rxUninit();
  EXPECT_TRUE(proxy->CreateElement(graph.get()).isNull());
  LonelyElement::rxInit();
  EXPECT_FALSE(proxy->CreateElement(graph.get()).isNull());
  LonelyElement::rxUninit();

  // A proxy read from a file that names a class which is no element.
  CJbCustBlockElementFiler writer;
  writer.wrInt32(5);
  writer.wrBool(true);
  writer.wrString("Stray");
  writer.wrInt32(0);
  writer.wrInt32(0);
  writer.wrString("JbDbCustBlockGraph");
  for (int count = 0; count < 5; ++count)
    writer.wrInt32(0);
  OdDbObjectIdArray noIds[4];
  CJbCustBlockElementFiler reader(writer.GetData(), noIds);
  CJbCustBlockProxyElementPtr stray(new CJbCustBlockProxyElement);
  ASSERT_EQ(stray->dwgInFields(&reader, graph.get()), eOk);
  EXPECT_EQ(stray->GetName(), "Stray");
  try {
    stray->CreateElement(graph.get());
    FAIL() << "a graph class made an element";
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), eNotThatKindOfClass);
  }
  // Data cut short is an error, not a crash.
  CJbCustBlockElementFiler truncated(OdBinaryData({1, 0}), noIds);
  EXPECT_NE(stray->dwgInFields(&truncated, graph.get()), eOk);
}
