#include "module/CJbCustomizableBlocksModuleImpl.h"

#include <memory>

#include "actions/CJbCustBlockAction.h"
#include "actions/CJbCustBlockArrayAction.h"
#include "actions/CJbCustBlockFlipAction.h"
#include "actions/CJbCustBlockLookupAction.h"
#include "actions/CJbCustBlockMoveAction.h"
#include "actions/CJbCustBlockPolarStretchAction.h"
#include "actions/CJbCustBlockRotateAction.h"
#include "actions/CJbCustBlockScaleAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "core/CJbCustBlockElement.h"
#include "core/CJbCustBlockGraphReactor.h"
#include "core/CJbCustBlockProxyElement.h"
#include "core/CJbCustBlockSettingsElement.h"
#include "core/CJbDbCustBlockGraph.h"
#include "module/properties/CJbCustBlockPropertyTable.h"
#include "parameters/CJbCustBlock2PointParameter.h"
#include "parameters/CJbCustBlockAlignmentParameter.h"
#include "parameters/CJbCustBlockBasePointParameter.h"
#include "parameters/CJbCustBlockFlipParameter.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockLookupParameter.h"
#include "parameters/CJbCustBlockParameter.h"
#include "parameters/CJbCustBlockPointParameter.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "parameters/CJbCustBlockRotationParameter.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "parameters/CJbCustBlockXYParameter.h"
#include "parameters/grips/CJbCustBlockAlignmentGrip.h"
#include "parameters/grips/CJbCustBlockBaseGrip.h"
#include "parameters/grips/CJbCustBlockFlipGrip.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"
#include "parameters/grips/CJbCustBlockLookupGrip.h"
#include "parameters/grips/CJbCustBlockPolarGrip.h"
#include "parameters/grips/CJbCustBlockRotationGrip.h"
#include "parameters/grips/CJbCustBlockVisibilityGrip.h"
#include "parameters/grips/CJbCustBlockXYGrip.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/host/CJbDraggingPreview.h"
#include "platform/host/OdEdCommandStack.h"
#include "platform/rx/OdRxClass.h"
#include "platform/rx/OdRxClassRegistration.h"
#include "storage/CJbBlockInstanceGripPoints.h"
#include "storage/CJbCustBlockDeepCloneReactor.h"
#include "storage/CJbDbCustBlockStorage.h"

namespace {
// Parents before children: the bases, the parameter kinds, the actions, the grips, then the
// database objects and the reactor that work on them.
const OdRxClassRegistration kClassOrder[] = {
    odrxClassRegistration<CJbCustBlockElement>(),
    odrxClassRegistration<CJbCustBlockProxyElement>(),
    odrxClassRegistration<CJbCustBlockSettingsElement>(),
    odrxClassRegistration<CJbCustBlockParameter>(),
    odrxClassRegistration<CJbCustBlock2PointParameter>(),
    odrxClassRegistration<CJbCustBlockAction>(),
    odrxClassRegistration<CJbCustBlockGrip>(),
    odrxClassRegistration<CJbCustBlockPointParameter>(),
    odrxClassRegistration<CJbCustBlockLinearParameter>(),
    odrxClassRegistration<CJbCustBlockRotationParameter>(),
    odrxClassRegistration<CJbCustBlockPolarParameter>(),
    odrxClassRegistration<CJbCustBlockXYParameter>(),
    odrxClassRegistration<CJbCustBlockFlipParameter>(),
    odrxClassRegistration<CJbCustBlockVisibilityParameter>(),
    odrxClassRegistration<CJbCustBlockLookupParameter>(),
    odrxClassRegistration<CJbCustBlockBasePointParameter>(),
    odrxClassRegistration<CJbCustBlockAlignmentParameter>(),
    odrxClassRegistration<CJbCustBlockMoveAction>(),
    odrxClassRegistration<CJbCustBlockStretchAction>(),
    odrxClassRegistration<CJbCustBlockScaleAction>(),
    odrxClassRegistration<CJbCustBlockRotateAction>(),
    odrxClassRegistration<CJbCustBlockPolarStretchAction>(),
    odrxClassRegistration<CJbCustBlockArrayAction>(),
    odrxClassRegistration<CJbCustBlockFlipAction>(),
    odrxClassRegistration<CJbCustBlockLookupAction>(),
    odrxClassRegistration<CJbCustBlockBaseGrip>(),
    odrxClassRegistration<CJbCustBlockPolarGrip>(),
    odrxClassRegistration<CJbCustBlockXYGrip>(),
    odrxClassRegistration<CJbCustBlockLinearGrip>(),
    odrxClassRegistration<CJbCustBlockRotationGrip>(),
    odrxClassRegistration<CJbCustBlockFlipGrip>(),
    odrxClassRegistration<CJbCustBlockVisibilityGrip>(),
    odrxClassRegistration<CJbCustBlockLookupGrip>(),
    odrxClassRegistration<CJbCustBlockAlignmentGrip>(),
    odrxClassRegistration<CJbDbCustBlockGraph>(),
    odrxClassRegistration<CJbDbCustBlockStorage>(),
    odrxClassRegistration<CJbCustBlockGraphReactor>(),
    odrxClassRegistration<CJbCustBlockDeepCloneReactor>(),
    odrxClassRegistration<CJbBlockInstanceGripPoints>(),
};
}  // namespace

CJbCustomizableBlocksModuleImpl::CJbCustomizableBlocksModuleImpl() {
  for (CJbCustBlockPropertyTable::Entry& entry : CJbCustBlockPropertyTable::Entries()) {
    m_properties.push_back(std::make_unique<OdStaticRxObject<CJbPropertyPEImpl>>(
        entry.kind, std::move(entry.properties)));
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
  for (const OdRxClassRegistration& entry : kClassOrder)
    Step(entry.init, entry.uninit);
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
  CJbCustBlockKindUtilsPE* const ordered[] = {
      &m_proxyElementUtilsPE,       &m_pointParameterUtilsPE,
      &m_linearParameterUtilsPE,    &m_rotationParameterUtilsPE,
      &m_polarParameterUtilsPE,     &m_xYParameterUtilsPE,
      &m_flipParameterUtilsPE,      &m_visibilityParameterUtilsPE,
      &m_lookupParameterUtilsPE,    &m_basePointParameterUtilsPE,
      &m_alignmentParameterUtilsPE, &m_moveActionUtilsPE,
      &m_stretchActionUtilsPE,      &m_scaleActionUtilsPE,
      &m_rotateActionUtilsPE,       &m_polarStretchActionUtilsPE,
      &m_arrayActionUtilsPE,        &m_flipActionUtilsPE,
      &m_lookupActionUtilsPE,       &m_baseGripUtilsPE,
      &m_polarGripUtilsPE,          &m_xYGripUtilsPE,
      &m_linearGripUtilsPE,         &m_rotationGripUtilsPE,
      &m_flipGripUtilsPE,           &m_visibilityGripUtilsPE,
      &m_lookupGripUtilsPE,         &m_alignmentGripUtilsPE,
      &m_dbCustBlockGraphUtilsPE};
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
