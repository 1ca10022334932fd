#include "module/CJbCustomizableBlocksModuleImpl.h"

#include <memory>

#include "module/utilities/CJbCustBlockActionUtilsPE.h"
#include "module/utilities/CJbCustBlockGripUtilsPE.h"
#include "module/utilities/CJbCustBlockParameterUtilsPE.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/host/CJbDraggingPreview.h"
#include "platform/host/OdEdCommandStack.h"
#include "platform/rx/OdRxClass.h"

namespace {
// The editing utilities of a kind row; null for a row of no kind.
std::unique_ptr<CJbCustBlockKindUtilsPE> utilitiesOf(const CJbCustBlockKindRow& row) {
  if (!row.displayName) return nullptr;
  switch (row.family) {
    case CJbCustBlockKindRow::Family::kParameter:
      return std::make_unique<OdStaticRxObject<CJbCustBlockParameterUtilsPE>>(row);
    case CJbCustBlockKindRow::Family::kAction:
      return std::make_unique<OdStaticRxObject<CJbCustBlockActionUtilsPE>>(row);
    case CJbCustBlockKindRow::Family::kGrip:
      return std::make_unique<OdStaticRxObject<CJbCustBlockGripUtilsPE>>(row);
    case CJbCustBlockKindRow::Family::kOther:
      break;
  }
  return nullptr;
}
}  // namespace

CJbCustomizableBlocksModuleImpl::CJbCustomizableBlocksModuleImpl(
    const CJbCustBlockKindTable& classes)
    : m_classes(classes) {
  for (const CJbCustBlockKindRow& row : m_classes) {
    if (std::unique_ptr<CJbCustBlockKindUtilsPE> utilities = utilitiesOf(row))
      m_kindUtilities.push_back(std::move(utilities));
    if (row.properties) {
      m_properties.push_back(
          std::make_unique<OdStaticRxObject<CJbPropertyPEImpl>>(row.cls.desc, row.properties()));
    }
  }
}

CJbCustomizableBlocksModuleImpl::~CJbCustomizableBlocksModuleImpl() {
  UninitApp();
}

void CJbCustomizableBlocksModuleImpl::Step(const std::function<void()>& apply,
                                           std::function<void()> undo) {
  apply();
  m_undo.push_back(std::move(undo));
}

void CJbCustomizableBlocksModuleImpl::InitApp() {
  if (!m_undo.empty()) return;
  try {
    AddDraggingPreviewFactory();
    RegisterClasses();
    AttachDeepCloneReactor();
    AttachUtilities();
    AttachProperties();
    AttachGripPoints();
    RegisterCommands();
    InstallHostServices();
  } catch (...) {
    UninitApp();
    throw;
  }
}

void CJbCustomizableBlocksModuleImpl::UninitApp() {
  while (!m_undo.empty()) {
    const std::function<void()> undo = std::move(m_undo.back());
    m_undo.pop_back();
    undo();
  }
}

void CJbCustomizableBlocksModuleImpl::AddDraggingPreviewFactory() {
  CJbDraggingPreviewFactory* factory = &m_draggingPreviewFactory;
  Step([factory] { CJbDraggingPreview::Get()->AddFactory(factory); },
       [factory] { CJbDraggingPreview::Get()->RemoveFactory(factory); });
}

void CJbCustomizableBlocksModuleImpl::RegisterClasses() {
  for (const CJbCustBlockKindRow& row : m_classes)
    Step(row.cls.init, row.cls.uninit);
}

void CJbCustomizableBlocksModuleImpl::AttachDeepCloneReactor() {
  CJbCustBlockDeepCloneReactor* reactor = &m_deepCloneReactor;
  Step([reactor] { reactor->Attach(); }, [reactor] { reactor->Detach(); });
}

void CJbCustomizableBlocksModuleImpl::AttachExtension(OdRxClass* cls, OdRxClass* protocol,
                                                      OdRxObject* extension) {
  auto replaced = std::make_shared<OdRxObjectPtr>();
  Step([=] { *replaced = cls->addX(protocol, extension); },
       [=] {
         if (replaced->isNull())
           cls->delX(protocol);
         else
           cls->addX(protocol, replaced->get());
       });
}

void CJbCustomizableBlocksModuleImpl::AttachUtilities() {
  std::vector<CJbCustBlockKindUtilsPE*> ordered = {&m_proxyElementUtilsPE};
  for (const auto& utilities : m_kindUtilities)
    ordered.push_back(utilities.get());
  ordered.push_back(&m_dbCustBlockGraphUtilsPE);
  for (CJbCustBlockKindUtilsPE* utilities : ordered)
    AttachExtension(utilities->GetKindClass(), CJbCustBlockElementUtilsPE::desc(), utilities);
}

void CJbCustomizableBlocksModuleImpl::AttachProperties() {
  for (const auto& properties : m_properties)
    AttachExtension(properties->GetKindClass(), CJbPropertyBase::desc(), properties.get());
}

void CJbCustomizableBlocksModuleImpl::AttachGripPoints() {
  OdRxClass* references = OdDbBlockReference::desc();
  AttachExtension(references, OdDbGripPointsPE::desc(), &m_blockInstanceGripPoints);
  AttachExtension(references, CJbGripPointsPE::desc(), &m_blockRefGripPoints);
}

void CJbCustomizableBlocksModuleImpl::InstallHostServices() {
  auto converter = std::make_shared<CJbCustBlockConverterUtils*>();
  Step([this, converter] { *converter = CJbCustBlockConverterUtils::Set(&m_outsideConverter); },
       [converter] { CJbCustBlockConverterUtils::Set(*converter); });
  auto utils = std::make_shared<CJbUtils*>();
  Step([this, utils] { *utils = CJbUtils::Set(&m_outsideDefinitionLookup); },
       [utils] { CJbUtils::Set(*utils); });
}

void CJbCustomizableBlocksModuleImpl::RegisterCommands() {
  CJbCustBlockEditorCommand* const ordered[] = {&m_commandBParameter,
                                                &m_commandBParameterSet,
                                                &m_commandBActionTool,
                                                &m_commandBAction,
                                                &m_commandBActionBar,
                                                &m_commandBActionBarDelete,
                                                &m_commandBActionBarNewSelSet,
                                                &m_commandBActionBarModifySelSet,
                                                &m_commandBActionBarRename,
                                                &m_commandBVMode,
                                                &m_commandBVState,
                                                &m_commandBVShow,
                                                &m_commandBVHide,
                                                &m_qtCommandBVState,
                                                &m_qtCommandBLookupTable,
                                                &m_qtCommandBCycleOrder};
  for (CJbCustBlockEditorCommand* command : ordered) {
    Step([command] { odedRegCmds()->addCommand(command); },
         [command] { odedRegCmds()->removeCmd(command->groupName(), command->globalName()); });
  }
}
