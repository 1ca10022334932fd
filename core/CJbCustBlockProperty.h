// One entry of the properties palette: a name, the result type of its value, and how the value is
// read from and written to an object. A property without a setter is read-only. The layers list
// the properties of their classes with these, in the rows of their class tables.
#pragma once

#include <functional>

#include "platform/base/OdString.h"
#include "platform/ge/OdGePoint3d.h"
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

  // A yes/no property read and written through a pair of accessors; read-only without a setter.
  template <class T>
  static CJbCustBlockProperty Flag(const char* name, bool (T::*get)() const,
                                   void (T::*set)(bool) = nullptr) {
    std::function<bool(T&, const OdResBuf&)> setter;
    if (set) {
      setter = [set](T& object, const OdResBuf& value) {
        (object.*set)(value.getBool());
        return true;
      };
    }
    return Of<T>(
        name, OdResBuf::kDxfBool,
        [get](const T& object) { return OdResBuf::newRb(OdResBuf::kDxfBool, (object.*get)()); },
        setter);
  }

  // A point read and written through a pair of accessors.
  template <class T>
  static CJbCustBlockProperty Position(const char* name, OdGePoint3d (T::*get)() const,
                                       void (T::*set)(const OdGePoint3d&)) {
    return Of<T>(
        name, OdResBuf::kRtPoint3d,
        [get](const T& object) { return OdResBuf::newRb(OdResBuf::kRtPoint3d, (object.*get)()); },
        [set](T& object, const OdResBuf& value) {
          (object.*set)(value.getPoint3d());
          return true;
        });
  }

  // A length read and written through a pair of accessors.
  template <class T>
  static CJbCustBlockProperty Distance(const char* name, double (T::*get)() const,
                                       void (T::*set)(double)) {
    return Of<T>(
        name, OdResBuf::kRtDouble,
        [get](const T& object) { return OdResBuf::newRb(OdResBuf::kRtDouble, (object.*get)()); },
        [set](T& object, const OdResBuf& value) {
          (object.*set)(value.getDouble());
          return true;
        });
  }

  // A read-only count or id.
  template <class T, class Number>
  static CJbCustBlockProperty Count(const char* name, Number (T::*get)() const) {
    return Of<T>(name, OdResBuf::kRtInt32, [get](const T& object) {
      return OdResBuf::newRb(OdResBuf::kRtInt32, static_cast<int>((object.*get)()));
    });
  }
};
