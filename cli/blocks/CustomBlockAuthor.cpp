#include "cli/blocks/CustomBlockAuthor.h"

#include "platform/base/OdError.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbCircle.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "platform/db/entities/OdDbText.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "storage/CJbDbCustBlockStorage.h"

CustomBlockAuthor::CustomBlockAuthor(OdDbDatabase* database, const OdString& name)
    : m_database(database), m_graph(CJbDbCustBlockGraph::createObject()) {
  OdSmartPtr<OdDbBlockTable> table(database->getBlockTableId().safeOpenObject(OdDb::kForWrite));
  if (!table->getAt(name).isNull())
    throw OdError(eDuplicateKey, "the drawing already has a block named \"" + name.str() + "\"");
  OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::createObject();
  record->setName(name);
  m_blockId = table->add(record.get());
}

OdDbObjectId CustomBlockAuthor::addEntity(OdDbEntity* entity) {
  OdDbBlockTableRecordPtr block(m_blockId.safeOpenObject(OdDb::kForWrite));
  return block->appendOdDbEntity(entity);
}

OdDbObjectId CustomBlockAuthor::addLine(const OdGePoint3d& from, const OdGePoint3d& to) {
  OdDbLinePtr line = OdDbLine::createObject();
  line->setStartPoint(from);
  line->setEndPoint(to);
  return addEntity(line.get());
}

OdDbObjectId CustomBlockAuthor::addPolyline(const OdArray<OdGePoint3d>& points, bool closed) {
  OdDbPolylinePtr polyline = OdDbPolyline::createObject();
  for (unsigned i = 0; i < points.length(); ++i)
    polyline->addVertexAt(i, OdGePoint2d(points[i].x, points[i].y));
  polyline->setClosed(closed);
  return addEntity(polyline.get());
}

OdDbObjectId CustomBlockAuthor::addRectangle(const OdGePoint3d& min, const OdGePoint3d& max) {
  return addPolyline({min, OdGePoint3d(max.x, min.y, 0), max, OdGePoint3d(min.x, max.y, 0)}, true);
}

OdDbObjectId CustomBlockAuthor::addArc(const OdGePoint3d& center, double radius, double start,
                                       double end) {
  OdDbArcPtr arc = OdDbArc::createObject();
  arc->setCenter(center);
  arc->setRadius(radius);
  arc->setStartAngle(start);
  arc->setEndAngle(end);
  return addEntity(arc.get());
}

OdDbObjectId CustomBlockAuthor::addCircle(const OdGePoint3d& center, double radius) {
  OdDbCirclePtr circle = OdDbCircle::createObject();
  circle->setCenter(center);
  circle->setRadius(radius);
  return addEntity(circle.get());
}

OdDbObjectId CustomBlockAuthor::addText(const OdGePoint3d& at, double height,
                                        const OdString& text) {
  OdDbTextPtr entity = OdDbText::createObject();
  entity->setPosition(at);
  entity->setHeight(height);
  entity->setTextString(text);
  return addEntity(entity.get());
}

void CustomBlockAuthor::nameValue(CJbCustBlockParameter* parameter, unsigned index,
                                  const OdString& name) {
  if (CJbCustBlockParameterValueInfo* info = parameter->GetValueInfoForModify(index))
    info->SetName(name, parameter);
}

void CustomBlockAuthor::bindGrip(CJbCustBlockParameter* parameter, unsigned index,
                                 CJbCustBlockGrip* grip) {
  const CJbCustBlockGripPtr held(grip);
  m_graph->AppendNode(held);
  parameter->SetGrip(index, grip->GetElementId());
  grip->AddConnection(parameter->GetElementId(), false, true);
  grip->SetDefindedPosition(parameter->GetDefinedPosition(index));
}

void CustomBlockAuthor::setFrame(CJbCustBlockAction* action, unsigned set, const OdGePoint3d& min,
                                 const OdGePoint3d& max) {
  action->SetSelectionDefinition(set, {min, max}, true);
}

OdDbObjectId CustomBlockAuthor::finish() {
  OdDbObjectId graphId = m_database->addOdDbObject(m_graph.get());
  m_graph.release();
  const OdSmartPtr<CJbDbCustBlockStorage> storage =
      CJbDbCustBlockStorage::GetStorage(m_database, OdDb::kForWrite, true);
  storage->AppendMasterBlock(m_blockId, graphId).ThrowIfFailed();
  // The master shows the definition as authored, in its first states.
  CJbDbCustBlockGraphPtr(graphId.safeOpenObject(OdDb::kForWrite))->Reset(m_blockId, false);
  return m_blockId;
}
