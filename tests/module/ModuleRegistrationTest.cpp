// The module loaded as a host loads it: what initApp lends out and in which order, what uninitApp
// leaves behind (nothing), loading twice, and the entry points themselves.
#include <dlfcn.h>

#include <algorithm>
#include <set>

#include "ModuleTestSupport.h"
#include "platform/db/DbTestSupport.h"
#include "platform/db/OdDbGripPointsPE.h"
#include "platform/host/CJbCustBlockConverterUtils.h"
#include "platform/host/CJbCustBlockElementUtilsPE.h"
#include "platform/host/CJbDraggingPreview.h"
#include "platform/host/CJbGripPointsPE.h"
#include "platform/host/CJbPropertyBase.h"
#include "platform/host/CJbUtils.h"
#include "platform/host/OdEdCommandStack.h"
#include "platform/rx/OdRxClassDictionary.h"

namespace {
// Everything the module registers, in registration order: the bases, the element kinds in the
// order the drawing holds them, then the graph, the storage and the reactors.
std::vector<std::string> moduleClasses() {
  std::vector<std::string> classes = {
      "JbCustBlockElement",   "JbCustBlockProxyElement",    "JbCustBlockSettingsElement",
      "JbCustBlockParameter", "JbCustBlock2PointParameter", "JbCustBlockAction",
      "JbCustBlockGrip",
  };
  classes.insert(classes.end(), elementKindsOfDrawing().begin(), elementKindsOfDrawing().end());
  classes.insert(classes.end(),
                 {"JbDbCustBlockGraph", "JbDbCustBlockStorage", "JbCustBlockGraphReactor",
                  "JbCustBlockDeepCloneReactor", "JbBlockInstanceGripPoints"});
  return classes;
}

// The block-editor commands, in registration order.
const std::vector<std::string> kModuleCommands = {
    "CBELEMENT",        "CBELEMENTSET",     "CBACTIVITYTOOL",         "CBACTIVITY",
    "CBACTIVITYICON",   "CBREMOVEACTIVITY", "CBNEWACTIVITYSELECTION", "CBMODIFYACTIVITYSELECTION",
    "CBRENAMEACTIVITY", "BVMODE",           "-CBVISIBILITY",          "CBSHOW",
    "CBHIDE",           "CBVISIBILITY",     "CBVALUETABLE",           "CBCYCLEORDER",
};

// What the platform and host hold that a module could have left behind.
struct HostState {
  std::vector<std::string> classes;
  std::vector<std::string> commands;
  std::size_t factories = 0;
  // The host services a module may install: the outside-block converter and the utilities.
  const void* converter = nullptr;
  const void* utilities = nullptr;
  bool operator==(const HostState& other) const {
    return classes == other.classes && commands == other.commands && factories == other.factories &&
           converter == other.converter && utilities == other.utilities;
  }
};

std::vector<std::string> commandNames(const char* group = "") {
  std::vector<std::string> names;
  for (const OdEdCommandPtr& command : odedRegCmds()->commands(group))
    names.push_back(command->globalName().str());
  return names;
}

HostState hostState() {
  HostState state;
  state.classes = registeredClassNames();
  state.commands = commandNames();
  state.factories = CJbDraggingPreview::Get()->Factories().size();
  state.converter = CJbCustBlockConverterUtils::Get();
  state.utilities = CJbUtils::Get();
  return state;
}

class ModuleRegistration : public ::testing::Test {
 protected:
  void SetUp() override {
    drawingWithEveryElementKind();  // made before the module owns the class names
    before = hostState();
  }
  void TearDown() override { unloadModule(); }
  HostState before;
};
}  // namespace

TEST_F(ModuleRegistration, InitAppRegistersParentsFirstInTheFixedOrder) {
  ASSERT_FALSE(loadModule().isNull());
  std::vector<std::string> added = registeredClassNames();
  ASSERT_GE(added.size(), before.classes.size());
  added.erase(added.begin(), added.begin() + static_cast<long>(before.classes.size()));
  EXPECT_EQ(added, moduleClasses());

  const auto& order = OdRxClassDictionary::instance().classes();
  for (std::size_t i = 0; i < order.size(); ++i) {
    const OdRxClass* parent = order[i]->myParent();
    if (!parent) continue;
    EXPECT_LT(std::find(order.begin(), order.end(), parent) - order.begin(), static_cast<long>(i))
        << order[i]->name().str() << " registered before its parent";
  }
  EXPECT_EQ(CJbDraggingPreview::Get()->Factories().size(), before.factories + 1);
  // Its converter of other programs' blocks and its look-up of their definitions serve the host.
  EXPECT_NE(CJbCustBlockConverterUtils::Get(), nullptr);
  EXPECT_NE(CJbUtils::Get(), before.utilities);
  EXPECT_EQ(commandNames("JB_CUSTOMIZABLE_BLOCKS"), kModuleCommands);

  // Property lists of their own: every concrete element kind and six bases.
  int ownProperties = 0;
  for (const OdRxClass* cls : order) {
    const OdRxObjectPtr own = cls->getX(CJbPropertyBase::desc());
    const OdRxClass* parent = cls->myParent();
    if (!own.isNull() && (!parent || parent->getX(CJbPropertyBase::desc()) != own)) ++ownProperties;
  }
  EXPECT_EQ(ownProperties, static_cast<int>(elementKindsOfDrawing().size()) + 6);
}

TEST_F(ModuleRegistration, EveryElementKindCarriesItsUtilities) {
  loadModule();
  auto& dictionary = OdRxClassDictionary::instance();
  std::set<std::string> keywords;
  for (const std::string& kind : elementKindsOfDrawing()) {
    OdRxClass* cls = dictionary.getAt(OdString(kind));
    ASSERT_NE(cls, nullptr) << kind;
    const CJbCustBlockElementUtilsPEPtr utils =
        CJbCustBlockElementUtilsPEPtr(cls->getX(CJbCustBlockElementUtilsPE::desc()).get());
    ASSERT_FALSE(utils.isNull()) << kind;
    EXPECT_FALSE(utils->GetDisplayName().isEmpty()) << kind;
    // The editor makes elements of the very class the extension is attached to.
    const OdRxObjectPtr made = utils->CreateElement();
    ASSERT_FALSE(made.isNull()) << kind;
    EXPECT_EQ(made->isA(), cls);
    const auto family = utils->GetFamily();
    if (family == CJbCustBlockElementUtilsPE::Family::kParameter) {
      EXPECT_TRUE(keywords.insert(utils->GetKeyword().str()).second) << kind;
      EXPECT_TRUE(dictionary.has(utils->GetGripKind())) << kind;
    }
    for (const OdString& partner : utils->GetPartnerKinds())
      EXPECT_TRUE(dictionary.has(partner)) << kind << " names " << partner.str();
  }
}

TEST_F(ModuleRegistration, UninitAppLeavesNothingBehindEvenWhenLoadedTwice) {
  for (int round = 0; round < 2; ++round) {
    loadModule();
    EXPECT_FALSE(hostState() == before) << "round " << round;
    unloadModule();
    const HostState after = hostState();
    EXPECT_EQ(after.classes, before.classes) << "round " << round;
    EXPECT_EQ(after.commands, before.commands) << "round " << round;
    EXPECT_EQ(after.factories, before.factories) << "round " << round;
    EXPECT_EQ(after.converter, before.converter) << "round " << round;
    EXPECT_EQ(after.utilities, before.utilities) << "round " << round;
  }
  // Protocols the platform keeps have no extension of the module left on its classes.
  for (const OdRxClass* cls : OdRxClassDictionary::instance().classes()) {
    EXPECT_TRUE(cls->getX(CJbCustBlockElementUtilsPE::desc()).isNull()) << cls->name().str();
    EXPECT_TRUE(cls->getX(CJbPropertyBase::desc()).isNull()) << cls->name().str();
    EXPECT_TRUE(cls->getX(CJbGripPointsPE::desc()).isNull()) << cls->name().str();
    EXPECT_TRUE(cls->getX(OdDbGripPointsPE::desc()).isNull()) << cls->name().str();
  }
}

// A command of another module that takes one of the module's names.
class SquattingCommand : public OdEdCommand {
 public:
  OdString groupName() const override { return "SQUATTER"; }
  OdString globalName() const override { return kModuleCommands.back().c_str(); }
  void execute(OdEdCommandContext*) override {}
};

TEST_F(ModuleRegistration, AFailedInitAppTakesBackWhatItHadDone) {
  OdStaticRxObject<SquattingCommand> squatter;
  odedRegCmds()->addCommand(&squatter);
  const HostState withSquatter = hostState();
  EXPECT_OD_ERROR(loadModule(), eDuplicateKey);
  EXPECT_TRUE(hostState() == withSquatter);
  odedRegCmds()->removeGroup("SQUATTER");
  // Nothing half-registered stands in the way of a later load.
  EXPECT_FALSE(loadModule().isNull());
}

TEST(ModuleEntryPoints, ReportTheInterfaceVersionAndTheLayersApi) {
  void* library = dlopen(modulePath().c_str(), RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << dlerror();
  auto version = reinterpret_cast<OdGetApiVersionFn>(dlsym(library, "odrxGetAPIVersion"));
  ASSERT_NE(version, nullptr);
  int major = 0, minor = 0, maintenance = 0, build = 0;
  version(major, minor, maintenance, build);
  EXPECT_EQ(std::vector<int>({major, minor, maintenance, build}),
            std::vector<int>({4, 3, 2, 74345}));
  EXPECT_NE(dlsym(library, "odrxCreateModuleObject"), nullptr);
  // A host links the module for the layers' API, so their classes are exported once, from here.
  EXPECT_NE(dlsym(library, "_ZN19CJbCustBlockElement4descEv"), nullptr);
  dlclose(library);
}
