// A kind added in a test is one class pair and one row of its layer's table: a module started
// from the tables registers it in its place, attaches its utilities and palette extension, and
// takes it all back in reverse.
#include <algorithm>
#include <string>
#include <vector>

#include "ModuleTestSupport.h"
#include "actions/CJbCustBlockActionClasses.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "module/CJbCustomizableBlocksModuleImpl.h"
#include "parameters/CJbCustBlock2PointParameter.h"
#include "parameters/CJbCustBlock2PointParameterImpl.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"
#include "platform/host/CJbCustBlockElementUtilsPE.h"
#include "platform/host/CJbPropertyBase.h"
#include "platform/rx/OdRxClass.h"
#include "platform/rx/OdRxClassDictionary.h"

// The class pair of the kind: a two-point parameter whose value is its length.
class TestWidthParameter : public CJbCustBlock2PointParameter {
  ODRX_DECLARE_MEMBERS(TestWidthParameter);

 public:
  TestWidthParameter() : CJbCustBlock2PointParameter(new CJbCustBlock2PointParameterImpl) {}
  OdResBufPtr GetValue(unsigned index) const override {
    return index == 0 ? OdResBuf::newRb(OdResBuf::kRtDouble, GetDistance(0)) : OdResBufPtr();
  }
};
ODRX_CONS_DEFINE_MEMBERS(TestWidthParameter, CJbCustBlock2PointParameter)

namespace {
// The kind's row.
CJbCustBlockKindRow widthRow() {
  return CJbCustBlockKindRow::Parameter<TestWidthParameter>(
      "Width", "WIDTH", OdResBuf::kRtDouble, &CJbCustBlockLinearGrip::desc, [] {
        return CJbCustBlockKindRow::Properties{CJbCustBlockProperty::Of<TestWidthParameter>(
            "Width", OdResBuf::kRtDouble, [](const auto& p) { return p.GetValue(0); })};
      });
}

CJbCustBlockElementUtilsPEPtr utilitiesOf(OdRxClass* cls) {
  return CJbCustBlockElementUtilsPE::cast(cls->getX(CJbCustBlockElementUtilsPE::desc()).get());
}
}  // namespace

TEST(ModuleKindTable, AKindAddedInATestIsOneClassPairAndOneRow) {
  const std::vector<std::string> before = registeredClassNames();
  CJbCustBlockKindTable parameters = CJbCustBlockParameterClasses::Table();
  parameters.append(widthRow());
  {
    CJbCustomizableBlocksModuleImpl module(CJbCustBlockModuleClasses::Merge(
        {&CJbCustBlockCoreClasses::Table(), &parameters, &CJbCustBlockActionClasses::Table(),
         &CJbCustBlockModuleClasses::StorageTable()}));
    module.InitApp();

    // The last parameter kind, before the first action.
    const std::vector<std::string> names = registeredClassNames();
    const auto at = [&](const char* name) {
      return std::find(names.begin(), names.end(), name) - names.begin();
    };
    EXPECT_EQ(at("TestWidthParameter"), at("JbCustBlockAlignmentParameter") + 1);
    EXPECT_EQ(at("JbCustBlockMoveAction"), at("TestWidthParameter") + 1);

    OdRxClass* cls = TestWidthParameter::desc();
    const CJbCustBlockElementUtilsPEPtr utilities = utilitiesOf(cls);
    ASSERT_FALSE(utilities.isNull());
    EXPECT_EQ(utilities->GetFamily(), CJbCustBlockElementUtilsPE::Family::kParameter);
    EXPECT_EQ(utilities->GetKeyword(), "WIDTH");
    EXPECT_EQ(utilities->GetValueType(), OdResBuf::kRtDouble);
    EXPECT_EQ(utilities->GetGripKind(), "JbCustBlockLinearGrip");
    EXPECT_EQ(utilities->CreateElement()->isA(), cls);
    // The grip it names counts it among its parameters.
    const OdArray<OdString> gripPartners =
        utilitiesOf(CJbCustBlockLinearGrip::desc())->GetPartnerKinds();
    EXPECT_TRUE(gripPartners.contains("TestWidthParameter"));

    // The palette shows the two-point parameter's properties, then the kind's own.
    const CJbPropertyBasePtr palette =
        CJbPropertyBase::cast(cls->getX(CJbPropertyBase::desc()).get());
    ASSERT_FALSE(palette.isNull());
    std::vector<std::string> properties;
    for (const CJbPropertyBase::Property& property : palette->GetProperties())
      properties.push_back(property.name.str());
    EXPECT_EQ(properties,
              std::vector<std::string>({"Name", "Visible", "Id", "Chain Actions", "Show Properties",
                                        "Points", "Start Point", "End Point", "Width"}));
    module.UninitApp();
  }
  // Removed children first, or the platform would have refused to remove the parents.
  EXPECT_EQ(registeredClassNames(), before);
  EXPECT_EQ(TestWidthParameter::desc(), nullptr);
}
