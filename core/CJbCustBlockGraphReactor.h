// Observer of the elements of an evaluation graph. Attached to the graph as a transient reactor,
// it hears of every appended, modified and removed element when the graph is closed.
#pragma once

#include "platform/db/OdDbObjectReactor.h"

class CJbCustBlockElement;
class CJbDbCustBlockGraph;

class CJbCustBlockGraphReactor : public OdDbObjectReactor {
  ODRX_DECLARE_MEMBERS(CJbCustBlockGraphReactor);

 public:
  virtual void OnElementAppended(const CJbDbCustBlockGraph* graph,
                                 const CJbCustBlockElement* element);
  virtual void OnElementRemoved(const CJbDbCustBlockGraph* graph, const int& id);
  virtual void OnElementModified(const CJbDbCustBlockGraph* graph,
                                 const CJbCustBlockElement* element);
};

using CJbCustBlockGraphReactorPtr = OdSmartPtr<CJbCustBlockGraphReactor>;
