// A vertex of a 2-D polyline: position in the polyline's object coordinates (z is the
// elevation), the bulge and widths of the segment it starts, and its curve-fit tangent. A vertex
// has no plane of its own: its polyline transforms and stretches it.
#pragma once

#include "platform/db/OdDbEntity.h"

class OdDb2dVertex : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDb2dVertex);

 public:
  // Vertex flags as drawing files store them.
  enum Flags {
    kCurveFitExtra = 1,
    kTangentUsed = 2,
    kSplineVertex = 8,
    kSplineControl = 16,
  };

  OdDb2dVertex() = default;

  OdGePoint3d position() const;
  void setPosition(const OdGePoint3d& position);
  double bulge() const;
  void setBulge(double bulge);
  double startWidth() const;
  void setStartWidth(double width);
  double endWidth() const;
  void setEndWidth(double width);
  double tangent() const;
  void setTangent(double angle);
  int flags() const;
  void setFlags(int flags);

  // A lone vertex cannot be transformed (eNotApplicable): it lies in its polyline's plane.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;

 protected:
  FieldTable fieldTable() const override;

 private:
  OdGePoint3d m_position;
  double m_bulge = 0.0;
  double m_startWidth = 0.0;
  double m_endWidth = 0.0;
  double m_tangent = 0.0;
  int m_flags = 0;
};
using OdDb2dVertexPtr = OdSmartPtr<OdDb2dVertex>;
