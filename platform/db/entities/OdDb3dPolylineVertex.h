// A vertex of a 3-D polyline: a world position and its spline flags.
#pragma once

#include "platform/db/OdDbEntity.h"

class OdDb3dPolylineVertex : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDb3dPolylineVertex);

 public:
  // Vertex flags as drawing files store them (the 3-D polyline bit is always added on output).
  enum Flags {
    kSplineVertex = 8,
    kSplineControl = 16,
    k3dPolylineVertex = 32,
  };

  OdDb3dPolylineVertex() = default;

  OdGePoint3d position() const;
  void setPosition(const OdGePoint3d& position);
  int flags() const;
  void setFlags(int flags);

  OdResult transformBy(const OdGeMatrix3d& matrix) override;

 protected:
  FieldTable fieldTable() const override;

 private:
  OdGePoint3d m_position;
  int m_flags = 0;
};
using OdDb3dPolylineVertexPtr = OdSmartPtr<OdDb3dPolylineVertex>;
