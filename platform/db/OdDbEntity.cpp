// Entity base: common properties and their filing.
#include "platform/db/OdDbEntity.h"

#include "platform/db/OdDbGripPointsPE.h"

#include <string>
#include <unordered_set>

#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbWriteGuard.h"
#include "platform/db/entities/FieldTable.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbLayerTable.h"
#include "platform/db/symtables/OdDbLayerTableRecord.h"
#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbEntity, OdDbObject)

namespace {
// Linetype names are few and shared by many entities: each entity keeps a pointer to one copy.
const OdString* internLinetype(const OdString& name) {
  static std::unordered_set<OdString>* pool = new std::unordered_set<OdString>();
  return &*pool->insert(name).first;
}
const OdString* byLayerLinetype() {
  static const OdString* byLayer = internLinetype("ByLayer");
  return byLayer;
}

const OdDbLayerTableRecord* layerOf(const OdDbObjectId& id) {
  const OdDbObject* object = id.isNull() ? nullptr : id.stub()->object();
  if (!object || !object->isKindOf(OdDbLayerTableRecord::desc())) return nullptr;
  return static_cast<const OdDbLayerTableRecord*>(object);
}
}  // namespace

OdDbEntity::OdDbEntity() : m_linetype(byLayerLinetype()) {}

OdDbObjectId OdDbEntity::layerId() const {
  assertReadEnabled();
  return m_layerId;
}

OdString OdDbEntity::layer() const {
  assertReadEnabled();
  // Read without opening the layer, which may be open for write elsewhere.
  const OdDbLayerTableRecord* record = layerOf(m_layerId);
  return record ? record->m_name : OdString();
}

void OdDbEntity::setLayer(const OdString& layerName) {
  OdDbDatabase* db = database();
  if (!db) throw OdError(eNoDatabase, describe().str() + ": a layer by name needs a database");
  OdDbObject* table =
      db->getLayerTableId().isNull() ? nullptr : db->getLayerTableId().stub()->object();
  const OdDbObjectId id =
      table ? static_cast<OdDbSymbolTable*>(table)->lookup(layerName) : OdDbObjectId::kNull;
  if (id.isNull())
    throw OdError(eKeyNotFound,
                  describe().str() + ": there is no layer \"" + layerName.str() + "\"");
  setLayer(id);
}

void OdDbEntity::setLayer(const OdDbObjectId& layerId) {
  if (layerId == m_layerId) return;
  if (!layerOf(layerId))
    throw OdError(eWrongObjectType,
                  describe().str() + ": " + layerId.getHandle().ascii().str() + " is not a layer");
  if (isDBRO() && layerId.database() != database())
    throw OdError(eWrongDatabase, describe().str() + ": the layer belongs to another database");
  assertWriteEnabled();
  m_layerId = layerId;
}

std::int16_t OdDbEntity::colorIndex() const {
  assertReadEnabled();
  return m_color;
}

void OdDbEntity::setColorIndex(std::int16_t index) {
  if (index == m_color && !m_hasTrueColor) return;
  if (index < 0 || index > 256)
    throw OdError(eInvalidInput, describe().str() + ": color index " + std::to_string(index) +
                                     " is not in 0..256");
  assertWriteEnabled();
  m_color = index;
  m_hasTrueColor = false;
}

bool OdDbEntity::hasTrueColor() const {
  assertReadEnabled();
  return m_hasTrueColor;
}

std::uint32_t OdDbEntity::trueColor() const {
  assertReadEnabled();
  return m_trueColor;
}

void OdDbEntity::setTrueColor(std::uint32_t rgb) {
  rgb &= 0xFFFFFFu;
  if (m_hasTrueColor && rgb == m_trueColor) return;
  assertWriteEnabled();
  m_trueColor = rgb;
  m_hasTrueColor = true;
}

const OdString& OdDbEntity::linetype() const {
  assertReadEnabled();
  return *m_linetype;
}

void OdDbEntity::setLinetype(const OdString& name) {
  if (name == *m_linetype) return;
  if (name.isEmpty()) throw OdError(eInvalidInput, describe().str() + ": empty linetype name");
  assertWriteEnabled();
  m_linetype = internLinetype(name);
}

double OdDbEntity::linetypeScale() const {
  assertReadEnabled();
  return m_linetypeScale;
}

void OdDbEntity::setLinetypeScale(double scale) {
  if (scale == m_linetypeScale) return;
  if (!(scale > 0.0))
    throw OdError(eInvalidInput, describe().str() + ": linetype scale must be positive");
  assertWriteEnabled();
  m_linetypeScale = scale;
}

std::int16_t OdDbEntity::lineWeight() const {
  assertReadEnabled();
  return m_lineWeight;
}

void OdDbEntity::setLineWeight(std::int16_t weight) {
  if (weight == m_lineWeight) return;
  if (weight < OdDb::kLnWtByLwDefault || weight > 211)
    throw OdError(eInvalidInput, describe().str() + ": line weight " + std::to_string(weight) +
                                     " is out of range");
  assertWriteEnabled();
  m_lineWeight = weight;
}

OdDb::Visibility OdDbEntity::visibility() const {
  assertReadEnabled();
  return m_invisible ? OdDb::kInvisible : OdDb::kVisible;
}

void OdDbEntity::setVisibility(OdDb::Visibility visibility) {
  const bool invisible = visibility == OdDb::kInvisible;
  if (invisible == m_invisible) return;
  assertWriteEnabled();
  m_invisible = invisible;
}

void OdDbEntity::setDatabaseDefaults(OdDbDatabase* database) {
  OdDbDatabase* db = database ? database : this->database();
  if (!db) throw OdError(eNoDatabase, describe().str() + ": no database to take defaults from");
  if (m_layerId.isNull() || m_layerId.database() != db) {
    assertWriteEnabled();
    m_layerId = db->getLayerZeroId();
  }
}

void OdDbEntity::subAddedToDatabase() {
  // A clone's foreign layer waits for translation; an entity without one gets layer "0".
  if (m_layerId.isNull()) m_layerId = database()->getLayerZeroId();
}

OdResult OdDbEntity::transformBy(const OdGeMatrix3d&) {
  return eNotApplicable;
}

OdResult OdDbEntity::getTransformedCopy(const OdGeMatrix3d& xform, OdDbEntityPtr& copy) const {
  assertReadEnabled();
  OdDbEntityPtr made = OdDbEntityPtr(clone());
  const OdResult result = made->transformBy(xform);
  if (result == eOk) copy = made;
  return result;
}

OdResult OdDbEntity::getStretchPoints(OdGePoint3dArray& points) const {
  return subGetGripPoints(points);
}

OdResult OdDbEntity::moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  return subMoveGripPointsAt(indices, offset);
}

OdResult OdDbEntity::getGripPoints(OdGePoint3dArray& points) const {
  OdDbGripPointsPEPtr extension =
      OdDbGripPointsPE::cast(isA()->getX(OdDbGripPointsPE::desc()).get());
  return extension.isNull() ? subGetGripPoints(points) : extension->getGripPoints(this, points);
}

OdResult OdDbEntity::moveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  OdDbGripPointsPEPtr extension =
      OdDbGripPointsPE::cast(isA()->getX(OdDbGripPointsPE::desc()).get());
  return extension.isNull() ? subMoveGripPointsAt(indices, offset)
                            : extension->moveGripPointsAt(this, indices, offset);
}

OdResult OdDbEntity::subGetGripPoints(OdGePoint3dArray&) const {
  return eNotApplicable;
}

OdResult OdDbEntity::subMoveGripPointsAt(const OdIntArray&, const OdGeVector3d&) {
  return eNotApplicable;
}

OdResult OdDbEntity::getGeomExtents(OdGeExtents3d&) const {
  return eInvalidExtents;
}

bool OdDbEntity::canOwnClone(const OdDbObject*) const {
  return false;
}

OdResult OdDbEntity::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbObject::dwgInFields(filer);
  if (result != eOk) return result;
  m_layerId = filer->rdHardPointerId();
  // A layer that a translation dropped becomes layer "0" of the entity's database.
  if (m_layerId.isNull() && isDBRO()) m_layerId = database()->getLayerZeroId();
  m_linetype = internLinetype(filer->rdString());
  m_linetypeScale = filer->rdDouble();
  m_color = filer->rdInt16();
  m_hasTrueColor = filer->rdBool();
  m_trueColor = static_cast<std::uint32_t>(filer->rdInt32());
  m_lineWeight = filer->rdInt16();
  m_invisible = filer->rdBool();
  fieldTable().dwgIn(filer);
  return eOk;
}

void OdDbEntity::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbObject::dwgOutFields(filer);
  filer->wrHardPointerId(m_layerId);
  filer->wrString(*m_linetype);
  filer->wrDouble(m_linetypeScale);
  filer->wrInt16(m_color);
  filer->wrBool(m_hasTrueColor);
  filer->wrInt32(static_cast<std::int32_t>(m_trueColor));
  filer->wrInt16(m_lineWeight);
  filer->wrBool(m_invisible);
  fieldTable().dwgOut(filer);
}

OdResult OdDbEntity::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbObject::dxfInFields(filer);
  if (result != eOk) return result;
  if (!filer->atSubclassData("AcDbEntity"))
    throw OdError(eBadDxfSequence,
                  describe().str() + ": AcDbEntity expected at " + filer->describePosition().str());
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    const int code = filer->nextItem();
    switch (code) {
      case 8: {
        const OdString name = filer->rdString();
        OdDbDatabase* db = filer->database();
        OdDbObject* table = db && !db->getLayerTableId().isNull()
                                ? db->getLayerTableId().stub()->object()
                                : nullptr;
        if (!table) break;
        OdDbObjectId id = static_cast<OdDbSymbolTable*>(table)->lookup(name);
        if (id.isNull()) {
          // An entity on a layer the file never declared gets that layer.
          OdDbWriteGuard layers(table);
          OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
          layer->setName(name);
          id = static_cast<OdDbLayerTable*>(table)->add(layer.get());
        }
        m_layerId = id;
        break;
      }
      case 6:
        m_linetype = internLinetype(filer->rdString());
        break;
      case 62:
        m_color = filer->rdInt16();
        break;
      case 420:
        m_trueColor = static_cast<std::uint32_t>(filer->rdInt32()) & 0xFFFFFFu;
        m_hasTrueColor = true;
        break;
      case 370:
        m_lineWeight = filer->rdInt16();
        break;
      case 48:
        m_linetypeScale = filer->rdDouble();
        break;
      case 60:
        m_invisible = filer->rdInt16() != 0;
        break;
      default:
        // Paper space flag, layout name, material, plot style, transparency, color name, shadow
        // mode and the like are not modeled; the file layer keeps what a reader leaves.
        break;
    }
    if (code == 100) {
      filer->pushBackItem();
      break;
    }
  }
  const OdResult status = filer->filerStatus();
  return status == eOk ? fieldTable().dxfIn(filer, this) : status;
}

void OdDbEntity::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbObject::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbEntity");
  const OdString name = layer();
  filer->wrString(8, name.isEmpty() ? OdString("0") : name);
  if (*m_linetype != "ByLayer") filer->wrString(6, *m_linetype);
  if (m_color != kColorByLayer) filer->wrInt16(62, m_color);
  if (m_hasTrueColor) filer->wrInt32(420, static_cast<std::int32_t>(m_trueColor));
  if (m_lineWeight != OdDb::kLnWtByLayer) filer->wrInt16(370, m_lineWeight);
  if (m_linetypeScale != 1.0) filer->wrDouble(48, m_linetypeScale);
  if (m_invisible) filer->wrInt16(60, 1);
  fieldTable().dxfOut(filer);
}

FieldTable OdDbEntity::fieldTable() const {
  return FieldTable();
}

void OdDbEntity::audit(OdDbAuditInfo* auditInfo) {
  OdDbObject::audit(auditInfo);
  if (!isDBRO() ||
      (layerOf(m_layerId) && m_layerId.database() == database() && !m_layerId.isErased()))
    return;
  auditInfo->errorsFound(1);
  auditInfo->printError(describe(), "layer " + m_layerId.getHandle().ascii().str(),
                        "a layer of this database", "layer \"0\"");
  if (auditInfo->fixErrors()) {
    assertWriteEnabled();
    m_layerId = database()->getLayerZeroId();
    auditInfo->errorsFixed(1);
  }
}
