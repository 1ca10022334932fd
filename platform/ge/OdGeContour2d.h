// A closed plane contour of straight and circular-arc edges, described by its vertices and the
// bulge of the edge leaving each one (tan(sweep / 4), positive counter-clockwise; the last
// vertex's bulge belongs to the closing edge). Answers point containment for stretch frames.
#pragma once

#include <vector>

#include "platform/base/OdArray.h"
#include "platform/ge/OdGeExtents2d.h"
#include "platform/ge/OdGePoint2d.h"
#include "platform/ge/OdGeTol.h"
#include "platform/ge/OdGeVector2d.h"

class OdGeMatrix3d;

class OdGeContour2d {
 public:
  enum Containment { kOutside, kInside, kOnBoundary };

  OdGeContour2d() = default;
  // The axis-aligned rectangle with these opposite corners, counter-clockwise.
  static OdGeContour2d rectangle(const OdGePoint2d& corner1, const OdGePoint2d& corner2);
  // The polygon through these points, all edges straight.
  static OdGeContour2d fromPoints(const OdArray<OdGePoint2d>& points);

  // A non-finite point or bulge raises eInvalidInput.
  OdGeContour2d& appendVertex(const OdGePoint2d& point, double bulge = 0.0);
  unsigned numVertices() const { return static_cast<unsigned>(m_vertices.size()); }
  // An index past the end raises eInvalidIndex.
  const OdGePoint2d& vertexAt(unsigned index) const { return vertex(index).point; }
  double bulgeAt(unsigned index) const { return vertex(index).bulge; }

  OdGeContour2d& translate(const OdGeVector2d& offset);
  // Applies matrix to the contour lying in the XY plane and keeps the XY part of the result.
  // Mirroring reverses the bulges; a transformation that would turn arcs into ellipses raises
  // eNotApplicable.
  OdGeContour2d& transformBy(const OdGeMatrix3d& matrix);

  // The box around the edges, arcs included; invalid for an empty contour.
  OdGeExtents2d extents() const;
  // Enclosed area, positive when the contour runs counter-clockwise.
  double area() const;
  bool isClockwise() const { return area() < 0.0; }

  // Where p lies: on the boundary when within tol of an edge, otherwise inside or outside.
  Containment classify(const OdGePoint2d& p, double tol = OdGeContext::gTol.equalPoint()) const;
  // True inside or on the boundary.
  bool contains(const OdGePoint2d& p, double tol = OdGeContext::gTol.equalPoint()) const {
    return classify(p, tol) != kOutside;
  }

 private:
  struct Vertex {
    OdGePoint2d point;
    double bulge;
  };
  const Vertex& vertex(unsigned index) const;

  std::vector<Vertex> m_vertices;
};
