// make_sample_drawing: writes the small drawing that the README renders and inspects. It is
// built through the database API (a room with walls, a door block with a swing and a tag, a
// table with chairs as nested blocks, hatches, curves and text) and saved as DXF.
#include <cmath>
#include <iostream>

#include "cli/DrawingFile.h"
#include "platform/OdPlatform.h"
#include "platform/base/OdError.h"
#include "platform/db/OdDbAttribute.h"
#include "platform/db/OdDbAttributeDefinition.h"
#include "platform/db/OdDbBlockReference.h"
#include "platform/db/OdDbBlockTable.h"
#include "platform/db/OdDbBlockTableRecord.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbLayerTable.h"
#include "platform/db/OdDbLayerTableRecord.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbCircle.h"
#include "platform/db/entities/OdDbEllipse.h"
#include "platform/db/entities/OdDbHatch.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/entities/OdDbMText.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "platform/db/entities/OdDbSpline.h"
#include "platform/db/entities/OdDbText.h"

namespace {
class Sample {
 public:
  Sample() : db(OdDbDatabase::createObject()) {}

  template <class T>
  OdDbObjectId add(OdSmartPtr<T>& entity, const OdDbObjectId& owner, const char* layer = "0") {
    OdDbBlockTableRecordPtr block(owner.safeOpenObject(OdDb::kForWrite));
    const OdDbObjectId id = block->appendOdDbEntity(entity.get());
    entity->setLayer(layer);
    entity.release();
    return id;
  }

  void layer(const char* name, int color) {
    OdDbLayerTablePtr table(db->getLayerTableId().safeOpenObject(OdDb::kForWrite));
    OdDbLayerTableRecordPtr record = OdDbLayerTableRecord::createObject();
    record->setName(name);
    record->setColorIndex(static_cast<std::int16_t>(color));
    table->add(record.get());
  }

  OdDbObjectId block(const char* name) {
    OdDbBlockTablePtr table(db->getBlockTableId().safeOpenObject(OdDb::kForWrite));
    OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::createObject();
    record->setName(name);
    return table->add(record.get());
  }

  OdDbObjectId line(const OdGePoint3d& a, const OdGePoint3d& b, const OdDbObjectId& owner,
                    const char* layer = "0") {
    OdDbLinePtr line = OdDbLine::createObject();
    line->setStartPoint(a);
    line->setEndPoint(b);
    return add(line, owner, layer);
  }

  OdDbObjectId reference(const OdDbObjectId& block, const OdGePoint3d& at, double rotation,
                         const OdDbObjectId& owner, const char* layer = "0") {
    OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(block);
    reference->setPosition(at);
    reference->setRotation(rotation);
    return add(reference, owner, layer);
  }

  OdDbDatabasePtr db;
};

void build(Sample& s) {
  const OdDbObjectId model = s.db->getModelSpaceId();
  s.db->setINSUNITS(4);  // millimetres
  s.layer("Walls", 7);
  s.layer("Doors", 1);
  s.layer("Furniture", 5);
  s.layer("Floor", 8);
  s.layer("Notes", 7);

  // Walls: a closed polyline of constant width with a rounded corner.
  OdDbPolylinePtr walls = OdDbPolyline::createObject();
  walls->addVertexAt(0, {0, 0});
  walls->addVertexAt(1, {6000, 0});
  walls->addVertexAt(2, {6000, 3000}, std::tan(M_PI / 8));
  walls->addVertexAt(3, {5000, 4000});
  walls->addVertexAt(4, {0, 4000});
  walls->setClosed(true);
  walls->setConstantWidth(120);
  s.add(walls, model, "Walls");

  // Floor: a patterned hatch of the room, with a solid column in one corner.
  OdDbHatchPtr floor = OdDbHatch::createObject();
  floor->setPattern(OdDbHatch::kPreDefined, "ANSI31");
  floor->appendLoop(OdDbHatch::kExternal | OdDbHatch::kPolyline,
                    {{3800, 200}, {5800, 200}, {5800, 1600}, {3800, 1600}}, {});
  s.add(floor, model, "Floor");
  OdDbHatchPtr column = OdDbHatch::createObject();
  column->setPattern(OdDbHatch::kPreDefined, "SOLID");
  column->appendLoop(OdDbHatch::kExternal | OdDbHatch::kPolyline,
                     {{60, 3640}, {360, 3640}, {360, 3940}, {60, 3940}}, {});
  s.add(column, model, "Walls");

  // A door: leaf, swing and a tag attribute.
  const OdDbObjectId door = s.block("Door");
  s.line({0, 0, 0}, {0, 900, 0}, door);
  OdDbArcPtr swing = OdDbArc::createObject();
  swing->setRadius(900);
  swing->setStartAngle(0);
  swing->setEndAngle(M_PI / 2);
  s.add(swing, door);
  OdDbAttributeDefinitionPtr tag = OdDbAttributeDefinition::createObject();
  tag->setTag("TAG");
  tag->setTextString("D1");
  tag->setPosition({450, 150, 0});
  tag->setHeight(150);
  const OdDbObjectId tagId = s.add(tag, door);
  const OdDbObjectId doorRef = s.reference(door, {1000, 0, 0}, 0.0, model, "Doors");
  {
    OdDbBlockReferencePtr reference(doorRef.safeOpenObject(OdDb::kForWrite));
    const OdDbAttributeDefinitionPtr definition(tagId.safeOpenObject());
    OdDbAttributePtr value = OdDbAttribute::createObject();
    value->setAttributeFromBlock(definition.get(), reference->blockTransform());
    value->setTextString("D1");
    reference->appendAttribute(value.get());
  }

  // A round table with four chairs: a block holding references to a chair block.
  const OdDbObjectId chair = s.block("Chair");
  OdDbPolylinePtr seat = OdDbPolyline::createObject();
  seat->addVertexAt(0, {-200, -200});
  seat->addVertexAt(1, {200, -200});
  seat->addVertexAt(2, {200, 200}, 1.0);
  seat->addVertexAt(3, {-200, 200});
  seat->setClosed(true);
  s.add(seat, chair);
  const OdDbObjectId table = s.block("Table");
  OdDbCirclePtr top = OdDbCircle::createObject();
  top->setRadius(500);
  s.add(top, table);
  for (int i = 0; i < 4; ++i) {
    const double angle = i * M_PI / 2;
    s.reference(chair, {750 * std::cos(angle), 750 * std::sin(angle), 0}, angle - M_PI / 2, table);
  }
  s.reference(table, {2200, 2200, 0}, 0.0, model, "Furniture");

  // A rug (ellipse) and a plant outline (spline).
  OdDbEllipsePtr rug = OdDbEllipse::createObject();
  rug->set({4800, 2900, 0}, OdGeVector3d::kZAxis, {700, 0, 0}, 0.5);
  s.add(rug, model, "Furniture");
  OdDbSplinePtr plant = OdDbSpline::createObject();
  plant->setFitData({{400, 3000, 0}, {800, 3500, 0}, {1200, 3100, 0}, {1600, 3600, 0}},
                    OdGeVector3d(), OdGeVector3d());
  plant->setColorIndex(3);
  s.add(plant, model, "Furniture");

  // A title and a note.
  OdDbTextPtr title = OdDbText::createObject();
  title->setPosition({0, 4300, 0});
  title->setHeight(250);
  title->setTextString("Sample room 1:50");
  s.add(title, model, "Notes");
  OdDbMTextPtr note = OdDbMText::createObject();
  note->setLocation({6300, 4000, 0});
  note->setTextHeight(150);
  note->setWidth(2200);
  note->setContents("{\\fDejaVu Sans|b1;Notes}\\PWalls 120 mm, door D1 opens inwards.");
  s.add(note, model, "Notes");
}
}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make_sample_drawing OUT.dxf\n";
    return 2;
  }
  odInitialize();
  int code = 0;
  try {
    Sample sample;
    build(sample);
    DrawingFile::write(sample.db.get(), argv[1], DrawingFile::SaveOptions());
  } catch (const OdError& error) {
    std::cerr << "make_sample_drawing: " << error.description() << "\n";
    code = 1;
  }
  odUninitialize();
  return code;
}
