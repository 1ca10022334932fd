// One entry of the properties palette: a name, the result type of its value, and how the value is
// read from and written to an object. A property without a setter is read-only.
#pragma once

#include <functional>

#include "platform/base/OdString.h"
#include "platform/resbuf/OdResBuf.h"

struct CJbCustBlockProperty {
  using Getter = std::function<OdResBufPtr(const OdRxObject*)>;
  using Setter = std::function<bool(OdRxObject*, const OdResBuf&)>;

  OdString name;
  int valueType = 0;
  Getter get;
  Setter set;

  // A property of objects of class T: the accessors see a T, and objects of other classes read
  // as no value and refuse changes.
  template <class T>
  static CJbCustBlockProperty Of(const char* name, int valueType,
                                 std::function<OdResBufPtr(const T&)> get,
                                 std::function<bool(T&, const OdResBuf&)> set = {}) {
    CJbCustBlockProperty property;
    property.name = name;
    property.valueType = valueType;
    property.get = [get](const OdRxObject* object) {
      const OdSmartPtr<T> typed = T::cast(object);
      return typed.isNull() ? OdResBufPtr() : get(*typed);
    };
    if (set) {
      property.set = [set](OdRxObject* object, const OdResBuf& value) {
        const OdSmartPtr<T> typed = T::cast(object);
        return !typed.isNull() && set(*typed, value);
      };
    }
    return property;
  }
};
