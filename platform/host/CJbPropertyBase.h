// The properties-palette protocol: the named, typed values a palette shows for an object and the
// way to change them. Values travel as result buffers of the types of instance state (5001 real,
// 5004 angle, 5005 string, 5009 point, 5010 integer, 290 boolean).
#pragma once

#include "platform/base/OdArray.h"
#include "platform/base/OdString.h"
#include "platform/resbuf/OdResBuf.h"
#include "platform/rx/OdRxObject.h"

class CJbPropertyBase : public OdRxObject {
  ODRX_DECLARE_MEMBERS(CJbPropertyBase);

 public:
  struct Property {
    OdString name;
    int valueType = 0;
    bool readOnly = true;
  };

  // The properties of the objects this extension is attached to, in palette order.
  virtual OdArray<Property> GetProperties() const = 0;
  // The value of one property of `object`; null for an unknown name or an object of another kind.
  virtual OdResBufPtr GetPropertyValue(const OdRxObject* object, const OdString& name) const = 0;
  // Changes one property. False for an unknown or read-only name, a value of another type, or a
  // value the object refuses. The caller opens the object's container for write first.
  virtual bool SetPropertyValue(OdRxObject* object, const OdString& name,
                                const OdResBuf* value) const = 0;
};
using CJbPropertyBasePtr = OdSmartPtr<CJbPropertyBase>;
