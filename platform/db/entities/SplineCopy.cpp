#include "platform/db/entities/SplineCopy.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/OdDbSpline.h"
#include "platform/ge/NurbsCurve.h"
#include "platform/ge/PlanarTransform.h"

OdResult SplineCopy::ofPath(const OdDbEntity* source, const std::vector<OdGePoint2d>& vertices,
                            const std::vector<double>& bulges, bool closed, double elevation,
                            const OdGeVector3d& normal, const OdGeMatrix3d& matrix,
                            OdDbEntityPtr& copy) {
  if (vertices.size() < 2) return eDegenerateGeometry;
  const PlanarTransform plane(matrix, normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  const NurbsCurve curve = NurbsCurve::fromBulgedPath(vertices, bulges, closed, elevation, normal);
  OdGePoint3dArray points;
  for (const OdGePoint3d& point : curve.controlPoints())
    points.append(matrix * point);
  OdDbSplinePtr spline = OdDbSpline::createObject();
  EntityFiling::copyProperties(source, spline.get());
  spline->setNurbsData(curve.degree(), true, closed, false, points, OdGeDoubleArray(curve.knots()),
                       OdGeDoubleArray(curve.weights()));
  spline->setNormal(plane.newNormal());
  copy = spline;
  return eOk;
}
