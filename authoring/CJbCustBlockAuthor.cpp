// Authoring a new customizable block.
#include "authoring/CJbCustBlockAuthor.h"

#include "platform/base/OdError.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbCircle.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "platform/db/entities/OdDbText.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "storage/CJbDbCustBlockStorage.h"

CJbCustBlockAuthor::CJbCustBlockAuthor(OdDbDatabase* database, const OdString& name)
    : CJbCustBlockAuthor(database, name, CJbDbCustBlockGraph::createObject()) {}

CJbCustBlockAuthor::CJbCustBlockAuthor(OdDbDatabase* database, const OdString& name,
                                       CJbDbCustBlockGraphPtr graph)
    : CJbCustBlockGraphAuthor(graph.get()), m_database(database), m_graph(graph) {
  OdSmartPtr<OdDbBlockTable> table(database->getBlockTableId().safeOpenObject(OdDb::kForWrite));
  if (!table->getAt(name).isNull())
    throw OdError(eDuplicateKey, "the drawing already has a block named \"" + name.str() + "\"");
  OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::createObject();
  record->setName(name);
  m_blockId = table->add(record.get());
}

OdDbObjectId CJbCustBlockAuthor::AddEntity(OdDbEntity* entity) {
  OdDbBlockTableRecordPtr block(m_blockId.safeOpenObject(OdDb::kForWrite));
  return block->appendOdDbEntity(entity);
}

OdDbObjectId CJbCustBlockAuthor::AddLine(const OdGePoint3d& from, const OdGePoint3d& to) {
  OdDbLinePtr line = OdDbLine::createObject();
  line->setStartPoint(from);
  line->setEndPoint(to);
  return AddEntity(line.get());
}

OdDbObjectId CJbCustBlockAuthor::AddPolyline(const OdArray<OdGePoint3d>& points, bool closed) {
  OdDbPolylinePtr polyline = OdDbPolyline::createObject();
  for (unsigned i = 0; i < points.length(); ++i)
    polyline->addVertexAt(i, OdGePoint2d(points[i].x, points[i].y));
  polyline->setClosed(closed);
  return AddEntity(polyline.get());
}

OdDbObjectId CJbCustBlockAuthor::AddRectangle(const OdGePoint3d& min, const OdGePoint3d& max) {
  return AddPolyline({min, OdGePoint3d(max.x, min.y, 0), max, OdGePoint3d(min.x, max.y, 0)}, true);
}

OdDbObjectId CJbCustBlockAuthor::AddArc(const OdGePoint3d& center, double radius, double start,
                                        double end) {
  OdDbArcPtr arc = OdDbArc::createObject();
  arc->setCenter(center);
  arc->setRadius(radius);
  arc->setStartAngle(start);
  arc->setEndAngle(end);
  return AddEntity(arc.get());
}

OdDbObjectId CJbCustBlockAuthor::AddCircle(const OdGePoint3d& center, double radius) {
  OdDbCirclePtr circle = OdDbCircle::createObject();
  circle->setCenter(center);
  circle->setRadius(radius);
  return AddEntity(circle.get());
}

OdDbObjectId CJbCustBlockAuthor::AddText(const OdGePoint3d& at, double height,
                                         const OdString& text) {
  OdDbTextPtr entity = OdDbText::createObject();
  entity->setPosition(at);
  entity->setHeight(height);
  entity->setTextString(text);
  return AddEntity(entity.get());
}

OdDbObjectId CJbCustBlockAuthor::Finish() {
  OdDbObjectId graphId = m_database->addOdDbObject(m_graph.get());
  m_graph.release();
  const CJbDbCustBlockStoragePtr storage =
      CJbDbCustBlockStorage::GetStorage(m_database, OdDb::kForWrite, true);
  storage->AppendMasterBlock(m_blockId, graphId).ThrowIfFailed();
  CJbDbCustBlockGraphPtr(graphId.safeOpenObject(OdDb::kForWrite))->Reset(m_blockId, false);
  return m_blockId;
}
