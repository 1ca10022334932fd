// A block reference: shows a block definition at a position, scale, rotation and plane, and owns
// the attributes that carry its values.
#pragma once

#include "platform/db/OdDbEntity.h"
#include "platform/db/OdDbObjectIterator.h"
#include "platform/ge/OdGeScale3d.h"

class OdDbAttribute;

class OdDbBlockReference : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbBlockReference);

 public:
  OdDbBlockReference();

  OdDbObjectId blockTableRecord() const;
  // Points the reference at another block; the blocks' reference lists follow. eWrongObjectType
  // for an id that is no block, eWrongDatabase for another database's block.
  void setBlockTableRecord(const OdDbObjectId& blockId);

  OdGePoint3d position() const;
  void setPosition(const OdGePoint3d& position);
  OdGeScale3d scaleFactors() const;
  // eInvalidInput when a factor is zero.
  void setScaleFactors(const OdGeScale3d& scale);
  double rotation() const;
  void setRotation(double angle);
  OdGeVector3d normal() const;
  // eInvalidInput for a zero vector; the normal is stored unit length.
  void setNormal(const OdGeVector3d& normal);

  // translation(position) * planeToWorld(normal) * rotation(rotation, Z) * scaling(scale) *
  // translation(-block origin).
  OdGeMatrix3d blockTransform() const;
  // Sets position, normal, rotation and scale from a transform of that form. Nothing changes
  // when it cannot: eCannotScaleNonUniformly for a shear, eInvalidInput for a collapse. A
  // mirror keeps the normal and shows as a negative X scale.
  OdResult setBlockTransform(const OdGeMatrix3d& xform);

  // Adds a free attribute to this reference (which must be in a database), or one already in
  // its database and owned by nothing (a file reader's). Needs write access.
  OdDbObjectId appendAttribute(OdDbAttribute* attribute);
  OdDbObjectIteratorPtr attributeIterator() const;

  // Composes xform with the block transform and moves the attributes along; a result that
  // shears the block is refused (eCannotScaleNonUniformly) and changes nothing.
  OdResult transformBy(const OdGeMatrix3d& xform) override;
  // The position; moving it moves the attributes too.
  OdResult getStretchPoints(OdGePoint3dArray& points) const override;
  OdResult moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult subGetGripPoints(OdGePoint3dArray& points) const override;
  OdResult subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  // The block's entity extents under the block transform.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  // AcDbBlockReference: 66 attributes follow, 2 block name, 10 position, 41/42/43 scale, 50
  // rotation in degrees, 210 normal. The attributes are separate objects of the file.
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 protected:
  bool canOwnClone(const OdDbObject* child) const override;
  void appendPrimaryClone(OdDbObject* clone, const OdDbObject* source,
                          OdDbIdMapping& mapping) override;
  void subAddedToDatabase() override;

 private:
  friend class OdDbDatabase;
  friend class OdDbBlockTableRecord;

  void relink(const OdDbObjectId& from, const OdDbObjectId& to);

  OdDbObjectId m_blockId;
  OdGePoint3d m_position;
  OdGeScale3d m_scale{1.0, 1.0, 1.0};
  double m_rotation = 0.0;
  OdGeVector3d m_normal{0.0, 0.0, 1.0};
  OdDbObjectIdArray m_attributes;
};
using OdDbBlockReferencePtr = OdSmartPtr<OdDbBlockReference>;
