#include "platform/ge/NurbsCurve.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeMatrix3d.h"

namespace {
constexpr int kSamplesPerSpan = 32;

// Values of the degree + 1 basis functions that are non-zero on the span, and (when wanted)
// their first derivatives.
void basisFunctions(const std::vector<double>& knots, int span, double u, int degree,
                    double* values, double* derivatives) {
  std::vector<double> left(degree + 1), right(degree + 1);
  std::vector<std::vector<double>> table(degree + 1, std::vector<double>(degree + 1));
  table[0][0] = 1.0;
  for (int j = 1; j <= degree; ++j) {
    left[j] = u - knots[span + 1 - j];
    right[j] = knots[span + j] - u;
    double saved = 0.0;
    for (int r = 0; r < j; ++r) {
      table[j][r] = right[r + 1] + left[j - r];
      const double temp = table[r][j - 1] / table[j][r];
      table[r][j] = saved + right[r + 1] * temp;
      saved = left[j - r] * temp;
    }
    table[j][j] = saved;
  }
  for (int j = 0; j <= degree; ++j)
    values[j] = table[j][degree];
  if (!derivatives) return;
  for (int r = 0; r <= degree; ++r) {
    double d = 0.0;
    if (degree > 0) {
      if (r >= 1) d += table[r - 1][degree - 1] / table[degree][r - 1];
      if (r <= degree - 1) d -= table[r][degree - 1] / table[degree][r];
      d *= degree;
    }
    derivatives[r] = d;
  }
}

// Solves the square system in place by Gaussian elimination with partial pivoting, for three
// right-hand sides (x, y, z). False when the system is singular.
bool solve(std::vector<std::vector<double>>& a, std::vector<OdGePoint3d>& b) {
  const std::size_t n = a.size();
  for (std::size_t col = 0; col < n; ++col) {
    std::size_t pivot = col;
    for (std::size_t row = col + 1; row < n; ++row)
      if (std::fabs(a[row][col]) > std::fabs(a[pivot][col])) pivot = row;
    if (std::fabs(a[pivot][col]) < 1e-14) return false;
    std::swap(a[col], a[pivot]);
    std::swap(b[col], b[pivot]);
    for (std::size_t row = col + 1; row < n; ++row) {
      const double factor = a[row][col] / a[col][col];
      if (factor == 0.0) continue;
      for (std::size_t k = col; k < n; ++k)
        a[row][k] -= factor * a[col][k];
      b[row] -= b[col].asVector() * factor;
    }
  }
  for (std::size_t row = n; row-- > 0;) {
    OdGeVector3d sum = b[row].asVector();
    for (std::size_t k = row + 1; k < n; ++k)
      sum -= b[k].asVector() * a[row][k];
    b[row] = (sum / a[row][row]).asPoint();
  }
  return true;
}
}  // namespace

NurbsCurve::NurbsCurve(int degree, std::vector<double> knots,
                       std::vector<OdGePoint3d> controlPoints, std::vector<double> weights)
    : m_degree(degree),
      m_knots(std::move(knots)),
      m_points(std::move(controlPoints)),
      m_weights(std::move(weights)) {}

bool NurbsCurve::isValid() const {
  if (m_degree < 1 || m_points.size() < static_cast<std::size_t>(m_degree) + 1) return false;
  if (m_knots.size() != m_points.size() + m_degree + 1) return false;
  if (!m_weights.empty() && m_weights.size() != m_points.size()) return false;
  for (double w : m_weights)
    if (!(w > 0.0)) return false;
  if (!(m_knots[m_degree] < m_knots[m_points.size()])) return false;
  return std::is_sorted(m_knots.begin(), m_knots.end());
}

int NurbsCurve::findSpan(double param) const {
  const int last = static_cast<int>(m_points.size()) - 1;
  if (param >= m_knots[last + 1]) {
    int span = last;
    while (span > m_degree && m_knots[span] >= m_knots[last + 1])
      --span;
    return span;
  }
  const auto it = std::upper_bound(m_knots.begin() + m_degree, m_knots.begin() + last + 1, param);
  return static_cast<int>(it - m_knots.begin()) - 1;
}

OdGePoint3d NurbsCurve::evaluate(double param) const {
  const double u = std::clamp(param, m_knots[m_degree], m_knots[m_points.size()]);
  const int span = findSpan(u);
  std::vector<double> basis(m_degree + 1);
  basisFunctions(m_knots, span, u, m_degree, basis.data(), nullptr);
  OdGeVector3d sum;
  double weightSum = 0.0;
  for (int j = 0; j <= m_degree; ++j) {
    const int index = span - m_degree + j;
    const double w = m_weights.empty() ? 1.0 : m_weights[index];
    sum += m_points[index].asVector() * (basis[j] * w);
    weightSum += basis[j] * w;
  }
  return (sum / weightSum).asPoint();
}

void NurbsCurve::addToExtents(OdGeExtents3d& extents) const {
  const std::size_t end = m_points.size();
  for (std::size_t span = m_degree; span < end; ++span) {
    const double a = m_knots[span];
    const double b = m_knots[span + 1];
    if (!(b > a)) continue;
    for (int i = 0; i <= kSamplesPerSpan; ++i)
      extents.addPoint(evaluate(a + (b - a) * i / kSamplesPerSpan));
  }
}

bool NurbsCurve::interpolate(const std::vector<OdGePoint3d>& fitPoints,
                             const OdGeVector3d& startTangent, const OdGeVector3d& endTangent,
                             NurbsCurve& result) {
  const std::size_t count = fitPoints.size();
  if (count < 2) return false;
  std::vector<double> params(count, 0.0);
  for (std::size_t k = 1; k < count; ++k)
    params[k] = params[k - 1] + fitPoints[k].distanceTo(fitPoints[k - 1]);
  const double total = params.back();
  if (total <= OdGeContext::gTol.equalPoint()) return false;
  for (double& t : params)
    t /= total;
  params.back() = 1.0;

  // End derivatives with respect to the unit parameter: the given direction scaled to the total
  // chord, or the chord to the neighbouring fit point.
  auto derivative = [&](const OdGeVector3d& tangent, std::size_t from, std::size_t to) {
    if (!tangent.isZeroLength()) return tangent.normal() * total;
    return (fitPoints[to] - fitPoints[from]) / (params[to] - params[from]);
  };
  const OdGeVector3d d0 = derivative(startTangent, 0, 1);
  const OdGeVector3d d1 = derivative(endTangent, count - 2, count - 1);

  // Cubic with knots at the interior parameters; both end derivatives pin the two extra points.
  const int degree = 3;
  std::vector<double> knots(4, 0.0);
  for (std::size_t k = 1; k + 1 < count; ++k)
    knots.push_back(params[k]);
  knots.insert(knots.end(), 4, 1.0);
  const std::size_t unknowns = count + 2;
  std::vector<std::vector<double>> matrix(unknowns, std::vector<double>(unknowns, 0.0));
  std::vector<OdGePoint3d> rhs(unknowns);
  NurbsCurve shape(degree, knots, std::vector<OdGePoint3d>(unknowns), {});
  double values[4];
  double derivs[4];
  std::size_t row = 0;
  auto addRow = [&](double u, bool wantDerivative, const OdGePoint3d& value) {
    const int span = shape.findSpan(u);
    basisFunctions(knots, span, u, degree, values, derivs);
    for (int j = 0; j <= degree; ++j)
      matrix[row][span - degree + j] = wantDerivative ? derivs[j] : values[j];
    rhs[row++] = value;
  };
  addRow(0.0, false, fitPoints[0]);
  addRow(0.0, true, d0.asPoint());
  for (std::size_t k = 1; k + 1 < count; ++k)
    addRow(params[k], false, fitPoints[k]);
  addRow(1.0, true, d1.asPoint());
  addRow(1.0, false, fitPoints[count - 1]);
  if (!solve(matrix, rhs)) return false;
  result = NurbsCurve(degree, std::move(knots), std::move(rhs), {});
  return true;
}

NurbsCurve NurbsCurve::fromBulgedPath(const std::vector<OdGePoint2d>& vertices,
                                      const std::vector<double>& bulges, bool closed,
                                      double elevation, const OdGeVector3d& normal) {
  const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(normal);
  auto world = [&](const OdGePoint2d& p) { return toWorld * p.convert3d(elevation); };
  std::vector<OdGePoint3d> points;
  std::vector<double> weights;
  std::vector<double> knots(3, 0.0);
  const std::size_t count = vertices.size();
  const std::size_t segments = closed ? count : count - 1;
  points.push_back(world(vertices[0]));
  weights.push_back(1.0);
  int pieceIndex = 0;
  auto addPiece = [&](const OdGePoint3d& middle, double weight, const OdGePoint3d& end) {
    if (pieceIndex++ > 0) knots.insert(knots.end(), 2, static_cast<double>(pieceIndex - 1));
    points.push_back(middle);
    weights.push_back(weight);
    points.push_back(end);
    weights.push_back(1.0);
  };
  for (std::size_t i = 0; i < segments; ++i) {
    const OdGePoint2d& a = vertices[i];
    const OdGePoint2d& b = vertices[(i + 1) % count];
    const double bulge = i < bulges.size() ? bulges[i] : 0.0;
    const double sweep = 4.0 * std::atan(bulge);
    if (std::fabs(bulge) < 1e-12 || a.isEqualTo(b)) {
      addPiece(world(a + (b - a) * 0.5), 1.0, world(b));
      continue;
    }
    // The centre of the arc; a signed sweep turns from a to b about it.
    const OdGeVector2d chord = b - a;
    const double length = chord.length();
    const OdGeVector2d left(-chord.y / length, chord.x / length);
    const OdGePoint2d center = a + chord * 0.5 + left * (0.5 * length / std::tan(0.5 * sweep));
    const double radius = center.distanceTo(a);
    const double startAngle = std::atan2(a.y - center.y, a.x - center.x);
    const int pieces = static_cast<int>(std::ceil(std::fabs(sweep) / OdGeAngle::kHalfPi - 1e-9));
    const double step = sweep / pieces;
    const double weight = std::cos(0.5 * std::fabs(step));
    for (int k = 0; k < pieces; ++k) {
      const double mid = startAngle + (k + 0.5) * step;
      const double end = startAngle + (k + 1) * step;
      const OdGePoint2d middle =
          center + OdGeVector2d(std::cos(mid), std::sin(mid)) * (radius / weight);
      const OdGePoint2d endPoint =
          k + 1 == pieces ? b : center + OdGeVector2d(std::cos(end), std::sin(end)) * radius;
      addPiece(world(middle), weight, world(endPoint));
    }
  }
  knots.insert(knots.end(), 3, static_cast<double>(pieceIndex));
  return NurbsCurve(2, std::move(knots), std::move(points), std::move(weights));
}
