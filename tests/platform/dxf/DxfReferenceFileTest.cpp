// Drawings written by known builds (tests/data). Every entity kind in every version and form, from
// the entity samples: each reads with the values it was written with, the same entities built in
// code write the same bytes, and writing what was read gives the same tags back. Drawings of
// customizable blocks read without the module that knows their records write back byte for byte.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/db/entities/EntitySamples.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/dxf/DxfFile.h"
#include "platform/ge/GeExpect.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/rx/OdRxClass.h"
#include "support/ReferenceFiles.h"

namespace {
struct WrittenVersion {
  const char* name;
  OdDb::DwgVersion version;
};
const WrittenVersion kVersions[] = {{"r2000", OdDb::vAC15}, {"r2004", OdDb::vAC18},
                                    {"r2007", OdDb::vAC21}, {"r2010", OdDb::vAC24},
                                    {"r2013", OdDb::vAC27}, {"r2018", OdDb::vAC32}};

const OdGeVector3d kTilted = OdGeVector3d(0.2, -0.3, 1.0).normal();

template <class T>
OdSmartPtr<T> as(const OdDbObjectId& id, OdDb::OpenMode mode = OdDb::kForRead) {
  OdSmartPtr<T> object = T::cast(id.safeOpenObject(mode).get());
  EXPECT_FALSE(object.isNull()) << "not a " << T::desc()->name().str();
  return object;
}

// The one entity of model space.
OdDbObjectId onlyEntity(OdDbDatabase* db) {
  OdDbBlockTableRecordPtr model = as<OdDbBlockTableRecord>(db->getModelSpaceId());
  std::vector<OdDbObjectId> ids;
  for (OdDbObjectIteratorPtr it = model->newIterator(); !it->done(); it->step())
    ids.push_back(it->objectId());
  EXPECT_EQ(ids.size(), 1u);
  return ids.empty() ? OdDbObjectId::kNull : ids.front();
}

// The first entity of the named block.
OdDbObjectId firstEntityOf(OdDbDatabase* db, const char* block) {
  OdDbBlockTablePtr table = as<OdDbBlockTable>(db->getBlockTableId());
  OdDbBlockTableRecordPtr record = as<OdDbBlockTableRecord>(table->getAt(block));
  return record->newIterator()->objectId();
}

void expectTilted(double thickness, double expectedThickness, const OdGeVector3d& normal) {
  EXPECT_DOUBLE_EQ(thickness, expectedThickness);
  EXPECT_TRUE(isNear(normal, kTilted));
}

// Where and how a single-line text or attribute definition stands.
struct PlacedText {
  OdGePoint3d position, alignment;
  OdDb::TextHorzMode horizontal;
  OdDb::TextVertMode vertical;
  const char* text;
  double height, rotation;
};

void expectPlacedText(const OdDbText* e, const PlacedText& expected) {
  EXPECT_TRUE(isNear(e->position(), expected.position));
  EXPECT_TRUE(isNear(e->alignmentPoint(), expected.alignment));
  EXPECT_EQ(e->horizontalMode(), expected.horizontal);
  EXPECT_EQ(e->verticalMode(), expected.vertical);
  EXPECT_EQ(e->textString(), expected.text);
  EXPECT_EQ(e->height(), expected.height);
  EXPECT_NEAR(e->rotation(), expected.rotation, 1e-12);
}

struct KindCheck {
  const char* kind;
  std::function<void(OdDbDatabase*, const OdDbObjectId&)> check;
};

OdDbObjectId addToModel(OdDbDatabase* db, OdDbEntity* entity) {
  return as<OdDbBlockTableRecord>(db->getModelSpaceId(), OdDb::kForWrite)->appendOdDbEntity(entity);
}

// A reference at `position` to a new block holding `content`.
OdDbBlockReferencePtr addReference(OdDbDatabase* db, const char* block, OdDbEntity* content,
                                   const OdGePoint3d& position) {
  OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::createObject();
  record->setName(block);
  as<OdDbBlockTable>(db->getBlockTableId(), OdDb::kForWrite)->add(record.get());
  record->appendOdDbEntity(content);
  OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
  reference->setBlockTableRecord(record->objectId());
  reference->setPosition(position);
  addToModel(db, reference.get());
  return reference;
}

OdDbEntityPtr sample(const char* name) {
  for (const EntitySample& candidate : entitySamples())
    if (candidate.name == name) return candidate.make();
  ADD_FAILURE() << "no sample " << name;
  return OdDbEntityPtr();
}

// The drawing a kind's files were written from: the kind's sample in model space; a reference
// to a circle for insert, one to a line carrying the attribute sample for attrib.
OdDbDatabasePtr drawingOf(const std::string& kind) {
  static const std::map<std::string, const char*> kSamples = {{"line", "Line"},
                                                              {"arc", "Arc"},
                                                              {"circle", "Circle"},
                                                              {"ellipse", "Ellipse"},
                                                              {"lwpolyline", "Polyline"},
                                                              {"polyline2d", "Polyline2d"},
                                                              {"polyline3d", "Polyline3d"},
                                                              {"spline-fit", "SplineFit"},
                                                              {"spline-rational", "SplineRational"},
                                                              {"point", "Point"},
                                                              {"text", "Text"},
                                                              {"mtext", "MText"},
                                                              {"attdef", "AttributeDefinition"},
                                                              {"solid", "Solid"},
                                                              {"hatch", "Hatch"}};
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  db->setINSUNITS(4);
  if (kind == "insert") {
    OdDbCirclePtr circle = OdDbCircle::createObject();
    circle->setCenter(OdGePoint3d(1, 1, 0));
    circle->setRadius(0.5);
    OdDbBlockReferencePtr reference =
        addReference(db.get(), "PART", circle.get(), OdGePoint3d(10, 20, 3));
    reference->setScaleFactors(OdGeScale3d(2, 3, 1));
    reference->setRotation(0.5);
  } else if (kind == "attrib") {
    OdDbLinePtr line = OdDbLine::createObject();
    line->setEndPoint(OdGePoint3d(4, 0, 0));
    OdDbBlockReferencePtr reference =
        addReference(db.get(), "TAG", line.get(), OdGePoint3d(5, 5, 0));
    OdDbEntityPtr attribute = sample("Attribute");
    reference->appendAttribute(static_cast<OdDbAttribute*>(attribute.get()));
  } else {
    addToModel(db.get(), sample(kSamples.at(kind)).get());
  }
  return db;
}

// What each kind's file holds, field by field.
const std::vector<KindCheck>& kindChecks() {
  static const std::vector<KindCheck> checks = {
      {"line",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDbLinePtr e = as<OdDbLine>(id);
         EXPECT_TRUE(isNear(e->startPoint(), OdGePoint3d(1, 2, 3)));
         EXPECT_TRUE(isNear(e->endPoint(), OdGePoint3d(4, -5, 6)));
         expectTilted(e->thickness(), 0.5, e->normal());
         EXPECT_EQ(e->colorIndex(), 3);
         EXPECT_EQ(e->layer(), "0");
       }},
      {"arc",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDbArcPtr e = as<OdDbArc>(id);
         EXPECT_TRUE(isNear(e->center(), OdGePoint3d(1, 2, 0.5)));
         EXPECT_DOUBLE_EQ(e->radius(), 2.5);
         EXPECT_NEAR(e->startAngle(), 0.3, 1e-12);
         EXPECT_NEAR(e->endAngle(), 4.0, 1e-12);
         expectTilted(e->thickness(), 1.5, e->normal());
       }},
      {"circle",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDbCirclePtr e = as<OdDbCircle>(id);
         EXPECT_TRUE(isNear(e->center(), OdGePoint3d(-1, 2, 0)));
         EXPECT_DOUBLE_EQ(e->radius(), 3.0);
         expectTilted(e->thickness(), 2.0, e->normal());
       }},
      {"ellipse",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDbEllipsePtr e = as<OdDbEllipse>(id);
         EXPECT_TRUE(isNear(e->center(), OdGePoint3d(1, 1, 0)));
         EXPECT_TRUE(isNear(e->majorAxis(), OdGeVector3d(3, 4, 0)));
         EXPECT_DOUBLE_EQ(e->radiusRatio(), 0.4);
         EXPECT_DOUBLE_EQ(e->startParam(), 0.5);
         EXPECT_DOUBLE_EQ(e->endParam(), 2.5);
       }},
      {"lwpolyline",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDbPolylinePtr e = as<OdDbPolyline>(id);
         ASSERT_EQ(e->numVerts(), 3u);
         const double expected[3][5] = {
             {0, 0, 0.5, 0.1, 0.2}, {4, 0, 0.0, 0.3, 0.0}, {4, 3, -0.25, 0.0, 0.1}};
         for (unsigned i = 0; i < 3; ++i) {
           double start = 0, end = 0;
           e->getWidthsAt(i, start, end);
           EXPECT_EQ(e->getPoint2dAt(i), OdGePoint2d(expected[i][0], expected[i][1])) << i;
           EXPECT_EQ(e->getBulgeAt(i), expected[i][2]) << i;
           EXPECT_EQ(start, expected[i][3]) << i;
           EXPECT_EQ(end, expected[i][4]) << i;
         }
         EXPECT_TRUE(e->isClosed());
         EXPECT_EQ(e->elevation(), 1.5);
         expectTilted(e->thickness(), 0.25, e->normal());
       }},
      {"polyline2d",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDb2dPolylinePtr e = as<OdDb2dPolyline>(id);
         ASSERT_EQ(e->numVerts(), 3u);
         const double expected[3][4] = {{0, 0, 0.4, 0.0}, {5, 1, 0.0, 0.1}, {3, 4, -1.0, 0.2}};
         for (unsigned i = 0; i < 3; ++i) {
           OdDb2dVertexPtr v = e->vertexAt(i);
           EXPECT_TRUE(isNear(v->position(), OdGePoint3d(expected[i][0], expected[i][1], 2)));
           EXPECT_EQ(v->bulge(), expected[i][2]) << i;
           EXPECT_EQ(v->startWidth(), expected[i][3]) << i;
         }
         EXPECT_TRUE(e->isClosed());
         EXPECT_EQ(e->elevation(), 2.0);
         EXPECT_EQ(e->defaultStartWidth(), 0.3);
         expectTilted(e->thickness(), 0.0, e->normal());
       }},
      {"polyline3d",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDb3dPolylinePtr e = as<OdDb3dPolyline>(id);
         ASSERT_EQ(e->numVerts(), 3u);
         const OdGePoint3d expected[] = {{0, 0, 0}, {1, 2, 3}, {4, 0, -1}};
         for (unsigned i = 0; i < 3; ++i)
           EXPECT_TRUE(isNear(e->vertexAt(i)->position(), expected[i])) << i;
         EXPECT_TRUE(e->isClosed());
       }},
      {"spline-fit",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDbSplinePtr e = as<OdDbSpline>(id);
         ASSERT_TRUE(e->hasFitData());
         ASSERT_EQ(e->numFitPoints(), 4);
         const OdGePoint3d fit[] = {{0, 0, 0}, {2, 3, 0}, {5, 1, 0}, {7, 4, 0}};
         for (int i = 0; i < 4; ++i)
           EXPECT_TRUE(isNear(e->fitPointAt(i), fit[i])) << i;
         EXPECT_TRUE(isNear(e->startFitTangent(), OdGeVector3d(1, 1, 0).normal()));
         EXPECT_TRUE(isNear(e->endFitTangent(), OdGeVector3d(0, 1, 0)));
         EXPECT_EQ(e->degree(), 3);
         EXPECT_EQ(e->numControlPoints(), 6);
         EXPECT_TRUE(
             isNear(e->controlPointAt(1), OdGePoint3d(0.8498365855987976, 0.8498365855987976, 0)));
       }},
      {"spline-rational",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDbSplinePtr e = as<OdDbSpline>(id);
         EXPECT_FALSE(e->hasFitData());
         EXPECT_EQ(e->degree(), 2);
         EXPECT_TRUE(e->isRational());
         ASSERT_EQ(e->numControlPoints(), 4);
         const OdGePoint3d points[] = {{0, 0, 0}, {1, 1, 1}, {2, 0, 0}, {3, -1, 2}};
         const double weights[] = {1.0, 0.7, 1.0, 2.0};
         for (int i = 0; i < 4; ++i) {
           EXPECT_TRUE(isNear(e->controlPointAt(i), points[i])) << i;
           EXPECT_EQ(e->weightAt(i), weights[i]) << i;
         }
         EXPECT_EQ(e->knots(), OdGeDoubleArray({0, 0, 0, 0.5, 1, 1, 1}));
       }},
      {"point",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDbPointPtr e = as<OdDbPoint>(id);
         EXPECT_TRUE(isNear(e->position(), OdGePoint3d(3, 4, 5)));
         EXPECT_NEAR(e->ecsRotation(), 0.7, 1e-12);
         expectTilted(e->thickness(), 1.0, e->normal());
       }},
      {"text",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDbTextPtr e = as<OdDbText>(id);
         expectPlacedText(
             e.get(), {{1, 2, 0}, {6, 2, 0}, OdDb::kTextCenter, OdDb::kTextTop, "Héllo", 2.5, 0.5});
         EXPECT_EQ(e->styleName(), "Notes");
         EXPECT_EQ(e->widthFactor(), 0.8);
         EXPECT_NEAR(e->oblique(), 0.2, 1e-12);
         EXPECT_TRUE(e->isMirroredInY());
         EXPECT_FALSE(e->isMirroredInX());
         EXPECT_EQ(e->thickness(), 0.1);
       }},
      {"mtext",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDbMTextPtr e = as<OdDbMText>(id);
         EXPECT_TRUE(isNear(e->location(), OdGePoint3d(1, 2, 3)));
         EXPECT_TRUE(isNear(e->direction(), OdGeVector3d(0.7212193324274246, 0.6898619701479713,
                                                         0.06271472455890649)));
         EXPECT_TRUE(isNear(e->normal(), kTilted));
         EXPECT_EQ(e->width(), 20.0);
         EXPECT_EQ(e->textHeight(), 1.5);
         EXPECT_EQ(e->attachment(), OdDbMText::kMiddleCenter);
         EXPECT_EQ(e->contents(), OdString(std::string(300, 'x') + "\\Pé"));
         EXPECT_EQ(e->styleName(), "Notes");
       }},
      {"attdef",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDbAttributeDefinitionPtr e = as<OdDbAttributeDefinition>(id);
         expectPlacedText(
             e.get(),
             {{1, 2, 0.5}, {4, 2, 0.5}, OdDb::kTextRight, OdDb::kTextVertMid, "12", 1.5, 0.7});
         EXPECT_EQ(e->tag(), "SIZE");
         EXPECT_EQ(e->prompt(), "Size?");
         EXPECT_TRUE(e->isVerifiable() && e->isPreset() && e->lockPositionInBlock());
         EXPECT_FALSE(e->isInvisible() || e->isConstant());
         EXPECT_TRUE(isNear(e->normal(), kTilted));
       }},
      {"attrib",
       [](OdDbDatabase* db, const OdDbObjectId& id) {
         OdDbBlockReferencePtr reference = as<OdDbBlockReference>(id);
         EXPECT_TRUE(isNear(reference->position(), OdGePoint3d(5, 5, 0)));
         OdDbLinePtr line = as<OdDbLine>(firstEntityOf(db, "TAG"));
         EXPECT_TRUE(isNear(line->endPoint(), OdGePoint3d(4, 0, 0)));
         OdDbObjectIteratorPtr attributes = reference->attributeIterator();
         ASSERT_FALSE(attributes->done());
         OdDbAttributePtr e = as<OdDbAttribute>(attributes->objectId());
         EXPECT_EQ(e->ownerId(), id);
         EXPECT_TRUE(isNear(e->position(), OdGePoint3d(-1, 3, 0)));
         EXPECT_EQ(e->textString(), "x");
         EXPECT_EQ(e->styleName(), "Notes");
         EXPECT_EQ(e->widthFactor(), 1.2);
         EXPECT_EQ(e->tag(), "NAME");
         EXPECT_TRUE(e->isInvisible());
         EXPECT_TRUE(isNear(e->normal(), kTilted));
         attributes->step();
         EXPECT_TRUE(attributes->done());
       }},
      {"solid",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDbSolidPtr e = as<OdDbSolid>(id);
         const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(kTilted);
         for (int i = 0; i < 4; ++i)
           EXPECT_TRUE(isNear(e->getPointAt(i), toWorld * OdGePoint3d(i, i * i, 1.0))) << i;
         expectTilted(e->thickness(), 0.5, e->normal());
       }},
      {"hatch",
       [](OdDbDatabase*, const OdDbObjectId& id) {
         OdDbHatchPtr e = as<OdDbHatch>(id);
         EXPECT_EQ(e->patternType(), OdDbHatch::kPreDefined);
         EXPECT_EQ(e->patternName(), "ANSI31");
         EXPECT_TRUE(e->associative());
         EXPECT_NEAR(e->patternAngle(), 0.25, 1e-12);
         EXPECT_EQ(e->patternScale(), 2.0);
         EXPECT_EQ(e->elevation(), 1.0);
         EXPECT_TRUE(isNear(e->normal(), kTilted));
         ASSERT_EQ(e->numLoops(), 2);
         ASSERT_TRUE(e->isPolylineLoop(0));
         EXPECT_EQ(e->loopTypeAt(0) & OdDbHatch::kExternal, OdDbHatch::kExternal);
         OdGePoint2dArray vertices;
         OdArray<double> bulges;
         e->getLoopAt(0, vertices, bulges);
         EXPECT_EQ(vertices, OdGePoint2dArray({{0, 0}, {10, 0}, {10, 10}}));
         EXPECT_EQ(bulges, OdArray<double>({0.0, 0.3, 0.0}));
         const OdArray<OdDbHatch::Edge> edges = e->edgesAt(1);
         ASSERT_EQ(edges.length(), 4u);
         EXPECT_EQ(edges[0].type, OdDbHatch::kLine);
         EXPECT_EQ(edges[0].end, OdGePoint2d(4, 2));
         EXPECT_EQ(edges[1].type, OdDbHatch::kCirArc);
         EXPECT_EQ(edges[1].center, OdGePoint2d(3, 2));
         EXPECT_NEAR(edges[1].endAngle, OdGeAngle::kPi, 1e-12);
         EXPECT_EQ(edges[2].type, OdDbHatch::kEllArc);
         EXPECT_EQ(edges[2].ratio, 0.5);
         EXPECT_FALSE(edges[2].ccw);
         EXPECT_EQ(edges[3].type, OdDbHatch::kSpline);
         EXPECT_EQ(edges[3].weights, OdArray<double>({1.0, 0.5, 1.0}));
         EXPECT_EQ(edges[3].controlPoints, OdGePoint2dArray({{7, 7}, {8, 9}, {9, 7}}));
         EXPECT_EQ(e->seedPoints(), OdGePoint2dArray({{5, 1}}));
       }},
      {"insert",
       [](OdDbDatabase* db, const OdDbObjectId& id) {
         OdDbBlockReferencePtr e = as<OdDbBlockReference>(id);
         EXPECT_TRUE(isNear(e->position(), OdGePoint3d(10, 20, 3)));
         EXPECT_EQ(e->scaleFactors(), OdGeScale3d(2, 3, 1));
         EXPECT_NEAR(e->rotation(), 0.5, 1e-12);
         EXPECT_EQ(e->blockTableRecord(), as<OdDbBlockTable>(db->getBlockTableId())->getAt("PART"));
         OdDbCirclePtr circle = as<OdDbCircle>(firstEntityOf(db, "PART"));
         EXPECT_TRUE(isNear(circle->center(), OdGePoint3d(1, 1, 0)));
         EXPECT_EQ(circle->radius(), 0.5);
       }},
  };
  return checks;
}

// Runs `body` for every reference file: kind, version and form.
void forEachFile(const std::function<void(const KindCheck&, const WrittenVersion&, bool binary,
                                          const std::string& name)>& body) {
  for (const KindCheck& kind : kindChecks())
    for (const WrittenVersion& version : kVersions)
      for (bool binary : {false, true}) {
        const std::string name = std::string("entities/") + kind.kind + "-" + version.name +
                                 (binary ? "-binary" : "") + ".dxf";
        SCOPED_TRACE(name);
        body(kind, version, binary, name);
      }
}
}  // namespace

TEST(DxfReferenceEntities, EveryKindReadsWithItsValuesInEveryVersionAndForm) {
  forEachFile([](const KindCheck& kind, const WrittenVersion&, bool, const std::string& name) {
    OdDbDatabasePtr db = DxfFile::read(ReferenceFilePath(name).c_str());
    EXPECT_EQ(db->getINSUNITS(), 4);
    kind.check(db.get(), onlyEntity(db.get()));
  });
}

TEST(DxfReferenceEntities, TheSameEntitiesBuiltInCodeWriteTheFilesByteForByte) {
  forEachFile([](const KindCheck& kind, const WrittenVersion& version, bool binary,
                 const std::string& name) {
    OdDbDatabasePtr db = drawingOf(kind.kind);
    EXPECT_TRUE(SameFileBytes(ReferenceFileBytes(name),
                              DxfFile::writeToMemory(db.get(), {binary, version.version})));
  });
}

// Coordinates in an entity's own plane go through the world's and back, which may change their
// last digit; everything else must come back as it was.
TEST(DxfReferenceEntities, WritingWhatWasReadGivesTheFilesTagsBack) {
  forEachFile(
      [](const KindCheck&, const WrittenVersion& version, bool binary, const std::string& name) {
        OdDbDatabasePtr db = DxfFile::read(ReferenceFilePath(name).c_str());
        EXPECT_TRUE(SameFileTags(ReferenceFileBytes(name),
                                 DxfFile::writeToMemory(db.get(), {binary, version.version})));
      });
}

TEST(DxfReferenceDrawings, RecordsOfAnUnloadedModuleAreWrittenBackByteForByte) {
  std::vector<std::string> names = {"demo/demo.dxf"};
  for (int minor = 1; minor <= 7; ++minor)
    names.push_back("formats/sash-0." + std::to_string(minor) + ".dxf");
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    OdDbDatabasePtr db = DxfFile::read(ReferenceFilePath(name).c_str());
    EXPECT_TRUE(SameFileBytes(ReferenceFileBytes(name), DxfFile::writeToMemory(db.get())));
  }
}
