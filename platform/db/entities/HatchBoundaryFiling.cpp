// Hatch boundary loops in DXF and binary filing.
#include "platform/db/entities/HatchBoundaryFiling.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/ge/OdGeAngle.h"

namespace {
using Edge = OdDbHatch::Edge;
using Loop = OdDbHatch::Loop;

// Reads the next item, which must have the given code.
void expectCode(OdDbDxfFiler* filer, const OdDbObject* hatch, int code) {
  if (filer->nextItem() != code) {
    throw OdError(eBadDxfSequence, hatch->describe().str() + ": group " + std::to_string(code) +
                                       " expected in the boundary at " +
                                       filer->describePosition().str());
  }
}

// True, consuming it, when the next item has this code.
bool nextIs(OdDbDxfFiler* filer, int code) {
  if (filer->atEOF() || filer->atEndOfObject()) return false;
  if (filer->nextItem() == code) return true;
  filer->pushBackItem();
  return false;
}

void readArcDxf(OdDbDxfFiler* filer, const OdDbHatch* hatch, Edge& e) {
  expectCode(filer, hatch, 10);
  e.center = filer->rdPoint2d();
  if (e.type == OdDbHatch::kCirArc) {
    expectCode(filer, hatch, 40);
    e.radius = filer->rdDouble();
  } else {
    expectCode(filer, hatch, 11);
    e.majorAxis = filer->rdPoint2d().asVector();
    expectCode(filer, hatch, 40);
    e.ratio = filer->rdDouble();
  }
  expectCode(filer, hatch, 50);
  const double start = EntityFiling::rdAngleDegrees(filer);
  expectCode(filer, hatch, 51);
  const double end = EntityFiling::rdAngleDegrees(filer);
  expectCode(filer, hatch, 73);
  e.ccw = filer->rdInt16() != 0;
  // Files keep clockwise arcs with their angles reflected.
  e.startAngle = e.ccw ? start : OdGeAngle::k2Pi - start;
  e.endAngle = e.ccw ? end : OdGeAngle::k2Pi - end;
}

void readSplineDxf(OdDbDxfFiler* filer, const OdDbHatch* hatch, Edge& e) {
  expectCode(filer, hatch, 94);
  e.degree = filer->rdInt32();
  expectCode(filer, hatch, 73);
  e.rational = filer->rdInt16() != 0;
  expectCode(filer, hatch, 74);
  e.periodic = filer->rdInt16() != 0;
  expectCode(filer, hatch, 95);
  const int knots = filer->rdInt32();
  expectCode(filer, hatch, 96);
  const int points = filer->rdInt32();
  for (int j = 0; j < knots; ++j) {
    expectCode(filer, hatch, 40);
    e.knots.append(filer->rdDouble());
  }
  for (int j = 0; j < points; ++j) {
    expectCode(filer, hatch, 10);
    e.controlPoints.append(filer->rdPoint2d());
    if (e.rational) e.weights.append(nextIs(filer, 42) ? filer->rdDouble() : 1.0);
  }
  if (nextIs(filer, 97)) {
    const int fits = filer->rdInt32();
    for (int j = 0; j < fits; ++j) {
      expectCode(filer, hatch, 11);
      e.fitPoints.append(filer->rdPoint2d());
    }
    if (nextIs(filer, 12)) e.startTangent = filer->rdPoint2d().asVector();
    if (nextIs(filer, 13)) e.endTangent = filer->rdPoint2d().asVector();
  }
}

Edge readEdgeDxf(OdDbDxfFiler* filer, const OdDbHatch* hatch) {
  Edge e;
  expectCode(filer, hatch, 72);
  const int type = filer->rdInt16();
  if (type < OdDbHatch::kLine || type > OdDbHatch::kSpline) {
    throw OdError(eBadDxfSequence, hatch->describe().str() + ": unknown edge type at " +
                                       filer->describePosition().str());
  }
  e.type = static_cast<OdDbHatch::EdgeType>(type);
  if (e.type == OdDbHatch::kLine) {
    expectCode(filer, hatch, 10);
    e.start = filer->rdPoint2d();
    expectCode(filer, hatch, 11);
    e.end = filer->rdPoint2d();
  } else if (e.type == OdDbHatch::kSpline) {
    readSplineDxf(filer, hatch, e);
  } else {
    readArcDxf(filer, hatch, e);
  }
  return e;
}

Loop readLoopDxf(OdDbDxfFiler* filer, const OdDbHatch* hatch) {
  Loop l;
  expectCode(filer, hatch, 92);
  l.type = filer->rdInt32();
  if (l.type & OdDbHatch::kPolyline) {
    expectCode(filer, hatch, 72);
    const bool hasBulges = filer->rdInt16() != 0;
    expectCode(filer, hatch, 73);
    filer->rdInt16();
    expectCode(filer, hatch, 93);
    const int count = filer->rdInt32();
    for (int k = 0; k < count; ++k) {
      expectCode(filer, hatch, 10);
      l.vertices.append(filer->rdPoint2d());
      l.bulges.append(hasBulges && nextIs(filer, 42) ? filer->rdDouble() : 0.0);
    }
  } else {
    expectCode(filer, hatch, 93);
    const int count = filer->rdInt32();
    for (int k = 0; k < count; ++k)
      l.edges.append(readEdgeDxf(filer, hatch));
  }
  // Source boundary objects of associative hatches are not kept.
  if (nextIs(filer, 97)) {
    const int sources = filer->rdInt32();
    for (int j = 0; j < sources; ++j) {
      expectCode(filer, hatch, 330);
      filer->rdString();
    }
  }
  return l;
}

void writeEdgeDxf(OdDbDxfFiler* filer, const Edge& e) {
  filer->wrInt16(72, static_cast<int16_t>(e.type));
  if (e.type == OdDbHatch::kLine) {
    filer->wrPoint2d(10, e.start);
    filer->wrPoint2d(11, e.end);
  } else if (e.type == OdDbHatch::kCirArc || e.type == OdDbHatch::kEllArc) {
    filer->wrPoint2d(10, e.center);
    if (e.type == OdDbHatch::kCirArc) {
      filer->wrDouble(40, e.radius);
    } else {
      filer->wrPoint2d(11, e.majorAxis.asPoint());
      filer->wrDouble(40, e.ratio);
    }
    EntityFiling::wrAngleDegrees(filer, 50, e.ccw ? e.startAngle : OdGeAngle::k2Pi - e.startAngle);
    EntityFiling::wrAngleDegrees(filer, 51, e.ccw ? e.endAngle : OdGeAngle::k2Pi - e.endAngle);
    filer->wrInt16(73, e.ccw ? 1 : 0);
  } else {
    filer->wrInt32(94, e.degree);
    filer->wrInt16(73, e.rational ? 1 : 0);
    filer->wrInt16(74, e.periodic ? 1 : 0);
    filer->wrInt32(95, static_cast<int32_t>(e.knots.length()));
    filer->wrInt32(96, static_cast<int32_t>(e.controlPoints.length()));
    for (double k : e.knots)
      filer->wrDouble(40, k);
    for (unsigned int j = 0; j < e.controlPoints.length(); ++j) {
      filer->wrPoint2d(10, e.controlPoints[j]);
      if (e.rational) filer->wrDouble(42, e.weights[j]);
    }
    filer->wrInt32(97, static_cast<int32_t>(e.fitPoints.length()));
    for (const OdGePoint2d& p : e.fitPoints)
      filer->wrPoint2d(11, p);
    if (!e.fitPoints.isEmpty()) {
      filer->wrPoint2d(12, e.startTangent.asPoint());
      filer->wrPoint2d(13, e.endTangent.asPoint());
    }
  }
}

void writeLoopDxf(OdDbDxfFiler* filer, const Loop& l) {
  filer->wrInt32(92, l.type);
  if (l.type & OdDbHatch::kPolyline) {
    bool hasBulges = false;
    for (double b : l.bulges)
      hasBulges = hasBulges || b != 0.0;
    filer->wrInt16(72, hasBulges ? 1 : 0);
    filer->wrInt16(73, 1);
    filer->wrInt32(93, static_cast<int32_t>(l.vertices.length()));
    for (unsigned int k = 0; k < l.vertices.length(); ++k) {
      filer->wrPoint2d(10, l.vertices[k]);
      if (hasBulges) filer->wrDouble(42, l.bulges[k]);
    }
  } else {
    filer->wrInt32(93, static_cast<int32_t>(l.edges.length()));
    for (const Edge& e : l.edges)
      writeEdgeDxf(filer, e);
  }
  filer->wrInt32(97, 0);
}

void writeEdgeDwg(OdDbDwgFiler* filer, const Edge& e) {
  filer->wrInt16(static_cast<int16_t>(e.type));
  switch (e.type) {
    case OdDbHatch::kLine:
      filer->wrPoint2d(e.start);
      filer->wrPoint2d(e.end);
      break;
    case OdDbHatch::kCirArc:
    case OdDbHatch::kEllArc:
      filer->wrPoint2d(e.center);
      filer->wrDouble(e.radius);
      filer->wrVector2d(e.majorAxis);
      filer->wrDouble(e.ratio);
      filer->wrDouble(e.startAngle);
      filer->wrDouble(e.endAngle);
      filer->wrBool(e.ccw);
      break;
    case OdDbHatch::kSpline:
      filer->wrInt16(static_cast<int16_t>(e.degree));
      filer->wrBool(e.rational);
      filer->wrBool(e.periodic);
      filer->wrInt32(static_cast<int32_t>(e.knots.length()));
      for (double k : e.knots)
        filer->wrDouble(k);
      filer->wrInt32(static_cast<int32_t>(e.controlPoints.length()));
      for (unsigned int i = 0; i < e.controlPoints.length(); ++i) {
        filer->wrPoint2d(e.controlPoints[i]);
        filer->wrDouble(e.rational ? e.weights[i] : 1.0);
      }
      filer->wrInt32(static_cast<int32_t>(e.fitPoints.length()));
      for (const OdGePoint2d& p : e.fitPoints)
        filer->wrPoint2d(p);
      filer->wrVector2d(e.startTangent);
      filer->wrVector2d(e.endTangent);
      break;
  }
}

bool readEdgeDwg(OdDbDwgFiler* filer, Edge& e) {
  const int type = filer->rdInt16();
  if (type < OdDbHatch::kLine || type > OdDbHatch::kSpline) return false;
  e.type = static_cast<OdDbHatch::EdgeType>(type);
  switch (e.type) {
    case OdDbHatch::kLine:
      e.start = filer->rdPoint2d();
      e.end = filer->rdPoint2d();
      break;
    case OdDbHatch::kCirArc:
    case OdDbHatch::kEllArc:
      e.center = filer->rdPoint2d();
      e.radius = filer->rdDouble();
      e.majorAxis = filer->rdVector2d();
      e.ratio = filer->rdDouble();
      e.startAngle = filer->rdDouble();
      e.endAngle = filer->rdDouble();
      e.ccw = filer->rdBool();
      break;
    case OdDbHatch::kSpline: {
      e.degree = filer->rdInt16();
      e.rational = filer->rdBool();
      e.periodic = filer->rdBool();
      const int knots = filer->rdInt32();
      if (knots < 0) return false;
      for (int i = 0; i < knots; ++i)
        e.knots.append(filer->rdDouble());
      const int points = filer->rdInt32();
      if (points < 0) return false;
      for (int i = 0; i < points; ++i) {
        e.controlPoints.append(filer->rdPoint2d());
        const double weight = filer->rdDouble();
        if (e.rational) e.weights.append(weight);
      }
      const int fits = filer->rdInt32();
      if (fits < 0) return false;
      for (int i = 0; i < fits; ++i)
        e.fitPoints.append(filer->rdPoint2d());
      e.startTangent = filer->rdVector2d();
      e.endTangent = filer->rdVector2d();
      break;
    }
  }
  return true;
}
}  // namespace

void HatchBoundaryFiling::dxfIn(OdDbDxfFiler* filer, const OdDbHatch* hatch, Loops& loops) {
  const int count = filer->rdInt32();
  for (int i = 0; i < count; ++i)
    loops.append(readLoopDxf(filer, hatch));
}

void HatchBoundaryFiling::dxfOut(OdDbDxfFiler* filer, const Loops& loops) {
  filer->wrInt32(91, static_cast<int32_t>(loops.length()));
  for (const Loop& l : loops)
    writeLoopDxf(filer, l);
}

bool HatchBoundaryFiling::dwgIn(OdDbDwgFiler* filer, Loops& loops) {
  const int count = filer->rdInt32();
  if (count < 0) return false;
  loops.clear();
  for (int i = 0; i < count; ++i) {
    Loop l;
    l.type = filer->rdInt32();
    const int vertices = filer->rdInt32();
    const int edges = filer->rdInt32();
    if (vertices < 0 || edges < 0) return false;
    for (int k = 0; k < vertices; ++k) {
      l.vertices.append(filer->rdPoint2d());
      l.bulges.append(filer->rdDouble());
    }
    for (int k = 0; k < edges; ++k) {
      Edge e;
      if (!readEdgeDwg(filer, e)) return false;
      l.edges.append(e);
    }
    loops.append(l);
  }
  return true;
}

void HatchBoundaryFiling::dwgOut(OdDbDwgFiler* filer, const Loops& loops) {
  filer->wrInt32(static_cast<int32_t>(loops.length()));
  for (const Loop& l : loops) {
    filer->wrInt32(l.type);
    filer->wrInt32(static_cast<int32_t>(l.vertices.length()));
    filer->wrInt32(static_cast<int32_t>(l.edges.length()));
    for (unsigned int k = 0; k < l.vertices.length(); ++k) {
      filer->wrPoint2d(l.vertices[k]);
      filer->wrDouble(l.bulges[k]);
    }
    for (const Edge& e : l.edges)
      writeEdgeDwg(filer, e);
  }
}
