// The instance state of one block reference as a result-buffer chain: its envelope, loading by
// element id with blocks skipped by their item count, the context's modes, and malformed chains.
#include <string>
#include <vector>

#include "CoreTestSupport.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "platform/db/DbTestSupport.h"
#include "platform/rx/OdRxClass.h"

// Saves a real after the base item; counts the composing hooks.
class StateElement : public RecordingElement {
  ODRX_DECLARE_MEMBERS(StateElement);

 public:
  OdResBufPtr SaveInstance(CJbDbCustBlockGraphInstanceContext* context) override {
    OdResBufPtr items = CJbCustBlockElement::SaveInstance(context);
    items->setNext(OdResBuf::newRb(OdResBuf::kRtDouble, value));
    return items;
  }
  bool LoadInstance(OdResBufPtr& cursor, CJbDbCustBlockGraphInstanceContext* context) override {
    if (!CJbCustBlockElement::LoadInstance(cursor, context)) return false;
    if (cursor.isNull() || cursor->restype() != OdResBuf::kRtDouble) return false;
    value = cursor->getDouble();
    cursor = cursor->next();
    return true;
  }
  void ComposeInstanceForLoad() override { ++composed; }
  void DecomposeInstanceForSave() override { ++decomposed; }

  double value = 0;
  int composed = 0;
  int decomposed = 0;
};
ODRX_CONS_DEFINE_MEMBERS(StateElement, RecordingElement)

// Saves nothing at all.
class QuietElement : public RecordingElement {
  ODRX_DECLARE_MEMBERS(QuietElement);

 public:
  OdResBufPtr SaveInstance(CJbDbCustBlockGraphInstanceContext*) override { return OdResBufPtr(); }
};
ODRX_CONS_DEFINE_MEMBERS(QuietElement, RecordingElement)

class InstanceChainTest : public CoreTest {
 protected:
  static void SetUpTestSuite() {
    CoreTest::SetUpTestSuite();
    StateElement::rxInit();
    QuietElement::rxInit();
  }
  static void TearDownTestSuite() {
    QuietElement::rxUninit();
    StateElement::rxUninit();
    CoreTest::TearDownTestSuite();
  }
  void SetUp() override {
    CoreTest::SetUp();
    first = add<StateElement>(graph.get());
    add<QuietElement>(graph.get());
    third = add<StateElement>(graph.get());
    first->value = 1.5;
    third->value = -2.25;
    third->SetVisible(false);
  }

  static CJbDbCustBlockGraphInstanceContextPtr context(int mode) {
    return CJbDbCustBlockGraphInstanceContextPtr(
        new CJbDbCustBlockGraphInstanceContext(mode, nullptr));
  }
  static OdResBufPtr rb(int type, int value) { return OdResBuf::newRb(type, value); }
  static OdResBufPtr real(double value) { return OdResBuf::newRb(OdResBuf::kRtDouble, value); }
  static OdResBufPtr flag(bool value) { return OdResBuf::newRb(OdResBuf::kDxfBool, value); }

  OdSmartPtr<StateElement> first, third;
};

TEST_F(InstanceChainTest, SaveWritesTheEnvelopeAndLoadGivesItBack) {
  const OdResBufPtr chain = graph->SaveInstance(context(0).get());
  const std::string id = "5005 " + graph->GetIdentifier().str();
  EXPECT_EQ(
      tagTexts(chain.get()),
      (std::vector<std::string>{id, "5010 2", "5010 1", "5010 2", "290 1", "5001 1.5", "5010 3",
                                "5010 2", "290 0", "5001 -2.25", "5005 VERSION", "5010 7"}));

  first->value = 9;
  third->value = 9;
  third->SetVisible(true);
  ASSERT_TRUE(graph->LoadInstance(chain, context(0).get()));
  EXPECT_EQ(first->value, 1.5);
  EXPECT_EQ(third->value, -2.25);
  EXPECT_FALSE(third->IsVisible());
  EXPECT_EQ(tagTexts(graph->SaveInstance(context(0).get()).get()), tagTexts(chain.get()));
}

TEST_F(InstanceChainTest, ContextModesDriveComposingAndSettling) {
  const OdResBufPtr chain = graph->SaveInstance(context(0).get());
  EXPECT_EQ(first->decomposed, 0);
  // A plain load lets every element settle, in id order, with a mode-0 context.
  ASSERT_TRUE(graph->LoadInstance(chain, context(0).get()));
  EXPECT_EQ(hookJournal(), (std::vector<std::string>{"N1", "N2", "N3"}));
  EXPECT_EQ(first->modes, std::vector<int>({0}));
  EXPECT_EQ(first->composed, 0);

  hookJournal().clear();
  graph->SaveInstance(context(CJbDbCustBlockGraphInstanceContext::kComposingRequired).get());
  EXPECT_EQ(first->decomposed, 1);
  EXPECT_EQ(third->decomposed, 1);
  ASSERT_TRUE(graph->LoadInstance(chain, context(7).get()));
  EXPECT_EQ(first->composed, 1);
  EXPECT_EQ(third->composed, 1);
  // Around an evaluation nothing settles: the evaluation does that.
  EXPECT_TRUE(hookJournal().empty());
}

TEST_F(InstanceChainTest, BlocksAreMatchedByIdAndSkippedByTheirCount) {
  // A block for a missing element, then one whose element reads fewer items than it holds.
  const OdResBufPtr chain =
      chainOf({OdResBuf::newRb(OdResBuf::kRtString, "{another graph}"), rb(5010, 3), rb(5010, 99),
               rb(5010, 3), flag(false), real(4), real(5), rb(5010, 1), rb(5010, 3), flag(false),
               real(8), real(77), rb(5010, 3), rb(5010, 2), flag(true), real(6)});
  EXPECT_TRUE(graph->LoadInstance(chain, context(0).get()));
  EXPECT_EQ(first->value, 8);
  EXPECT_FALSE(first->IsVisible());
  EXPECT_EQ(third->value, 6);
  EXPECT_TRUE(third->IsVisible());

  // Without the identifier the chain starts at the count.
  EXPECT_TRUE(graph->LoadInstance(
      chainOf({rb(5010, 1), rb(5010, 1), rb(5010, 2), flag(true), real(3)}), context(0).get()));
  EXPECT_EQ(first->value, 3);
}

TEST_F(InstanceChainTest, MalformedChainsFailAndKeepWhatWasLoaded) {
  const OdResBufPtr good = chainOf({rb(5010, 1), rb(5010, 1), rb(5010, 2), flag(true), real(3)});
  const std::vector<OdResBufPtr> bad = {
      OdResBufPtr(),
      chainOf({OdResBuf::newRb(OdResBuf::kRtString, "id"), real(2)}),
      chainOf({rb(5010, -1)}),
      chainOf({rb(5010, 2), rb(5010, 1), rb(5010, 2), flag(true), real(7),
               OdResBuf::newRb(OdResBuf::kRtString, "3"), rb(5010, 2), flag(true), real(3)}),
      chainOf({rb(5010, 2), rb(5010, 1), rb(5010, 2), flag(true), real(7), rb(5010, 3)}),
      chainOf({rb(5010, 1), rb(5010, 1), rb(5010, 5), flag(true), real(7)}),
      // The element refuses an item of another type.
      chainOf({rb(5010, 1), rb(5010, 1), rb(5010, 2), rb(5010, 1), real(7)}),
  };
  for (std::size_t i = 0; i < bad.size(); ++i) {
    ASSERT_TRUE(graph->LoadInstance(good, context(0).get()));
    EXPECT_FALSE(graph->LoadInstance(bad[i], context(0).get())) << i;
  }
  // The first block of a chain that breaks later is loaded all the same.
  ASSERT_TRUE(graph->LoadInstance(good, context(0).get()));
  EXPECT_FALSE(graph->LoadInstance(bad[3], context(0).get()));
  EXPECT_EQ(first->value, 7);
}
