#include "studio/document/PropertySource.h"

#include "platform/host/OdQStringConversion.h"

PropertySource::~PropertySource() = default;

QString PropertySource::label(const Property& property) const {
  return toQString(property.name);
}

OdArray<OdResBufPtr> PropertySource::choices(const OdString&) const {
  return OdArray<OdResBufPtr>();
}
