// One group of the properties palette: named values of one object with their result types (5001
// real, 5004 angle, 5005 string, 5009 point, 5010 integer, 290 boolean) and a way to change
// them. The palette shows every source alike, whether the host or a module's property extension
// supplies it.
#pragma once

#include <QString>

#include "platform/host/CJbPropertyBase.h"

class PropertySource {
 public:
  using Property = CJbPropertyBase::Property;

  PropertySource() = default;
  PropertySource(const PropertySource&) = delete;
  PropertySource& operator=(const PropertySource&) = delete;
  virtual ~PropertySource();

  // The group's heading.
  virtual QString group() const = 0;
  virtual OdArray<Property> properties() const = 0;
  // What a person reads for a property name.
  virtual QString label(const Property& property) const;
  // The value now; null when the object has none to show.
  virtual OdResBufPtr value(const OdString& name) const = 0;
  // The values a property is limited to, offered as a drop-down; empty when any value of its type
  // may be typed.
  virtual OdArray<OdResBufPtr> choices(const OdString& name) const;
  // Changes a property; false when the object refuses the value.
  virtual bool setValue(const OdString& name, const OdResBuf& value) = 0;
};
