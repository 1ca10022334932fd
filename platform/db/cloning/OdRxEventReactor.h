// A system-wide observer of clone operations, registered with the event hub (odrxEvent()).
// Every notice does nothing by default.
#pragma once

#include "platform/rx/OdRxObject.h"

class OdDbDatabase;
class OdDbIdMapping;

class OdRxEventReactor : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdRxEventReactor);

 public:
  // A clone operation into database to starts; nothing is cloned yet.
  virtual void beginDeepClone(OdDbDatabase* to, OdDbIdMapping& mapping);
  // Everything is cloned and the references are about to be translated; clones are closed and
  // may be opened (for example to rename a cloned block).
  virtual void beginDeepCloneXlation(OdDbIdMapping& mapping);
  // The clone operation is complete.
  virtual void endDeepClone(OdDbIdMapping& mapping);
  // The clone operation failed; its clones were erased.
  virtual void abortDeepClone(OdDbIdMapping& mapping);
};
using OdRxEventReactorPtr = OdSmartPtr<OdRxEventReactor>;
