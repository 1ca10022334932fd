#include "studio/document/ExtensionPropertySource.h"

#include "platform/db/OdDbObject.h"
#include "platform/rx/OdRxClass.h"

ExtensionPropertySource::ExtensionPropertySource(const OdDbObjectId& container, const Part& part,
                                                 CJbPropertyBasePtr extension)
    : m_container(container), m_part(part), m_extension(std::move(extension)) {}

std::unique_ptr<ExtensionPropertySource> ExtensionPropertySource::of(const OdDbObjectId& container,
                                                                     const Part& part) {
  OdDbObjectPtr object;
  if (container.openObject(object) != eOk) return nullptr;
  const OdRxObjectPtr target = part ? part(object.get()) : OdRxObjectPtr(object.get());
  if (target.isNull()) return nullptr;
  CJbPropertyBasePtr extension =
      CJbPropertyBase::cast(target->isA()->getX(CJbPropertyBase::desc()).get());
  if (extension.isNull()) return nullptr;
  return std::unique_ptr<ExtensionPropertySource>(
      new ExtensionPropertySource(container, part, std::move(extension)));
}

OdRxObjectPtr ExtensionPropertySource::partOf(OdDbObject* container) const {
  return m_part ? m_part(container) : OdRxObjectPtr(container);
}

QString ExtensionPropertySource::group() const {
  return tr("Customization");
}

OdArray<PropertySource::Property> ExtensionPropertySource::properties() const {
  return m_extension->GetProperties();
}

OdResBufPtr ExtensionPropertySource::value(const OdString& name) const {
  OdDbObjectPtr container;
  if (m_container.openObject(container) != eOk) return OdResBufPtr();
  const OdRxObjectPtr target = partOf(container.get());
  return target.isNull() ? OdResBufPtr() : m_extension->GetPropertyValue(target.get(), name);
}

bool ExtensionPropertySource::setValue(const OdString& name, const OdResBuf& value) {
  OdDbObjectPtr container;
  if (m_container.openObject(container, OdDb::kForWrite) != eOk) return false;
  const OdRxObjectPtr target = partOf(container.get());
  return !target.isNull() && m_extension->SetPropertyValue(target.get(), name, &value);
}
