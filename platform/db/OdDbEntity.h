// Base of every entity: the graphical objects a block or layout holds. Keeps the common
// properties (layer, color, linetype, line weight, visibility) and declares the geometric
// operations each kind implements.
#pragma once

#include <cstdint>

#include "platform/base/OdArray.h"
#include "platform/db/OdDbObject.h"
#include "platform/ge/OdGeExtents3d.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector3d.h"

namespace OdDb {
enum Visibility { kVisible = 0, kInvisible = 1 };
// Line weights are hundredths of a millimetre, or one of these.
enum LineWeight { kLnWtByLayer = -1, kLnWtByBlock = -2, kLnWtByLwDefault = -3 };
}  // namespace OdDb

class FieldTable;
class OdDbEntity;
using OdDbEntityPtr = OdSmartPtr<OdDbEntity>;

class OdDbEntity : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbEntity);

 public:
  // Color indexes with a meaning of their own.
  static constexpr std::int16_t kColorByBlock = 0;
  static constexpr std::int16_t kColorByLayer = 256;

  OdDbEntity();

  // The block table record that owns the entity.
  OdDbObjectId blockId() const { return ownerId(); }

  OdDbObjectId layerId() const;
  // The layer's name, or an empty string when the entity has no layer.
  OdString layer() const;
  // eKeyNotFound for a layer the database does not have, eNoDatabase for a free entity.
  void setLayer(const OdString& layerName);
  // eWrongObjectType for an id that is no layer, eWrongDatabase for another database's layer.
  void setLayer(const OdDbObjectId& layerId);

  // 1..255, or kColorByBlock / kColorByLayer; setting an index drops a true color.
  std::int16_t colorIndex() const;
  void setColorIndex(std::int16_t index);
  bool hasTrueColor() const;
  // 0xRRGGBB.
  std::uint32_t trueColor() const;
  void setTrueColor(std::uint32_t rgb);

  // "ByLayer", "ByBlock" or a linetype name.
  const OdString& linetype() const;
  void setLinetype(const OdString& name);
  double linetypeScale() const;
  // eInvalidInput unless positive.
  void setLinetypeScale(double scale);
  // Hundredths of a millimetre (0..211) or an OdDb::LineWeight value.
  std::int16_t lineWeight() const;
  void setLineWeight(std::int16_t weight);
  OdDb::Visibility visibility() const;
  void setVisibility(OdDb::Visibility visibility);

  // Gives a free or new entity the database's defaults: layer "0" when it has none.
  void setDatabaseDefaults(OdDbDatabase* database = nullptr);

  // Geometry. The defaults answer eNotApplicable; every kind implements its own.
  virtual OdResult transformBy(const OdGeMatrix3d& xform);
  // A free transformed copy; by default a clone moved by transformBy. Kinds that change kind
  // under a non-uniform transform (a circle becoming an ellipse) override it.
  virtual OdResult getTransformedCopy(const OdGeMatrix3d& xform, OdDbEntityPtr& copy) const;
  // Stretch points default to the entity's own grip points.
  virtual OdResult getStretchPoints(OdGePoint3dArray& points) const;
  virtual OdResult moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset);
  // The grips a user sees and drags: those of a grip-points extension (OdDbGripPointsPE)
  // attached to the entity's class or a parent class, else the entity's own.
  OdResult getGripPoints(OdGePoint3dArray& points) const;
  OdResult moveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset);
  // The entity's own grips, whatever extension is attached.
  virtual OdResult subGetGripPoints(OdGePoint3dArray& points) const;
  virtual OdResult subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset);
  // eInvalidExtents when the entity has no extents.
  virtual OdResult getGeomExtents(OdGeExtents3d& extents) const;

  // The common properties, then the fields of the kind's field table.
  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  // AcDbEntity: 8 layer, 6 linetype, 62 color, 420 true color, 370 line weight, 48 linetype
  // scale, 60 visibility; properties at their default value are not written. The subclasses of
  // the kind's field table follow.
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;
  void audit(OdDbAuditInfo* auditInfo) override;

 protected:
  // A kind whose filing is a flat list of fields declares them here and files nothing by hand;
  // the others answer no fields.
  virtual FieldTable fieldTable() const;
  bool canOwnClone(const OdDbObject* child) const override;
  void subAddedToDatabase() override;

 private:
  OdDbObjectId m_layerId;
  const OdString* m_linetype;
  double m_linetypeScale = 1.0;
  std::uint32_t m_trueColor = 0;
  std::int16_t m_color = kColorByLayer;
  std::int16_t m_lineWeight = OdDb::kLnWtByLayer;
  bool m_hasTrueColor = false;
  bool m_invisible = false;
};
