#include "studio/document/EntityPropertySource.h"

#include "platform/base/OdError.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbLayerTable.h"
#include "platform/host/OdQStringConversion.h"
#include "platform/rx/OdRxClass.h"

namespace {
// Property names: the keys of the values, translated only where a person reads them.
const char* const kKind = QT_TRANSLATE_NOOP("EntityPropertySource", "Kind");
const char* const kHandle = QT_TRANSLATE_NOOP("EntityPropertySource", "Handle");
const char* const kLayer = QT_TRANSLATE_NOOP("EntityPropertySource", "Layer");
const char* const kBlock = QT_TRANSLATE_NOOP("EntityPropertySource", "Block");
const char* const kPosition = QT_TRANSLATE_NOOP("EntityPropertySource", "Position");
const char* const kRotation = QT_TRANSLATE_NOOP("EntityPropertySource", "Rotation");

OdResBufPtr text(const OdString& value) {
  return OdResBuf::newRb(OdResBuf::kRtString, value);
}
}  // namespace

QString EntityPropertySource::group() const {
  return tr("General");
}

OdArray<PropertySource::Property> EntityPropertySource::properties() const {
  OdArray<Property> properties{
      {kKind, OdResBuf::kRtString, true},
      {kHandle, OdResBuf::kRtString, true},
      {kLayer, OdResBuf::kRtString, false},
  };
  OdDbObjectPtr object;
  if (m_entity.openObject(object) == eOk && !OdDbBlockReference::cast(object.get()).isNull()) {
    properties.append({kBlock, OdResBuf::kRtString, true});
    properties.append({kPosition, OdResBuf::kRtPoint3d, false});
    properties.append({kRotation, OdResBuf::kRtAngle, false});
  }
  return properties;
}

QString EntityPropertySource::label(const Property& property) const {
  return tr(property.name.c_str());
}

OdResBufPtr EntityPropertySource::value(const OdString& name) const {
  OdDbObjectPtr object;
  if (m_entity.openObject(object) != eOk) return OdResBufPtr();
  const OdDbEntityPtr entity = OdDbEntity::cast(object.get());
  if (entity.isNull()) return OdResBufPtr();
  if (name == kKind)
    return text(entity->isA()->dxfName().isEmpty() ? entity->isA()->name()
                                                   : entity->isA()->dxfName());
  if (name == kHandle) return text(m_entity.getHandle().ascii());
  if (name == kLayer) return text(entity->layer());
  const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(entity.get());
  if (reference.isNull()) return OdResBufPtr();
  if (name == kBlock) {
    OdDbObjectPtr block;
    if (reference->blockTableRecord().openObject(block) != eOk) return OdResBufPtr();
    return text(OdDbBlockTableRecord::cast(block.get())->getName());
  }
  if (name == kPosition) return OdResBuf::newRb(OdResBuf::kRtPoint3d, reference->position());
  if (name == kRotation) return OdResBuf::newRb(OdResBuf::kRtAngle, reference->rotation());
  return OdResBufPtr();
}

OdArray<OdResBufPtr> EntityPropertySource::choices(const OdString& name) const {
  OdArray<OdResBufPtr> layers;
  if (name != kLayer || m_entity.isNull()) return layers;
  OdDbDatabase* database = m_entity.database();
  const OdSmartPtr<OdDbLayerTable> table = database->openObject(database->getLayerTableId());
  for (OdDbSymbolTableIteratorPtr it = table->newIterator(); !it->done(); it->step())
    layers.append(text(it->getRecord()->getName()));
  return layers;
}

bool EntityPropertySource::setValue(const OdString& name, const OdResBuf& value) {
  OdDbObjectPtr object;
  if (m_entity.openObject(object, OdDb::kForWrite) != eOk) return false;
  const OdDbEntityPtr entity = OdDbEntity::cast(object.get());
  const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(object.get());
  try {
    if (name == kLayer && value.restype() == OdResBuf::kRtString && !entity.isNull()) {
      entity->setLayer(value.getString());
    } else if (name == kPosition && value.restype() == OdResBuf::kRtPoint3d &&
               !reference.isNull()) {
      reference->setPosition(value.getPoint3d());
    } else if (name == kRotation && value.restype() == OdResBuf::kRtAngle && !reference.isNull()) {
      reference->setRotation(value.getDouble());
    } else {
      return false;
    }
  } catch (const OdError&) {
    return false;  // a layer the drawing does not have
  }
  return true;
}
