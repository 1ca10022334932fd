// The properties-palette extension of one class of the module: the properties of the nearest
// ancestor class that has an extension, then the ones this class adds, read and written through
// the object's own accessors.
#pragma once

#include "core/CJbCustBlockProperty.h"
#include "platform/host/CJbPropertyBase.h"

class OdRxClass;

class CJbPropertyPEImpl : public CJbPropertyBase {
 public:
  using ClassGetter = OdRxClass* (*)();

  CJbPropertyPEImpl(ClassGetter kind, OdArray<CJbCustBlockProperty> properties);

  // The class the extension is attached to; null while it is not registered.
  OdRxClass* GetKindClass() const { return m_kind(); }

  OdArray<Property> GetProperties() const override;
  OdResBufPtr GetPropertyValue(const OdRxObject* object, const OdString& name) const override;
  // Reals are taken for angles and angles for reals; other types must match.
  bool SetPropertyValue(OdRxObject* object, const OdString& name,
                        const OdResBuf* value) const override;

 private:
  const CJbCustBlockProperty* Find(const OdString& name) const;
  // The extension of the nearest ancestor class that has one, which serves the inherited
  // properties; null for a class without.
  CJbPropertyBasePtr Inherited() const;

  ClassGetter m_kind;
  OdArray<CJbCustBlockProperty> m_properties;
};
