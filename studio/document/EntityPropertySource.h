// What the host itself shows of any entity, before what a module adds: its kind, handle and
// layer, and for a block reference its block, position and rotation. The layer is chosen from
// the drawing's layers.
#pragma once

#include <QCoreApplication>

#include "platform/db/OdDbObjectId.h"
#include "studio/document/PropertySource.h"

class EntityPropertySource : public PropertySource {
  Q_DECLARE_TR_FUNCTIONS(EntityPropertySource)

 public:
  explicit EntityPropertySource(const OdDbObjectId& entity) : m_entity(entity) {}

  QString group() const override;
  OdArray<Property> properties() const override;
  QString label(const Property& property) const override;
  OdResBufPtr value(const OdString& name) const override;
  OdArray<OdResBufPtr> choices(const OdString& name) const override;
  bool setValue(const OdString& name, const OdResBuf& value) override;

 private:
  OdDbObjectId m_entity;
};
