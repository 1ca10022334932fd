// Products, inversion, classification and the standard transformations of space.
#include "platform/ge/OdGeMatrix3d.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/base/OdError.h"
#include "platform/ge/OdGePlane.h"

const OdGeMatrix3d OdGeMatrix3d::kIdentity;

namespace {
// Length of column `column` over the first `rows` rows.
double columnLength(const double (&m)[4][4], int column, int rows) {
  double sum = 0.0;
  for (int r = 0; r < rows; ++r)
    sum += m[r][column] * m[r][column];
  return std::sqrt(sum);
}

double columnDot(const double (&m)[4][4], int a, int b) {
  return m[0][a] * m[0][b] + m[1][a] * m[1][b] + m[2][a] * m[2][b];
}

// The translation that keeps center fixed under the linear part of m: center - L * center.
OdGeVector3d fixedPointShift(const OdGeMatrix3d& m, const OdGePoint3d& center) {
  return center.asVector() - OdGeVector3d().setToProduct(m, center.asVector());
}

OdGeVector3d unitOrThrow(const OdGeVector3d& v, const char* what) {
  const double len = v.length();
  if (len == 0.0 || !std::isfinite(len)) throw OdError(eDegenerateGeometry, what);
  return v / len;
}
}  // namespace

OdGeMatrix3d OdGeMatrix3d::operator*(const OdGeMatrix3d& m) const {
  OdGeMatrix3d product;
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) {
      product.entry[r][c] = entry[r][0] * m.entry[0][c] + entry[r][1] * m.entry[1][c] +
                            entry[r][2] * m.entry[2][c] + entry[r][3] * m.entry[3][c];
    }
  }
  return product;
}

double OdGeMatrix3d::det() const {
  const auto& m = entry;
  // Laplace expansion by 2x2 minors of the top and bottom row pairs.
  const double s0 = m[0][0] * m[1][1] - m[1][0] * m[0][1];
  const double s1 = m[0][0] * m[1][2] - m[1][0] * m[0][2];
  const double s2 = m[0][0] * m[1][3] - m[1][0] * m[0][3];
  const double s3 = m[0][1] * m[1][2] - m[1][1] * m[0][2];
  const double s4 = m[0][1] * m[1][3] - m[1][1] * m[0][3];
  const double s5 = m[0][2] * m[1][3] - m[1][2] * m[0][3];
  const double c5 = m[2][2] * m[3][3] - m[3][2] * m[2][3];
  const double c4 = m[2][1] * m[3][3] - m[3][1] * m[2][3];
  const double c3 = m[2][1] * m[3][2] - m[3][1] * m[2][2];
  const double c2 = m[2][0] * m[3][3] - m[3][0] * m[2][3];
  const double c1 = m[2][0] * m[3][2] - m[3][0] * m[2][2];
  const double c0 = m[2][0] * m[3][1] - m[3][0] * m[2][1];
  return s0 * c5 - s1 * c4 + s2 * c3 + s3 * c2 - s4 * c1 + s5 * c0;
}

bool OdGeMatrix3d::isSingular(const OdGeTol& tol) const {
  // Affine matrices are judged on their linear part alone, so a large translation does not
  // make a well-conditioned matrix look flat.
  const int n = isAffine() ? 3 : 4;
  double lengths[4] = {1.0, 1.0, 1.0, 1.0};
  double longest = 0.0;
  double product = 1.0;
  for (int c = 0; c < n; ++c) {
    lengths[c] = columnLength(entry, c, n);
    longest = std::max(longest, lengths[c]);
    product *= lengths[c];
  }
  if (!(longest > 0.0) || !std::isfinite(longest)) return true;
  for (int c = 0; c < n; ++c) {
    if (lengths[c] <= tol.equalVector() * longest) return true;
  }
  const double volume = std::fabs(det());
  return !(volume > tol.equalVector() * product);
}

OdGeMatrix3d OdGeMatrix3d::inverse(const OdGeTol& tol) const {
  if (isSingular(tol)) {
    throw OdError(eDegenerateGeometry, "OdGeMatrix3d::inverse: the matrix is singular");
  }
  // Gauss-Jordan elimination with partial pivoting on [this | I].
  double a[4][4];
  std::copy(&entry[0][0], &entry[0][0] + 16, &a[0][0]);
  OdGeMatrix3d result;
  auto& b = result.entry;
  for (int col = 0; col < 4; ++col) {
    int pivot = col;
    for (int r = col + 1; r < 4; ++r) {
      if (std::fabs(a[r][col]) > std::fabs(a[pivot][col])) pivot = r;
    }
    if (a[pivot][col] == 0.0) {
      throw OdError(eDegenerateGeometry, "OdGeMatrix3d::inverse: the matrix is singular");
    }
    if (pivot != col) {
      std::swap(a[pivot], a[col]);
      std::swap(b[pivot], b[col]);
    }
    const double scale = 1.0 / a[col][col];
    for (int c = 0; c < 4; ++c) {
      a[col][c] *= scale;
      b[col][c] *= scale;
    }
    for (int r = 0; r < 4; ++r) {
      if (r == col || a[r][col] == 0.0) continue;
      const double factor = a[r][col];
      for (int c = 0; c < 4; ++c) {
        a[r][c] -= factor * a[col][c];
        b[r][c] -= factor * b[col][c];
      }
    }
  }
  return result;
}

OdGeMatrix3d OdGeMatrix3d::transpose() const {
  OdGeMatrix3d result;
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c)
      result.entry[r][c] = entry[c][r];
  }
  return result;
}

bool OdGeMatrix3d::isEqualTo(const OdGeMatrix3d& m, const OdGeTol& tol) const {
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) {
      const double limit = (c == 3 && r < 3) ? tol.equalPoint() : tol.equalVector();
      if (!(std::fabs(entry[r][c] - m.entry[r][c]) <= limit)) return false;
    }
  }
  return true;
}

bool OdGeMatrix3d::axesOrthogonal(const OdGeTol& tol, double lengths[3]) const {
  if (!isAffine()) return false;
  for (int c = 0; c < 3; ++c) {
    lengths[c] = columnLength(entry, c, 3);
    if (!(lengths[c] > tol.equalVector()) || !std::isfinite(lengths[c])) return false;
  }
  for (int a = 0; a < 3; ++a) {
    for (int b = a + 1; b < 3; ++b) {
      if (std::fabs(columnDot(entry, a, b)) > tol.equalVector() * lengths[a] * lengths[b]) {
        return false;
      }
    }
  }
  return true;
}

bool OdGeMatrix3d::isScaledOrtho(const OdGeTol& tol) const {
  double lengths[3];
  return axesOrthogonal(tol, lengths);
}

bool OdGeMatrix3d::isUniScaledOrtho(const OdGeTol& tol) const {
  double lengths[3];
  if (!axesOrthogonal(tol, lengths)) return false;
  const double longest = std::max({lengths[0], lengths[1], lengths[2]});
  const double shortest = std::min({lengths[0], lengths[1], lengths[2]});
  return longest - shortest <= tol.equalVector() * longest;
}

double OdGeMatrix3d::scale() const {
  return std::max(
      {columnLength(entry, 0, 3), columnLength(entry, 1, 3), columnLength(entry, 2, 3)});
}

OdGeMatrix3d& OdGeMatrix3d::setTranslation(const OdGeVector3d& v) {
  entry[0][3] = v.x;
  entry[1][3] = v.y;
  entry[2][3] = v.z;
  return *this;
}

OdGeMatrix3d& OdGeMatrix3d::setCoordSystem(const OdGePoint3d& origin, const OdGeVector3d& xAxis,
                                           const OdGeVector3d& yAxis, const OdGeVector3d& zAxis) {
  const OdGeVector3d* axes[3] = {&xAxis, &yAxis, &zAxis};
  for (int c = 0; c < 3; ++c) {
    entry[0][c] = axes[c]->x;
    entry[1][c] = axes[c]->y;
    entry[2][c] = axes[c]->z;
    entry[3][c] = 0.0;
  }
  entry[3][3] = 1.0;
  return setTranslation(origin.asVector());
}

void OdGeMatrix3d::getCoordSystem(OdGePoint3d& origin, OdGeVector3d& xAxis, OdGeVector3d& yAxis,
                                  OdGeVector3d& zAxis) const {
  origin = getCsOrigin();
  xAxis = getCsXAxis();
  yAxis = getCsYAxis();
  zAxis = getCsZAxis();
}

OdGeMatrix3d OdGeMatrix3d::translation(const OdGeVector3d& v) {
  return OdGeMatrix3d().setTranslation(v);
}

OdGeMatrix3d OdGeMatrix3d::rotation(double angle, const OdGeVector3d& axis,
                                    const OdGePoint3d& center) {
  const OdGeVector3d k =
      unitOrThrow(axis, "OdGeMatrix3d::rotation: the rotation axis has no direction");
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  const double t = 1.0 - c;
  // Rodrigues: c*I + s*[k]x + (1 - c)*k*k^T.
  OdGeMatrix3d m;
  m.entry[0][0] = c + t * k.x * k.x;
  m.entry[0][1] = t * k.x * k.y - s * k.z;
  m.entry[0][2] = t * k.x * k.z + s * k.y;
  m.entry[1][0] = t * k.y * k.x + s * k.z;
  m.entry[1][1] = c + t * k.y * k.y;
  m.entry[1][2] = t * k.y * k.z - s * k.x;
  m.entry[2][0] = t * k.z * k.x - s * k.y;
  m.entry[2][1] = t * k.z * k.y + s * k.x;
  m.entry[2][2] = c + t * k.z * k.z;
  return m.setTranslation(fixedPointShift(m, center));
}

OdGeMatrix3d OdGeMatrix3d::scaling(double factor, const OdGePoint3d& center) {
  return scaling(OdGeScale3d(factor), center);
}

OdGeMatrix3d OdGeMatrix3d::scaling(const OdGeScale3d& factors, const OdGePoint3d& center) {
  OdGeMatrix3d m;
  m.entry[0][0] = factors.sx;
  m.entry[1][1] = factors.sy;
  m.entry[2][2] = factors.sz;
  return m.setTranslation(fixedPointShift(m, center));
}

OdGeMatrix3d OdGeMatrix3d::mirroring(const OdGePlane& plane) {
  const OdGeVector3d n = plane.normal();
  OdGeMatrix3d m;
  const double nn[3] = {n.x, n.y, n.z};
  for (int r = 0; r < 3; ++r) {
    for (int c = 0; c < 3; ++c)
      m.entry[r][c] = (r == c ? 1.0 : 0.0) - 2.0 * nn[r] * nn[c];
  }
  return m.setTranslation(n * (2.0 * plane.pointOnPlane().asVector().dotProduct(n)));
}

OdGeMatrix3d OdGeMatrix3d::mirroring(const OdGePoint3d& center) {
  return scaling(-1.0, center);
}

OdGeMatrix3d OdGeMatrix3d::planeToWorld(const OdGeVector3d& normal) {
  const OdGeVector3d n =
      unitOrThrow(normal, "OdGeMatrix3d::planeToWorld: the plane normal has no direction");
  const OdGeVector3d xAxis = n.perpVector().normal();
  return OdGeMatrix3d().setCoordSystem(OdGePoint3d::kOrigin, xAxis, n.crossProduct(xAxis), n);
}

OdGeMatrix3d OdGeMatrix3d::worldToPlane(const OdGeVector3d& normal) {
  // The object system is orthonormal, so its inverse is its transpose.
  return planeToWorld(normal).transpose();
}

OdGeMatrix3d OdGeMatrix3d::alignCoordSys(const OdGePoint3d& fromOrigin,
                                         const OdGeVector3d& fromXAxis,
                                         const OdGeVector3d& fromYAxis,
                                         const OdGeVector3d& fromZAxis, const OdGePoint3d& toOrigin,
                                         const OdGeVector3d& toXAxis, const OdGeVector3d& toYAxis,
                                         const OdGeVector3d& toZAxis) {
  const OdGeMatrix3d from =
      OdGeMatrix3d().setCoordSystem(fromOrigin, fromXAxis, fromYAxis, fromZAxis);
  if (from.isSingular()) {
    throw OdError(eDegenerateGeometry,
                  "OdGeMatrix3d::alignCoordSys: the source axes do not span space");
  }
  return OdGeMatrix3d().setCoordSystem(toOrigin, toXAxis, toYAxis, toZAxis) * from.inverse();
}
