#include "module/properties/CJbPropertyPEImpl.h"

#include <utility>

#include "platform/rx/OdRxClass.h"

CJbPropertyPEImpl::CJbPropertyPEImpl(ClassGetter kind, OdArray<CJbCustBlockProperty> properties)
    : m_kind(kind), m_properties(std::move(properties)) {}

CJbPropertyBasePtr CJbPropertyPEImpl::Inherited() const {
  const OdRxClass* kind = GetKindClass();
  const OdRxClass* parent = kind ? kind->myParent() : nullptr;
  return parent ? CJbPropertyBase::cast(parent->getX(CJbPropertyBase::desc()).get())
                : CJbPropertyBasePtr();
}

OdArray<CJbPropertyBase::Property> CJbPropertyPEImpl::GetProperties() const {
  const CJbPropertyBasePtr inherited = Inherited();
  OdArray<Property> properties =
      inherited.isNull() ? OdArray<Property>() : inherited->GetProperties();
  for (const CJbCustBlockProperty& property : m_properties)
    properties.append(Property{property.name, property.valueType, !property.set});
  return properties;
}

const CJbCustBlockProperty* CJbPropertyPEImpl::Find(const OdString& name) const {
  for (const CJbCustBlockProperty& property : m_properties)
    if (property.name.iEquals(name)) return &property;
  return nullptr;
}

OdResBufPtr CJbPropertyPEImpl::GetPropertyValue(const OdRxObject* object,
                                                const OdString& name) const {
  const CJbCustBlockProperty* property = Find(name);
  if (!property) {
    const CJbPropertyBasePtr inherited = Inherited();
    return inherited.isNull() ? OdResBufPtr() : inherited->GetPropertyValue(object, name);
  }
  return object ? property->get(object) : OdResBufPtr();
}

namespace {
bool isReal(int type) {
  return type == OdResBuf::kRtDouble || type == OdResBuf::kRtAngle;
}
}  // namespace

bool CJbPropertyPEImpl::SetPropertyValue(OdRxObject* object, const OdString& name,
                                         const OdResBuf* value) const {
  const CJbCustBlockProperty* property = Find(name);
  if (!property) {
    const CJbPropertyBasePtr inherited = Inherited();
    return !inherited.isNull() && inherited->SetPropertyValue(object, name, value);
  }
  if (!property->set || !object || !value) return false;
  const int type = value->restype();
  if (type == property->valueType) return property->set(object, *value);
  if (!isReal(type) || !isReal(property->valueType)) return false;
  return property->set(object, *OdResBuf::newRb(property->valueType, value->getDouble()));
}
