// Set-up shared by the targets that read drawings and the module's records: the platform and the
// module's classes registered, and a graph holding one node of every element class that can be
// made.
#pragma once

#include "actions/CJbCustBlockActionClasses.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "core/CJbCustBlockProxyElement.h"
#include "core/CJbDbCustBlockGraph.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "platform/OdPlatform.h"
#include "platform/base/OdError.h"
#include "platform/rx/OdRxClassDictionary.h"

inline void registerModuleClasses() {
  odInitialize();
  CJbCustBlockCoreClasses::RxInit();
  CJbCustBlockParameterClasses::RxInit();
  CJbCustBlockActionClasses::RxInit();
}

inline CJbDbCustBlockGraphPtr graphOfEveryElement() {
  CJbDbCustBlockGraphPtr graph = CJbDbCustBlockGraph::createObject();
  for (OdRxClass* cls : OdRxClassDictionary::instance().classes()) {
    if (!cls->isDerivedFrom(CJbCustBlockElement::desc()) || !cls->constructor() ||
        cls == CJbCustBlockProxyElement::desc() || !graph->CanNodeBeAdded(cls))
      continue;
    try {
      graph->AppendNode(CJbCustBlockElement::cast(cls->create().get()));
    } catch (const OdError&) {
    }
  }
  return graph;
}
