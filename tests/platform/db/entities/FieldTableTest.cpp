// What the field tables of the simple kinds say beyond the values themselves: where a subclass
// ends, a corner that a triangle leaves out, flags that call for a field or that files always
// set, and fields that only some file versions have.
#include <gtest/gtest.h>

#include <cstddef>

#include "platform/db/entities/EntityTestSupport.h"
#include "platform/db/entities/FieldTable.h"
#include "platform/db/entities/OdDb2dVertex.h"
#include "platform/db/entities/OdDb3dPolylineVertex.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/entities/OdDbSolid.h"
#include "platform/db/filers/OdDbMemoryDwgFiler.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/rx/OdRxClass.h"

namespace {
// Reads items into entity in place of what a blank entity of its kind files after its common
// data, as a file would hand them over.
OdResult readItems(OdDbEntity* entity, const OdResBufPtr& items) {
  const OdResBufPtr written = dxfItems(OdDbEntity::cast(entity->isA()->create().get()).get());
  bool common = false;
  for (OdResBuf* item = written.get(); item->next(); item = item->next().get()) {
    const OdResBuf* next = item->next().get();
    if (next->restype() != 100) continue;
    if (common) {
      item->setNext(items.get());
      break;
    }
    common = next->getString() == "AcDbEntity";
  }
  return entity->dxfInFields(OdDbResBufDxfFiler::createObject(nullptr, written).get());
}

OdResBufPtr chain(std::initializer_list<OdResBufPtr> items) {
  OdResBufPtr head = *items.begin();
  for (auto item = items.begin() + 1; item != items.end(); ++item)
    head->last()->setNext(item->get());
  return head;
}

TEST(FieldTableTest, SubclassesEndAtTheNextMarkerButTheLastRunsToTheEnd) {
  // The circle part of an arc stops at the arc's marker: its 40 there is no radius.
  OdDbArcPtr arc = OdDbArc::createObject();
  ASSERT_EQ(readItems(arc.get(), chain({OdResBuf::newRb(100, "AcDbCircle"),
                                        OdResBuf::newRb(40, 2.0), OdResBuf::newRb(100, "AcDbArc"),
                                        OdResBuf::newRb(40, 9.0), OdResBuf::newRb(51, 90.0)})),
            eOk);
  EXPECT_EQ(arc->radius(), 2.0);
  EXPECT_NEAR(arc->endAngle(), OdGeAngle::kPi / 2, 1e-12);

  // A marker the kind does not know, after its last subclass, hides nothing.
  OdDbLinePtr line = OdDbLine::createObject();
  ASSERT_EQ(readItems(line.get(),
                      chain({OdResBuf::newRb(100, "AcDbLine"), OdResBuf::newRb(10, pt(1, 2, 3)),
                             OdResBuf::newRb(100, "AcDbSomethingElse"),
                             OdResBuf::newRb(11, pt(4, 5, 6))})),
            eOk);
  EXPECT_TRUE(isNear(line->endPoint(), pt(4, 5, 6)));
  // A radius that is not positive is refused once the whole record is read.
  EXPECT_EQ(readItems(OdDbArc::createObject().get(),
                      chain({OdResBuf::newRb(100, "AcDbCircle"), OdResBuf::newRb(40, -2.0),
                             OdResBuf::newRb(100, "AcDbArc")})),
            eInvalidInput);
}

TEST(FieldTableTest, ATriangleRepeatsItsThirdCornerInItsPlane) {
  const OdGeVector3d tilted = OdGeVector3d(0.2, -0.3, 1.0).normal();
  OdDbSolidPtr triangle = OdDbSolid::createObject();
  ASSERT_EQ(readItems(triangle.get(),
                      chain({OdResBuf::newRb(100, "AcDbTrace"), OdResBuf::newRb(10, pt(0, 0, 2)),
                             OdResBuf::newRb(11, pt(4, 0, 2)), OdResBuf::newRb(12, pt(0, 3, 2)),
                             OdResBuf::newRb(210, OdGePoint3d(tilted.x, tilted.y, tilted.z))})),
            eOk);
  EXPECT_TRUE(isNear(triangle->getPointAt(3), triangle->getPointAt(2)));
  // Corners are world points: their distance from the plane through the origin is the
  // elevation the file gave them.
  EXPECT_NEAR(triangle->getPointAt(3).asVector().dotProduct(tilted), 2.0, 1e-12);
  EXPECT_NEAR(triangle->getPointAt(1).asVector().dotProduct(tilted), 2.0, 1e-12);
}

TEST(FieldTableTest, VertexFlagsCallForTheTangentAndKeepFileBitsOut) {
  OdDb2dVertexPtr vertex = OdDb2dVertex::createObject();
  vertex->setTangent(OdGeAngle::kPi / 4);
  EXPECT_EQ(subclassCodes(dxfItems(vertex.get()), "AcDb2dVertex"), (std::vector<int>{10, 70}));
  vertex->setFlags(OdDb2dVertex::kTangentUsed);
  const OdResBufPtr items = dxfItems(vertex.get());
  EXPECT_EQ(subclassCodes(items, "AcDb2dVertex"), (std::vector<int>{10, 70, 50}));
  EXPECT_NEAR(itemAfter(items, "AcDb2dVertex", 50)->getDouble(), 45.0, 1e-12);

  OdDb3dPolylineVertexPtr corner = OdDb3dPolylineVertex::createObject();
  corner->setFlags(OdDb3dPolylineVertex::kSplineVertex);
  const OdResBufPtr written = dxfItems(corner.get());
  EXPECT_EQ(itemAfter(written, "AcDb3dPolylineVertex", 70)->getInt16(),
            OdDb3dPolylineVertex::kSplineVertex | OdDb3dPolylineVertex::k3dPolylineVertex);
  OdDb3dPolylineVertexPtr reread = OdDb3dPolylineVertex::createObject();
  ASSERT_EQ(reread->dxfInFields(OdDbResBufDxfFiler::createObject(nullptr, written).get()), eOk);
  EXPECT_EQ(reread->flags(), OdDb3dPolylineVertex::kSplineVertex);
}

// A filer writing files of one version.
class VersionFiler : public OdDbResBufDxfFiler {
 public:
  explicit VersionFiler(OdDb::DwgVersion version) : m_version(version) {}
  OdDb::DwgVersion dwgVersion() const override { return m_version; }

 private:
  OdDb::DwgVersion m_version;
};

struct Versioned {
  double always = 1.5;
  double recent = 2.5;
};

TEST(FieldTableTest, AFieldOnlySomeVersionsHaveIsWrittenToThoseAlone) {
  static constexpr auto kFields = FieldTable::compile({
      FieldTable::marker("AcDbVersioned"),
      FieldTable::field(40, FieldTable::kReal, offsetof(Versioned, always)),
      FieldTable::field(41, FieldTable::kReal, offsetof(Versioned, recent))
          .inVersions(OdDb::vAC18, OdDb::vAC27),
  });
  Versioned data;
  const FieldTable table(kFields, &data);
  const auto codes = [&](OdDb::DwgVersion version) {
    OdSmartPtr<VersionFiler> filer(new VersionFiler(version));
    table.dxfOut(filer.get());
    return subclassCodes(filer->items(), "AcDbVersioned");
  };
  EXPECT_EQ(codes(OdDb::vAC15), (std::vector<int>{40}));
  EXPECT_EQ(codes(OdDb::vAC18), (std::vector<int>{40, 41}));
  EXPECT_EQ(codes(OdDb::vAC32), (std::vector<int>{40}));

  // Copies keep every field, whatever the version.
  OdDbMemoryDwgFilerPtr dwg = OdDbMemoryDwgFiler::createObject(nullptr, OdDb::kCopyFiler);
  table.dwgOut(dwg.get());
  Versioned copy{0.0, 0.0};
  dwg->seek(0, OdDb::kSeekFromStart);
  FieldTable(kFields, &copy).dwgIn(dwg.get());
  EXPECT_EQ(copy.recent, 2.5);
  EXPECT_EQ(dwg->tell(), dwg->length());
}
}  // namespace
