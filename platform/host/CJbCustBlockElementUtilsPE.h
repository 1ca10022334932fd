// The editing-utilities protocol of customizable-block elements: what an editor or a host needs to
// offer a kind of element to a user without knowing its class. The module attaches one object of
// this protocol to every element class and to the graph.
#pragma once

#include "platform/base/OdArray.h"
#include "platform/base/OdString.h"
#include "platform/rx/OdRxObject.h"

class CJbCustBlockElementUtilsPE : public OdRxObject {
  ODRX_DECLARE_MEMBERS(CJbCustBlockElementUtilsPE);

 public:
  enum class Family { kParameter, kAction, kGrip, kOther };

  virtual Family GetFamily() const = 0;
  // The kind's name in the user's language ("Linear", "Mirror").
  virtual OdString GetDisplayName() const = 0;
  // The word that names the kind in editor commands, the same in every language ("LINEAR").
  virtual OdString GetKeyword() const = 0;
  // The result type of the kind's main value (5001 real, 5004 angle, 5009 point, 5010 integer);
  // 0 when the kind has no value of its own.
  virtual int GetValueType() const = 0;
  // The registered class name of the grip the kind puts on its points; empty when it has none.
  virtual OdString GetGripKind() const = 0;
  // Registered class names of the kinds this one works with: the actions a parameter can drive,
  // the parameters an action or a grip can serve.
  virtual OdArray<OdString> GetPartnerKinds() const = 0;
  // A new element of this kind with its defaults; null for kinds that are not made by hand.
  virtual OdRxObjectPtr CreateElement() const = 0;
  // One line that tells a user which element this is: its name and what it holds now.
  virtual OdString GetLabel(const OdRxObject* object) const = 0;
  // The objects inside `object` that carry this protocol themselves (the elements of a graph).
  virtual OdArray<OdRxObjectPtr> GetParts(const OdRxObject* object) const;
};
using CJbCustBlockElementUtilsPEPtr = OdSmartPtr<CJbCustBlockElementUtilsPE>;
