// Growing, testing and transforming boxes in space.
#include "platform/ge/OdGeExtents3d.h"

#include "platform/ge/OdGeMatrix3d.h"

OdGeExtents3d& OdGeExtents3d::expandBy(const OdGeVector3d& v) {
  if (!isValidExtents()) return *this;
  const OdGePoint3d lo = m_min;
  const OdGePoint3d hi = m_max;
  return addPoint(lo + v).addPoint(hi + v);
}

OdGeExtents3d& OdGeExtents3d::expandBy(double margin) {
  if (!isValidExtents()) return *this;
  const OdGeVector3d grow(margin, margin, margin);
  return set(m_min - grow, m_max + grow);
}

bool OdGeExtents3d::contains(const OdGePoint3d& p, const OdGeTol& tol) const {
  const double t = tol.equalPoint();
  return isValidExtents() && p.x >= m_min.x - t && p.x <= m_max.x + t && p.y >= m_min.y - t &&
         p.y <= m_max.y + t && p.z >= m_min.z - t && p.z <= m_max.z + t;
}

bool OdGeExtents3d::isDisjoint(const OdGeExtents3d& other, const OdGeTol& tol) const {
  if (!isValidExtents() || !other.isValidExtents()) return true;
  const double t = tol.equalPoint();
  return other.m_min.x > m_max.x + t || other.m_max.x < m_min.x - t ||
         other.m_min.y > m_max.y + t || other.m_max.y < m_min.y - t ||
         other.m_min.z > m_max.z + t || other.m_max.z < m_min.z - t;
}

OdGeExtents3d& OdGeExtents3d::transformBy(const OdGeMatrix3d& matrix) {
  if (!isValidExtents()) return *this;
  OdGeExtents3d result;
  for (int corner = 0; corner < 8; ++corner) {
    const OdGePoint3d p((corner & 1) ? m_max.x : m_min.x, (corner & 2) ? m_max.y : m_min.y,
                        (corner & 4) ? m_max.z : m_min.z);
    result.addPoint(matrix * p);
  }
  return *this = result;
}
