// One sample of every entity kind with non-default values in all its fields, for the tests that
// every kind shares (filing, translation, stretching everything). The reference drawings of
// tests/data/entities were written from these samples and are compared with them byte for byte:
// a sample is never changed, only added.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/db/entities/OdDb2dPolyline.h"
#include "platform/db/entities/OdDb3dPolyline.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"
#include "platform/db/entities/OdDbCircle.h"
#include "platform/db/entities/OdDbEllipse.h"
#include "platform/db/entities/OdDbHatch.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/entities/OdDbMText.h"
#include "platform/db/entities/OdDbPoint.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "platform/db/entities/OdDbSolid.h"
#include "platform/db/entities/OdDbSpline.h"
#include "platform/db/entities/OdDbText.h"
#include "platform/ge/OdGeAngle.h"

struct EntitySample {
  std::string name;
  const char* dxfName;
  std::function<OdDbEntityPtr()> make;
};

inline std::vector<EntitySample> entitySamples() {
  const OdGeVector3d tilted = OdGeVector3d(0.2, -0.3, 1.0).normal();
  return {
      {"Line", "LINE",
       [=] {
         OdDbLinePtr e = OdDbLine::createObject();
         e->setStartPoint(OdGePoint3d(1, 2, 3));
         e->setEndPoint(OdGePoint3d(4, -5, 6));
         e->setThickness(0.5);
         e->setNormal(tilted);
         e->setColorIndex(3);
         return OdDbEntityPtr(e);
       }},
      {"Arc", "ARC",
       [=] {
         OdDbArcPtr e = OdDbArc::createObject();
         e->setCenter(OdGePoint3d(1, 2, 0.5));
         e->setRadius(2.5);
         e->setStartAngle(0.3);
         e->setEndAngle(4.0);
         e->setThickness(1.5);
         e->setNormal(tilted);
         return OdDbEntityPtr(e);
       }},
      {"Circle", "CIRCLE",
       [=] {
         OdDbCirclePtr e = OdDbCircle::createObject();
         e->setCenter(OdGePoint3d(-1, 2, 0));
         e->setRadius(3.0);
         e->setThickness(2.0);
         e->setNormal(tilted);
         return OdDbEntityPtr(e);
       }},
      {"Ellipse", "ELLIPSE",
       [] {
         OdDbEllipsePtr e = OdDbEllipse::createObject();
         e->set(OdGePoint3d(1, 1, 0), OdGeVector3d::kZAxis, OdGeVector3d(3, 4, 0), 0.4, 0.5, 2.5);
         return OdDbEntityPtr(e);
       }},
      {"Polyline", "LWPOLYLINE",
       [=] {
         OdDbPolylinePtr e = OdDbPolyline::createObject();
         e->addVertexAt(0, OdGePoint2d(0, 0), 0.5, 0.1, 0.2);
         e->addVertexAt(1, OdGePoint2d(4, 0), 0.0, 0.3, 0.0);
         e->addVertexAt(2, OdGePoint2d(4, 3), -0.25, 0.0, 0.1);
         e->setClosed(true);
         e->setElevation(1.5);
         e->setThickness(0.25);
         e->setNormal(tilted);
         return OdDbEntityPtr(e);
       }},
      {"Polyline2d", "POLYLINE",
       [=] {
         OdDb2dPolylinePtr e = OdDb2dPolyline::createObject();
         const double bulges[] = {0.4, 0.0, -1.0};
         const OdGePoint2d points[] = {{0, 0}, {5, 1}, {3, 4}};
         for (int i = 0; i < 3; ++i) {
           OdDb2dVertexPtr v = OdDb2dVertex::createObject();
           v->setPosition(points[i].convert3d(2.0));
           v->setBulge(bulges[i]);
           v->setStartWidth(0.1 * i);
           e->appendVertex(v);
         }
         e->setClosed(true);
         e->setElevation(2.0);
         e->setDefaultStartWidth(0.3);
         e->setNormal(tilted);
         return OdDbEntityPtr(e);
       }},
      {"Polyline3d", "POLYLINE",
       [] {
         OdDb3dPolylinePtr e = OdDb3dPolyline::createObject();
         for (const OdGePoint3d& p :
              {OdGePoint3d(0, 0, 0), OdGePoint3d(1, 2, 3), OdGePoint3d(4, 0, -1)}) {
           OdDb3dPolylineVertexPtr v = OdDb3dPolylineVertex::createObject();
           v->setPosition(p);
           e->appendVertex(v);
         }
         e->setClosed(true);
         return OdDbEntityPtr(e);
       }},
      {"SplineFit", "SPLINE",
       [] {
         OdDbSplinePtr e = OdDbSpline::createObject();
         e->setFitData({OdGePoint3d(0, 0, 0), OdGePoint3d(2, 3, 0), OdGePoint3d(5, 1, 0),
                        OdGePoint3d(7, 4, 0)},
                       OdGeVector3d(1, 1, 0), OdGeVector3d(0, 1, 0));
         e->setNormal(OdGeVector3d::kZAxis);
         return OdDbEntityPtr(e);
       }},
      {"SplineRational", "SPLINE",
       [] {
         OdDbSplinePtr e = OdDbSpline::createObject();
         e->setNurbsData(2, true, false, false,
                         {OdGePoint3d(0, 0, 0), OdGePoint3d(1, 1, 1), OdGePoint3d(2, 0, 0),
                          OdGePoint3d(3, -1, 2)},
                         {0, 0, 0, 0.5, 1, 1, 1}, {1.0, 0.7, 1.0, 2.0});
         return OdDbEntityPtr(e);
       }},
      {"Point", "POINT",
       [=] {
         OdDbPointPtr e = OdDbPoint::createObject();
         e->setPosition(OdGePoint3d(3, 4, 5));
         e->setThickness(1.0);
         e->setNormal(tilted);
         e->setEcsRotation(0.7);
         return OdDbEntityPtr(e);
       }},
      {"Text", "TEXT",
       [=] {
         OdDbTextPtr e = OdDbText::createObject();
         e->setPosition(OdGePoint3d(1, 2, 0));
         e->setAlignmentPoint(OdGePoint3d(6, 2, 0));
         e->setHorizontalMode(OdDb::kTextCenter);
         e->setVerticalMode(OdDb::kTextTop);
         e->setTextString("Héllo");
         e->setStyleName("Notes");
         e->setHeight(2.5);
         e->setRotation(0.5);
         e->setWidthFactor(0.8);
         e->setOblique(0.2);
         e->mirrorInY(true);
         e->setThickness(0.1);
         return OdDbEntityPtr(e);
       }},
      {"AttributeDefinition", "ATTDEF",
       [=] {
         OdDbAttributeDefinitionPtr e = OdDbAttributeDefinition::createObject();
         e->setNormal(tilted);
         e->setPosition(OdGePoint3d(1, 2, 0.5));
         e->setAlignmentPoint(OdGePoint3d(4, 2, 0.5));
         e->setHorizontalMode(OdDb::kTextRight);
         e->setVerticalMode(OdDb::kTextVertMid);
         e->setTextString("12");
         e->setHeight(1.5);
         e->setRotation(0.7);
         e->setTag("SIZE");
         e->setPrompt("Size?");
         e->setVerifiable(true);
         e->setPreset(true);
         e->setLockPositionInBlock(true);
         return OdDbEntityPtr(e);
       }},
      {"Attribute", "ATTRIB",
       [=] {
         OdDbAttributePtr e = OdDbAttribute::createObject();
         e->setNormal(tilted);
         e->setPosition(OdGePoint3d(-1, 3, 0));
         e->setTextString("x");
         e->setStyleName("Notes");
         e->setWidthFactor(1.2);
         e->setTag("NAME");
         e->setInvisible(true);
         return OdDbEntityPtr(e);
       }},
      {"MText", "MTEXT",
       [=] {
         OdDbMTextPtr e = OdDbMText::createObject();
         e->setNormal(tilted);
         e->setLocation(OdGePoint3d(1, 2, 3));
         e->setDirection(OdGeVector3d(1, 1, 0));
         e->setWidth(20.0);
         e->setTextHeight(1.5);
         e->setAttachment(OdDbMText::kMiddleCenter);
         e->setContents(OdString(std::string(300, 'x') + "\\Pé"));
         e->setStyleName("Notes");
         return OdDbEntityPtr(e);
       }},
      {"Solid", "SOLID",
       [=] {
         OdDbSolidPtr e = OdDbSolid::createObject();
         const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(tilted);
         for (int i = 0; i < 4; ++i)
           e->setPointAt(i, toWorld * OdGePoint3d(i, i * i, 1.0));
         e->setThickness(0.5);
         e->setNormal(tilted);
         return OdDbEntityPtr(e);
       }},
      {"Hatch", "HATCH",
       [=] {
         OdDbHatchPtr e = OdDbHatch::createObject();
         e->setPattern(OdDbHatch::kPreDefined, "ANSI31");
         e->setAssociative(true);
         e->setPatternAngle(0.25);
         e->setPatternScale(2.0);
         e->setElevation(1.0);
         e->setNormal(tilted);
         e->appendLoop(OdDbHatch::kExternal,
                       {OdGePoint2d(0, 0), OdGePoint2d(10, 0), OdGePoint2d(10, 10)},
                       {0.0, 0.3, 0.0});
         OdDbHatch::Edge line;
         line.start = OdGePoint2d(2, 2);
         line.end = OdGePoint2d(4, 2);
         OdDbHatch::Edge arc;
         arc.type = OdDbHatch::kCirArc;
         arc.center = OdGePoint2d(3, 2);
         arc.radius = 1.0;
         arc.startAngle = 0.0;
         arc.endAngle = OdGeAngle::kPi;
         OdDbHatch::Edge ellipse;
         ellipse.type = OdDbHatch::kEllArc;
         ellipse.center = OdGePoint2d(6, 6);
         ellipse.majorAxis = OdGeVector2d(2, 0);
         ellipse.ratio = 0.5;
         ellipse.startAngle = 0.5;
         ellipse.endAngle = 2.0;
         ellipse.ccw = false;
         OdDbHatch::Edge spline;
         spline.type = OdDbHatch::kSpline;
         spline.degree = 2;
         spline.rational = true;
         spline.knots = {0, 0, 0, 1, 1, 1};
         spline.controlPoints = {OdGePoint2d(7, 7), OdGePoint2d(8, 9), OdGePoint2d(9, 7)};
         spline.weights = {1.0, 0.5, 1.0};
         e->appendLoop(OdDbHatch::kDefault, {line, arc, ellipse, spline});
         e->setSeedPoints({OdGePoint2d(5, 1)});
         return OdDbEntityPtr(e);
       }},
  };
}
