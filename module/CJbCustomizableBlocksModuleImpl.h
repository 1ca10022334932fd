// What the module object owns and the order in which it lends it out. Every step of initApp
// records how to take itself back, so uninitApp undoes exactly what was done, newest first.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "adoption/CJbOutsideBlockConverterUtils.h"
#include "adoption/CJbOutsideDefinitionLookup.h"
#include "module/CJbCustBlockDraggingPreviewFactory.h"
#include "module/commands/CJbCommandBAction.h"
#include "module/commands/CJbCommandBActionBar.h"
#include "module/commands/CJbCommandBActionBarDelete.h"
#include "module/commands/CJbCommandBActionBarModifySelSet.h"
#include "module/commands/CJbCommandBActionBarNewSelSet.h"
#include "module/commands/CJbCommandBActionBarRename.h"
#include "module/commands/CJbCommandBActionTool.h"
#include "module/commands/CJbCommandBParameter.h"
#include "module/commands/CJbCommandBParameterSet.h"
#include "module/commands/CJbCommandBVHide.h"
#include "module/commands/CJbCommandBVMode.h"
#include "module/commands/CJbCommandBVShow.h"
#include "module/commands/CJbCommandBVState.h"
#include "module/commands/CJbQtCommandBCycleOrder.h"
#include "module/commands/CJbQtCommandBLookupTable.h"
#include "module/commands/CJbQtCommandBVState.h"
#include "module/gripPoints/CJbBlockRefGripPointsPEProxy.h"
#include "module/properties/CJbPropertyPEImpl.h"
#include "module/utilities/CJbCustBlockAlignmentGripUtilsPE.h"
#include "module/utilities/CJbCustBlockAlignmentParameterUtilsPE.h"
#include "module/utilities/CJbCustBlockArrayActionUtilsPE.h"
#include "module/utilities/CJbCustBlockBaseGripUtilsPE.h"
#include "module/utilities/CJbCustBlockBasePointParameterUtilsPE.h"
#include "module/utilities/CJbCustBlockFlipActionUtilsPE.h"
#include "module/utilities/CJbCustBlockFlipGripUtilsPE.h"
#include "module/utilities/CJbCustBlockFlipParameterUtilsPE.h"
#include "module/utilities/CJbCustBlockLinearGripUtilsPE.h"
#include "module/utilities/CJbCustBlockLinearParameterUtilsPE.h"
#include "module/utilities/CJbCustBlockLookupActionUtilsPE.h"
#include "module/utilities/CJbCustBlockLookupGripUtilsPE.h"
#include "module/utilities/CJbCustBlockLookupParameterUtilsPE.h"
#include "module/utilities/CJbCustBlockMoveActionUtilsPE.h"
#include "module/utilities/CJbCustBlockPointParameterUtilsPE.h"
#include "module/utilities/CJbCustBlockPolarGripUtilsPE.h"
#include "module/utilities/CJbCustBlockPolarParameterUtilsPE.h"
#include "module/utilities/CJbCustBlockPolarStretchActionUtilsPE.h"
#include "module/utilities/CJbCustBlockProxyElementUtilsPE.h"
#include "module/utilities/CJbCustBlockRotateActionUtilsPE.h"
#include "module/utilities/CJbCustBlockRotationGripUtilsPE.h"
#include "module/utilities/CJbCustBlockRotationParameterUtilsPE.h"
#include "module/utilities/CJbCustBlockScaleActionUtilsPE.h"
#include "module/utilities/CJbCustBlockStretchActionUtilsPE.h"
#include "module/utilities/CJbCustBlockVisibilityGripUtilsPE.h"
#include "module/utilities/CJbCustBlockVisibilityParameterUtilsPE.h"
#include "module/utilities/CJbCustBlockXYGripUtilsPE.h"
#include "module/utilities/CJbCustBlockXYParameterUtilsPE.h"
#include "module/utilities/CJbDbCustBlockGraphUtilsPE.h"
#include "platform/rx/OdRxObject.h"
#include "storage/CJbBlockInstanceGripPoints.h"
#include "storage/CJbCustBlockDeepCloneReactor.h"

class CJbCustomizableBlocksModuleImpl {
 public:
  CJbCustomizableBlocksModuleImpl();
  ~CJbCustomizableBlocksModuleImpl();
  CJbCustomizableBlocksModuleImpl(const CJbCustomizableBlocksModuleImpl&) = delete;
  CJbCustomizableBlocksModuleImpl& operator=(const CJbCustomizableBlocksModuleImpl&) = delete;

  void InitApp();
  void UninitApp();

 private:
  void Step(const std::function<void()>& apply, std::function<void()> undo);
  void AddDraggingPreviewFactory();
  void RegisterClasses();
  void AttachDeepCloneReactor();
  void AttachUtilities();
  void AttachProperties();
  void AttachGripPoints();
  void RegisterCommands();
  // The converter of other programs' parametric blocks and the look-up of a reference's outside
  // definition become the host's, and the ones before come back on undo.
  void InstallHostServices();
  // Lends `extension` to `cls` under `protocol`, giving back what it replaced on undo.
  void AttachExtension(OdRxClass* cls, OdRxClass* protocol, OdRxObject* extension);

  OdStaticRxObject<CJbCustBlockDraggingPreviewFactory> m_draggingPreviewFactory;
  OdStaticRxObject<CJbCustBlockDeepCloneReactor> m_deepCloneReactor;
  // Utilities of the proxy, the parameters, the actions, the grips and the graph, in that order.
  OdStaticRxObject<CJbCustBlockProxyElementUtilsPE> m_proxyElementUtilsPE;
  OdStaticRxObject<CJbCustBlockPointParameterUtilsPE> m_pointParameterUtilsPE;
  OdStaticRxObject<CJbCustBlockLinearParameterUtilsPE> m_linearParameterUtilsPE;
  OdStaticRxObject<CJbCustBlockRotationParameterUtilsPE> m_rotationParameterUtilsPE;
  OdStaticRxObject<CJbCustBlockPolarParameterUtilsPE> m_polarParameterUtilsPE;
  OdStaticRxObject<CJbCustBlockXYParameterUtilsPE> m_xYParameterUtilsPE;
  OdStaticRxObject<CJbCustBlockFlipParameterUtilsPE> m_flipParameterUtilsPE;
  OdStaticRxObject<CJbCustBlockVisibilityParameterUtilsPE> m_visibilityParameterUtilsPE;
  OdStaticRxObject<CJbCustBlockLookupParameterUtilsPE> m_lookupParameterUtilsPE;
  OdStaticRxObject<CJbCustBlockBasePointParameterUtilsPE> m_basePointParameterUtilsPE;
  OdStaticRxObject<CJbCustBlockAlignmentParameterUtilsPE> m_alignmentParameterUtilsPE;
  OdStaticRxObject<CJbCustBlockMoveActionUtilsPE> m_moveActionUtilsPE;
  OdStaticRxObject<CJbCustBlockStretchActionUtilsPE> m_stretchActionUtilsPE;
  OdStaticRxObject<CJbCustBlockScaleActionUtilsPE> m_scaleActionUtilsPE;
  OdStaticRxObject<CJbCustBlockRotateActionUtilsPE> m_rotateActionUtilsPE;
  OdStaticRxObject<CJbCustBlockPolarStretchActionUtilsPE> m_polarStretchActionUtilsPE;
  OdStaticRxObject<CJbCustBlockArrayActionUtilsPE> m_arrayActionUtilsPE;
  OdStaticRxObject<CJbCustBlockFlipActionUtilsPE> m_flipActionUtilsPE;
  OdStaticRxObject<CJbCustBlockLookupActionUtilsPE> m_lookupActionUtilsPE;
  OdStaticRxObject<CJbCustBlockBaseGripUtilsPE> m_baseGripUtilsPE;
  OdStaticRxObject<CJbCustBlockPolarGripUtilsPE> m_polarGripUtilsPE;
  OdStaticRxObject<CJbCustBlockXYGripUtilsPE> m_xYGripUtilsPE;
  OdStaticRxObject<CJbCustBlockLinearGripUtilsPE> m_linearGripUtilsPE;
  OdStaticRxObject<CJbCustBlockRotationGripUtilsPE> m_rotationGripUtilsPE;
  OdStaticRxObject<CJbCustBlockFlipGripUtilsPE> m_flipGripUtilsPE;
  OdStaticRxObject<CJbCustBlockVisibilityGripUtilsPE> m_visibilityGripUtilsPE;
  OdStaticRxObject<CJbCustBlockLookupGripUtilsPE> m_lookupGripUtilsPE;
  OdStaticRxObject<CJbCustBlockAlignmentGripUtilsPE> m_alignmentGripUtilsPE;
  OdStaticRxObject<CJbDbCustBlockGraphUtilsPE> m_dbCustBlockGraphUtilsPE;
  // One properties-palette extension per property-bearing class, in registration order.
  std::vector<std::unique_ptr<OdStaticRxObject<CJbPropertyPEImpl>>> m_properties;
  // Grip points of block references: the host's protocol and the platform's.
  OdStaticRxObject<CJbBlockInstanceGripPoints> m_blockInstanceGripPoints;
  OdStaticRxObject<CJbBlockRefGripPointsPEProxy> m_blockRefGripPoints;
  // Block-editor commands, in registration order.
  OdStaticRxObject<CJbCommandBParameter> m_commandBParameter;
  OdStaticRxObject<CJbCommandBParameterSet> m_commandBParameterSet;
  OdStaticRxObject<CJbCommandBActionTool> m_commandBActionTool;
  OdStaticRxObject<CJbCommandBAction> m_commandBAction;
  OdStaticRxObject<CJbCommandBActionBar> m_commandBActionBar;
  OdStaticRxObject<CJbCommandBActionBarDelete> m_commandBActionBarDelete;
  OdStaticRxObject<CJbCommandBActionBarNewSelSet> m_commandBActionBarNewSelSet;
  OdStaticRxObject<CJbCommandBActionBarModifySelSet> m_commandBActionBarModifySelSet;
  OdStaticRxObject<CJbCommandBActionBarRename> m_commandBActionBarRename;
  OdStaticRxObject<CJbCommandBVMode> m_commandBVMode{m_draggingPreviewFactory};
  OdStaticRxObject<CJbCommandBVState> m_commandBVState;
  OdStaticRxObject<CJbCommandBVShow> m_commandBVShow;
  OdStaticRxObject<CJbCommandBVHide> m_commandBVHide;
  OdStaticRxObject<CJbQtCommandBVState> m_qtCommandBVState;
  OdStaticRxObject<CJbQtCommandBLookupTable> m_qtCommandBLookupTable;
  OdStaticRxObject<CJbQtCommandBCycleOrder> m_qtCommandBCycleOrder;
  CJbOutsideBlockConverterUtils m_outsideConverter;
  CJbOutsideDefinitionLookup m_outsideDefinitionLookup;
  std::vector<std::function<void()>> m_undo;
};
