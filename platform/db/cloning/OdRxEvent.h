// The system event hub: event reactors register here and hear of every clone operation, in the
// order they registered.
#pragma once

#include "platform/base/OdArray.h"
#include "platform/db/cloning/OdRxEventReactor.h"

class OdRxEvent : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdRxEvent);

 public:
  OdRxEvent();
  // The hub holds a reference to each reactor until it is removed.
  void addReactor(OdRxEventReactor* reactor);
  void removeReactor(OdRxEventReactor* reactor);
  bool hasReactor(const OdRxEventReactor* reactor) const;

  void fireBeginDeepClone(OdDbDatabase* to, OdDbIdMapping& mapping);
  void fireBeginDeepCloneXlation(OdDbIdMapping& mapping);
  void fireEndDeepClone(OdDbIdMapping& mapping);
  void fireAbortDeepClone(OdDbIdMapping& mapping);

 private:
  OdArray<OdRxEventReactorPtr> m_reactors;
};
using OdRxEventPtr = OdSmartPtr<OdRxEvent>;

// The process's event hub.
OdRxEvent* odrxEvent();
