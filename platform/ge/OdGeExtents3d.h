// An axis-aligned box in space; starts out invalid (empty) until a point is added.
#pragma once

#include <algorithm>

#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeTol.h"
#include "platform/ge/OdGeVector3d.h"

class OdGeMatrix3d;

class OdGeExtents3d {
 public:
  OdGeExtents3d() = default;
  // The box with these corners, taken as given: a min above max leaves it invalid.
  OdGeExtents3d(const OdGePoint3d& minPoint, const OdGePoint3d& maxPoint)
      : m_min(minPoint), m_max(maxPoint) {}

  const OdGePoint3d& minPoint() const { return m_min; }
  const OdGePoint3d& maxPoint() const { return m_max; }
  OdGeExtents3d& set(const OdGePoint3d& minPoint, const OdGePoint3d& maxPoint) {
    m_min = minPoint;
    m_max = maxPoint;
    return *this;
  }
  bool isValidExtents() const {
    return m_min.x <= m_max.x && m_min.y <= m_max.y && m_min.z <= m_max.z;
  }

  OdGeExtents3d& addPoint(const OdGePoint3d& p) {
    m_min.set(std::min(m_min.x, p.x), std::min(m_min.y, p.y), std::min(m_min.z, p.z));
    m_max.set(std::max(m_max.x, p.x), std::max(m_max.y, p.y), std::max(m_max.z, p.z));
    return *this;
  }
  // Grows to hold other; an invalid other adds nothing.
  OdGeExtents3d& addExt(const OdGeExtents3d& other) {
    if (other.isValidExtents()) addPoint(other.m_min).addPoint(other.m_max);
    return *this;
  }
  // Grows to hold the box swept along v (both corners moved by v).
  OdGeExtents3d& expandBy(const OdGeVector3d& v);
  // Grows by margin on every side (shrinks for a negative margin); an invalid box stays invalid.
  OdGeExtents3d& expandBy(double margin);

  // True when p is inside or within tol of the box.
  bool contains(const OdGePoint3d& p, const OdGeTol& tol = OdGeContext::gTol) const;
  // True when the boxes are more than tol apart along some axis (or either is invalid).
  bool isDisjoint(const OdGeExtents3d& other, const OdGeTol& tol = OdGeContext::gTol) const;
  // The extents of the eight transformed corners.
  OdGeExtents3d& transformBy(const OdGeMatrix3d& matrix);
  OdGePoint3d center() const { return m_min + (m_max - m_min) * 0.5; }

 private:
  OdGePoint3d m_min{1e20, 1e20, 1e20};
  OdGePoint3d m_max{-1e20, -1e20, -1e20};
};
