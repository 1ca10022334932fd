// The properties a module's property extension gives an object. The object is reached inside a
// database object, the container: the entity itself, or a part of it such as an element of a
// block's graph. The container is opened for read to show values and for write to change one,
// as the property protocol asks of its callers.
#pragma once

#include <QCoreApplication>
#include <functional>
#include <memory>

#include "platform/db/OdDbObjectId.h"
#include "studio/document/PropertySource.h"

class OdDbObject;

class ExtensionPropertySource : public PropertySource {
  Q_DECLARE_TR_FUNCTIONS(ExtensionPropertySource)

 public:
  // Finds the object inside its opened container; the container itself when not given.
  using Part = std::function<OdRxObjectPtr(OdDbObject* container)>;

  // The source of the object's property extension; null when its class carries none.
  static std::unique_ptr<ExtensionPropertySource> of(const OdDbObjectId& container,
                                                     const Part& part = Part());

  QString group() const override;
  OdArray<Property> properties() const override;
  OdResBufPtr value(const OdString& name) const override;
  bool setValue(const OdString& name, const OdResBuf& value) override;

 private:
  ExtensionPropertySource(const OdDbObjectId& container, const Part& part,
                          CJbPropertyBasePtr extension);
  OdRxObjectPtr partOf(OdDbObject* container) const;

  OdDbObjectId m_container;
  Part m_part;
  CJbPropertyBasePtr m_extension;
};
