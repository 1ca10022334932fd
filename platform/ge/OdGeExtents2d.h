// An axis-aligned rectangle in the plane; starts out invalid (empty) until a point is added.
#pragma once

#include <algorithm>

#include "platform/ge/OdGePoint2d.h"
#include "platform/ge/OdGeTol.h"
#include "platform/ge/OdGeVector2d.h"

class OdGeExtents2d {
 public:
  OdGeExtents2d() = default;
  // The rectangle with these corners, taken as given: a min above max leaves it invalid.
  OdGeExtents2d(const OdGePoint2d& minPoint, const OdGePoint2d& maxPoint)
      : m_min(minPoint), m_max(maxPoint) {}

  const OdGePoint2d& minPoint() const { return m_min; }
  const OdGePoint2d& maxPoint() const { return m_max; }
  OdGeExtents2d& set(const OdGePoint2d& minPoint, const OdGePoint2d& maxPoint) {
    m_min = minPoint;
    m_max = maxPoint;
    return *this;
  }
  bool isValidExtents() const { return m_min.x <= m_max.x && m_min.y <= m_max.y; }

  OdGeExtents2d& addPoint(const OdGePoint2d& p) {
    m_min.set(std::min(m_min.x, p.x), std::min(m_min.y, p.y));
    m_max.set(std::max(m_max.x, p.x), std::max(m_max.y, p.y));
    return *this;
  }
  // Grows to hold other; an invalid other adds nothing.
  OdGeExtents2d& addExt(const OdGeExtents2d& other) {
    if (other.isValidExtents()) addPoint(other.m_min).addPoint(other.m_max);
    return *this;
  }
  // Grows by margin on every side (shrinks for a negative margin); an invalid box stays invalid.
  OdGeExtents2d& expandBy(double margin) {
    if (isValidExtents())
      set(m_min - OdGeVector2d(margin, margin), m_max + OdGeVector2d(margin, margin));
    return *this;
  }
  // True when p is inside or within tol of the rectangle.
  bool contains(const OdGePoint2d& p, const OdGeTol& tol = OdGeContext::gTol) const {
    const double t = tol.equalPoint();
    return isValidExtents() && p.x >= m_min.x - t && p.x <= m_max.x + t && p.y >= m_min.y - t &&
           p.y <= m_max.y + t;
  }
  OdGePoint2d center() const { return m_min + (m_max - m_min) * 0.5; }

 private:
  OdGePoint2d m_min{1e20, 1e20};
  OdGePoint2d m_max{-1e20, -1e20};
};
