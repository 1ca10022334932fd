// Block reference: placement of a block, its transform and its attributes.
#include "platform/db/entities/OdDbBlockReference.h"

#include <cmath>

#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbStub.h"
#include "platform/db/OdDbWriteGuard.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/ge/Placement.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbBlockReference, OdDbEntity, "INSERT", "", 0)

namespace {
constexpr double kTwoPi = OdGeConstants::k2Pi;

OdDbBlockTableRecord* blockOf(const OdDbObjectId& id) {
  OdDbObject* object = id.isNull() ? nullptr : id.stub()->object();
  if (!object || !object->isKindOf(OdDbBlockTableRecord::desc())) return nullptr;
  return static_cast<OdDbBlockTableRecord*>(object);
}
}  // namespace

OdDbBlockReference::OdDbBlockReference() = default;

OdDbObjectId OdDbBlockReference::blockTableRecord() const {
  assertReadEnabled();
  return m_blockId;
}

void OdDbBlockReference::relink(const OdDbObjectId& from, const OdDbObjectId& to) {
  if (!isDBRO()) return;
  if (OdDbBlockTableRecord* old = blockOf(from)) old->m_referenceIds.remove(objectId());
  if (to.isNull()) return;
  if (OdDbBlockTableRecord* block = blockOf(to)) {
    // A reference is listed at most once: it leaves its old block's list before it joins.
    block->m_referenceIds.append(objectId());
  } else {
    // The block is not loaded yet: its list is rebuilt when it is asked for.
    database()->invalidateBlockReferenceLists();
  }
}

void OdDbBlockReference::setBlockTableRecord(const OdDbObjectId& blockId) {
  if (blockId == m_blockId) return;
  if (!blockId.isNull()) {
    if (isDBRO() && blockId.database() != database())
      throw OdError(eWrongDatabase, describe().str() + ": the block belongs to another database");
    if (!blockOf(blockId) && blockId.stub()->object())
      throw OdError(eWrongObjectType, describe().str() + ": " + blockId.getHandle().ascii().str() +
                                          " is not a block");
  }
  assertWriteEnabled();
  relink(m_blockId, blockId);
  m_blockId = blockId;
}

void OdDbBlockReference::subAddedToDatabase() {
  OdDbEntity::subAddedToDatabase();
  relink(OdDbObjectId::kNull, m_blockId);
}

OdGePoint3d OdDbBlockReference::position() const {
  assertReadEnabled();
  return m_position;
}

void OdDbBlockReference::setPosition(const OdGePoint3d& position) {
  assertWriteEnabled();
  m_position = position;
}

OdGeScale3d OdDbBlockReference::scaleFactors() const {
  assertReadEnabled();
  return m_scale;
}

void OdDbBlockReference::setScaleFactors(const OdGeScale3d& scale) {
  if (scale.sx == 0.0 || scale.sy == 0.0 || scale.sz == 0.0)
    throw OdError(eInvalidInput, describe().str() + ": a scale factor of zero");
  assertWriteEnabled();
  m_scale = scale;
}

double OdDbBlockReference::rotation() const {
  assertReadEnabled();
  return m_rotation;
}

void OdDbBlockReference::setRotation(double angle) {
  assertWriteEnabled();
  angle = std::fmod(angle, kTwoPi);
  m_rotation = angle < 0.0 ? angle + kTwoPi : angle;
}

OdGeVector3d OdDbBlockReference::normal() const {
  assertReadEnabled();
  return m_normal;
}

void OdDbBlockReference::setNormal(const OdGeVector3d& normal) {
  if (normal.isZeroLength()) throw OdError(eInvalidInput, describe().str() + ": a zero normal");
  assertWriteEnabled();
  m_normal = normal.normal();
}

OdGeMatrix3d OdDbBlockReference::blockTransform() const {
  assertReadEnabled();
  const OdDbBlockTableRecord* block = blockOf(m_blockId);
  const OdGePoint3d origin = block ? block->m_origin : OdGePoint3d::kOrigin;
  return OdGeMatrix3d::translation(m_position.asVector()) * OdGeMatrix3d::planeToWorld(m_normal) *
         OdGeMatrix3d::rotation(m_rotation, OdGeVector3d::kZAxis) * OdGeMatrix3d::scaling(m_scale) *
         OdGeMatrix3d::translation(-origin.asVector());
}

OdResult OdDbBlockReference::setBlockTransform(const OdGeMatrix3d& xform) {
  assertReadEnabled();
  const OdDbBlockTableRecord* block = blockOf(m_blockId);
  const OdGePoint3d origin = block ? block->m_origin : OdGePoint3d::kOrigin;
  Placement placement;
  const OdResult result = Placement::decompose(xform * OdGeMatrix3d::translation(origin.asVector()),
                                               m_normal, placement);
  if (result != eOk) return result;
  assertWriteEnabled();
  m_position = placement.position;
  m_scale = placement.scale;
  m_rotation = placement.rotation;
  m_normal = placement.normal;
  return eOk;
}

OdResult OdDbBlockReference::transformBy(const OdGeMatrix3d& xform) {
  const OdResult result = setBlockTransform(xform * blockTransform());
  if (result != eOk) return result == eInvalidInput ? eInvalidInput : eCannotScaleNonUniformly;
  for (const OdDbObjectId& id : m_attributes) {
    if (id.isErased()) continue;
    OdDbWriteGuard attribute(id);
    if (attribute) static_cast<OdDbEntity*>(attribute.get())->transformBy(xform);
  }
  return eOk;
}

OdDbObjectId OdDbBlockReference::appendAttribute(OdDbAttribute* attribute) {
  if (!attribute)
    throw OdError(eNullPtr, describe().str() + ": appendAttribute without an attribute");
  assertWriteEnabled();
  if (!isDBRO()) throw OdError(eNoDatabase, describe().str() + " is not in a database");
  if (attribute->isDBRO()) {
    // A file reader's attribute joins the database first, under its own handle.
    const OdDbObjectId id = attribute->objectId();
    if (attribute->database() != database() || !attribute->ownerId().isNull())
      throw OdError(eAlreadyInDb, attribute->describe().str() + " is already in a database");
    attribute->setOwnerId(objectId());
    m_attributes.append(id);
    return id;
  }
  const OdDbObjectId id = database()->addOdDbObject(attribute, objectId());
  m_attributes.append(id);
  return id;
}

OdDbObjectIteratorPtr OdDbBlockReference::attributeIterator() const {
  assertReadEnabled();
  return OdDbObjectIterator::createObject(m_attributes, true, true);
}

OdResult OdDbBlockReference::getStretchPoints(OdGePoint3dArray& points) const {
  return subGetGripPoints(points);
}

OdResult OdDbBlockReference::moveStretchPointsAt(const OdIntArray& indices,
                                                 const OdGeVector3d& offset) {
  return subMoveGripPointsAt(indices, offset);
}

OdResult OdDbBlockReference::subGetGripPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  points.append(m_position);
  return eOk;
}

OdResult OdDbBlockReference::subMoveGripPointsAt(const OdIntArray& indices,
                                                 const OdGeVector3d& offset) {
  if (!indices.contains(0)) return eOk;
  return transformBy(OdGeMatrix3d::translation(offset));
}

OdResult OdDbBlockReference::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  const OdDbBlockTableRecord* block = blockOf(m_blockId);
  if (!block) return eInvalidExtents;
  const OdGeMatrix3d xform = blockTransform();
  OdGeExtents3d result;
  bool any = false;
  for (const OdDbObjectId& id : block->m_entities) {
    if (id.isErased()) continue;
    OdDbObject* object = id.stub()->object();
    if (!object) continue;
    OdDbObjectPtr hold;
    if (!object->isReadEnabled() && id.openObject(hold) != eOk) continue;
    OdGeExtents3d own;
    if (static_cast<const OdDbEntity*>(object)->getGeomExtents(own) != eOk) continue;
    const OdGePoint3d& lo = own.minPoint();
    const OdGePoint3d& hi = own.maxPoint();
    for (int corner = 0; corner < 8; ++corner) {
      OdGePoint3d point((corner & 1) ? hi.x : lo.x, (corner & 2) ? hi.y : lo.y,
                        (corner & 4) ? hi.z : lo.z);
      result.addPoint(point.transformBy(xform));
    }
    any = true;
  }
  if (!any) return eInvalidExtents;
  extents = result;
  return eOk;
}

bool OdDbBlockReference::canOwnClone(const OdDbObject* child) const {
  return child && child->isKindOf(OdDbAttribute::desc());
}

void OdDbBlockReference::appendPrimaryClone(OdDbObject* clone, const OdDbObject*, OdDbIdMapping&) {
  m_attributes.append(clone->objectId());
}

OdResult OdDbBlockReference::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbEntity::dwgInFields(filer);
  if (result != eOk) return result;
  const OdDbObjectId blockId = filer->rdHardPointerId();
  if (blockId != m_blockId) {
    relink(m_blockId, blockId);
    m_blockId = blockId;
  }
  m_position = filer->rdPoint3d();
  m_scale = filer->rdScale3d();
  m_rotation = filer->rdDouble();
  m_normal = filer->rdVector3d();
  OdDbObjectIdArray attributes;
  const std::int32_t count = filer->rdInt32();
  for (std::int32_t i = 0; i < count; ++i) {
    const OdDbObjectId id = filer->rdHardOwnershipId();
    if (!id.isNull()) attributes.append(id);
  }
  m_attributes = attributes;
  return eOk;
}

void OdDbBlockReference::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrHardPointerId(m_blockId);
  filer->wrPoint3d(m_position);
  filer->wrScale3d(m_scale);
  filer->wrDouble(m_rotation);
  filer->wrVector3d(m_normal);
  const bool skipErased = filer->filerType() == OdDb::kFileFiler;
  std::int32_t count = 0;
  for (const OdDbObjectId& id : m_attributes)
    if (!skipErased || !id.isErased()) ++count;
  filer->wrInt32(count);
  for (const OdDbObjectId& id : m_attributes)
    if (!skipErased || !id.isErased()) filer->wrHardOwnershipId(id);
}

OdResult OdDbBlockReference::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbEntity::dxfInFields(filer);
  if (result != eOk) return result;
  if (!filer->atSubclassData("AcDbBlockReference"))
    throw OdError(eBadDxfSequence, describe().str() + ": AcDbBlockReference expected at " +
                                       filer->describePosition().str());
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    const int code = filer->nextItem();
    switch (code) {
      case 66:
        filer->rdInt16();
        break;
      case 2: {
        const OdString name = filer->rdString();
        OdDbDatabase* db = filer->database();
        const OdDbObjectId tableId = db ? db->getBlockTableId() : OdDbObjectId::kNull;
        const OdDbObject* table = tableId.isNull() ? nullptr : tableId.stub()->object();
        const OdDbObjectId blockId =
            table ? static_cast<const OdDbSymbolTable*>(table)->lookup(name) : OdDbObjectId::kNull;
        if (blockId.isNull())
          throw OdError(eKeyNotFound, describe().str() + ": block \"" + name.str() + "\" at " +
                                          filer->describePosition().str() + " is not defined");
        setBlockTableRecord(blockId);
        break;
      }
      case 10:
        m_position = filer->rdPoint3d();
        break;
      case 41:
        m_scale.sx = filer->rdDouble();
        break;
      case 42:
        m_scale.sy = filer->rdDouble();
        break;
      case 43:
        m_scale.sz = filer->rdDouble();
        break;
      case 50:
        setRotation(filer->rdDouble() * kTwoPi / 360.0);
        break;
      case 210:
        setNormal(filer->rdVector3d());
        break;
      default:
        // Array columns and rows (minsert) are not kept.
        break;
    }
  }
  if (m_scale.sx == 0.0 || m_scale.sy == 0.0 || m_scale.sz == 0.0)
    throw OdError(eInvalidInput, describe().str() + ": a scale factor of zero before " +
                                     filer->describePosition().str());
  return filer->filerStatus();
}

void OdDbBlockReference::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbBlockReference");
  std::int32_t live = 0;
  for (const OdDbObjectId& id : m_attributes)
    if (!id.isErased()) ++live;
  if (live) filer->wrInt16(66, 1);
  const OdDbBlockTableRecord* block = blockOf(m_blockId);
  filer->wrString(2, block ? block->m_name : OdString());
  filer->wrPoint3d(10, m_position);
  if (m_scale.sx != 1.0) filer->wrDouble(41, m_scale.sx);
  if (m_scale.sy != 1.0) filer->wrDouble(42, m_scale.sy);
  if (m_scale.sz != 1.0) filer->wrDouble(43, m_scale.sz);
  if (m_rotation != 0.0) filer->wrDouble(50, m_rotation * 360.0 / kTwoPi);
  if (!m_normal.isEqualTo(OdGeVector3d::kZAxis)) filer->wrVector3d(210, m_normal);
}
