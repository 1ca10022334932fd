// Observer of the elements of an evaluation graph; every notification is optional.
#include "core/CJbCustBlockGraphReactor.h"

#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockGraphReactor, "JbCustBlockGraphReactor",
                               OdDbObjectReactor)

void CJbCustBlockGraphReactor::OnElementAppended(const CJbDbCustBlockGraph*,
                                                 const CJbCustBlockElement*) {}

void CJbCustBlockGraphReactor::OnElementRemoved(const CJbDbCustBlockGraph*, const int&) {}

void CJbCustBlockGraphReactor::OnElementModified(const CJbDbCustBlockGraph*,
                                                 const CJbCustBlockElement*) {}
