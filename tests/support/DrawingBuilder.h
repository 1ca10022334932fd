// Builds small drawings through the database API for the CLI tests: blocks, references and
// entities of every kind in a fresh database.
#pragma once

#include "platform/db/OdDbDatabase.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbHatch.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbLayerTable.h"
#include "platform/db/symtables/OdDbLayerTableRecord.h"

class DrawingBuilder {
 public:
  DrawingBuilder() : db(OdDbDatabase::createObject()) {}

  OdDbObjectId modelSpace() const { return db->getModelSpaceId(); }

  // Appends a new entity to owner (model space by default), closes it and returns its id.
  template <class T>
  OdDbObjectId add(OdSmartPtr<T>& entity, OdDbObjectId owner = OdDbObjectId()) {
    OdDbBlockTableRecordPtr block(
        (owner.isNull() ? modelSpace() : owner).safeOpenObject(OdDb::kForWrite));
    const OdDbObjectId id = block->appendOdDbEntity(entity.get());
    entity.release();
    return id;
  }

  OdDbObjectId line(const OdGePoint3d& from, const OdGePoint3d& to,
                    OdDbObjectId owner = OdDbObjectId()) {
    OdDbLinePtr line = OdDbLine::createObject();
    line->setStartPoint(from);
    line->setEndPoint(to);
    return add(line, owner);
  }

  // A solid-filled square hatch with corners at min and max, with an optional square hole.
  OdDbObjectId hatchSquare(double min, double max, double holeMin = 0.0, double holeMax = 0.0) {
    OdDbHatchPtr hatch = OdDbHatch::createObject();
    hatch->setPattern(OdDbHatch::kPreDefined, "SOLID");
    auto square = [](double a, double b) {
      return OdGePoint2dArray{{a, a}, {b, a}, {b, b}, {a, b}};
    };
    hatch->appendLoop(OdDbHatch::kExternal | OdDbHatch::kPolyline, square(min, max), {});
    if (holeMax > holeMin) hatch->appendLoop(OdDbHatch::kPolyline, square(holeMin, holeMax), {});
    return add(hatch);
  }

  OdDbObjectId block(const OdString& name) {
    OdSmartPtr<OdDbBlockTable> table(db->getBlockTableId().safeOpenObject(OdDb::kForWrite));
    OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::createObject();
    record->setName(name);
    return table->add(record.get());
  }

  OdDbObjectId reference(const OdDbObjectId& block, const OdGePoint3d& at, double rotation = 0.0,
                         OdDbObjectId owner = OdDbObjectId()) {
    OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(block);
    reference->setPosition(at);
    reference->setRotation(rotation);
    return add(reference, owner);
  }

  OdDbObjectId layer(const OdString& name, int color, bool off = false) {
    OdSmartPtr<OdDbLayerTable> table(db->getLayerTableId().safeOpenObject(OdDb::kForWrite));
    OdDbLayerTableRecordPtr record = OdDbLayerTableRecord::createObject();
    record->setName(name);
    record->setColorIndex(static_cast<std::int16_t>(color));
    record->setIsOff(off);
    return table->add(record.get());
  }

  template <class T>
  OdSmartPtr<T> open(const OdDbObjectId& id) {
    return OdSmartPtr<T>(id.safeOpenObject(OdDb::kForWrite));
  }

  OdDbDatabasePtr db;
};
