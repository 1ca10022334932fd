// Set-up shared by the targets that read drawings of customizable blocks: the storage's classes
// registered after the module's, a drawing of the demonstration's blocks (a door with a stretched
// width, a mirrored hinge side, a turning leaf and open or closed looks; a lamp arm on a polar
// stretch; a table whose chairs repeat along its length; a window sized from a table; a panel
// filled with tiles; a basin scaled by its diameter), two references of each, the first of them
// edited; and the edit of every reference of a drawing through the editor helper, as the grips
// and the properties palette make it.
#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "ModuleFuzzing.h"
#include "authoring/CJbCustBlockAuthor.h"
#include "demo/DemoBlock.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "storage/CJbCustBlockEditorHelper.h"
#include "storage/CJbCustBlockStorageClasses.h"
#include "storage/CJbDbCustBlockStorage.h"

inline void registerStorageClasses() {
  registerModuleClasses();
  CJbCustBlockStorageClasses::RxInit();
}

// One edit applied to every reference: `choice` picks the parameter or grip (low bits), whether the
// parameter's grips move instead of its value being set (bit 7), whether one of the reference's
// grips is dragged instead (bit 6) and the kind of value (bits 4 and 5); `number` is the value.
struct ReferenceEdit {
  std::uint8_t choice = 0;
  double number = 0;
};

namespace customizable_drawing {
// State names of the seed drawing (the door's looks, the window's sizes), so that string values
// can hit a real state now and then.
inline const char* const kStateNames[] = {"Open", "Closed", "600x900", "900x1200"};

inline OdResBufPtr valueFor(const OdResBufPtr& current, int kind, double number) {
  const int type = current.isNull() ? OdResBuf::kRtDouble : current->restype();
  const bool text = type == OdResBuf::kRtString || type == 1;
  const bool integer = type == OdResBuf::kRtInt16 || type == OdResBuf::kRtInt32;
  const bool point = type == OdResBuf::kRtPoint3d || type == OdResBuf::kRtPoint2d;
  if (kind == 1 || (kind == 0 && !text && !integer && !point))
    return OdResBuf::newRb(kind == 0 ? type : OdResBuf::kRtDouble, number);
  if (kind == 2 || (kind == 0 && text)) {
    const double index = std::floor(number);
    if (number == index && index >= 0 && index < 4)
      return OdResBuf::newRb(OdResBuf::kRtString, kStateNames[static_cast<int>(index)]);
    return OdResBuf::newRb(OdResBuf::kRtString, OdString::format("%g", number));
  }
  if (point) return OdResBuf::newRb(type, OdGePoint3d(number, number / 2, 0));
  const bool fits = std::isfinite(number) && std::fabs(number) < 32767;
  return OdResBuf::newRb(OdResBuf::kRtInt32, fits ? static_cast<std::int32_t>(number) : 0);
}

inline void editGraph(CJbDbCustBlockGraph* graph, const ReferenceEdit& edit) {
  std::vector<CJbCustBlockParameterPtr> parameters;
  for (int id : graph->GetAllNodeIds())
    if (CJbCustBlockParameterPtr parameter = CJbCustBlockParameter::cast(graph->GetNode(id).get()))
      parameters.push_back(parameter);
  if (parameters.empty()) return;
  CJbCustBlockParameter* parameter = parameters[(edit.choice & 0x0F) % parameters.size()].get();
  if (edit.choice & 0x80) {
    for (unsigned point = 0; point < parameter->GetPointCount(); ++point) {
      CJbCustBlockGripPtr grip =
          CJbCustBlockGrip::cast(graph->GetNode(parameter->GetGrip(point)).get());
      if (grip.isNull()) continue;
      grip->SetDisplayPosition(grip->GetDisplayPosition() +
                               OdGeVector3d(edit.number, edit.number / 2, 0));
    }
    return;
  }
  parameter->SetValue(0, valueFor(parameter->GetValue(0), (edit.choice >> 4) & 3, edit.number));
}

// Drags one of the reference's grips, counted from the last, as the grip-points extension offers.
inline void dragGrip(const OdDbObjectId& id, const ReferenceEdit& edit) {
  OdDbBlockReferencePtr reference =
      OdDbBlockReference::cast(id.openObjectShared(OdDb::kForWrite).get());
  OdGePoint3dArray points;
  if (reference.isNull() || reference->getGripPoints(points) != eOk || points.isEmpty()) return;
  const unsigned last = points.length() - 1;
  OdIntArray indices;
  indices.append(static_cast<int>(last - (edit.choice & 0x0Fu) % points.length()));
  reference->moveGripPointsAt(indices, OdGeVector3d(edit.number, edit.number / 2, 0));
}
}  // namespace customizable_drawing

// Every demonstration block, with two references each, the first edited.
inline OdDbDatabasePtr customizableDrawing() {
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  OdDbObjectIdArray references;
  double x = 0;
  for (const auto& block : DemoBlock::All()) {
    CJbCustBlockAuthor author(db.get(), block->name());
    block->author(author);
    const OdDbObjectId blockId = author.Finish();
    OdDbBlockTableRecordPtr model =
        OdDbBlockTableRecord::cast(db->getModelSpaceId().openObjectShared(OdDb::kForWrite).get());
    for (int copy = 0; copy < 2; ++copy, x += 1000) {
      OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
      reference->setBlockTableRecord(blockId);
      reference->setPosition(OdGePoint3d(x, 0, 0));
      const OdDbObjectId id = model->appendOdDbEntity(reference.get());
      if (copy == 0) references.append(id);
    }
  }
  for (const OdDbObjectId& id : references) {
    CJbCustBlockEditorHelper helper(id);
    if (CJbDbCustBlockGraphPtr graph = helper.GetGraph(OdDb::kForWrite))
      customizable_drawing::editGraph(graph.get(), ReferenceEdit{0x81, 5.0});
  }
  return db;
}

// The edit applied to each block reference in model space, one editor helper each. OdError from
// an edit is an answer to bad input; anything else is not.
inline void editEveryReference(OdDbDatabase* db, const ReferenceEdit& edit) {
  OdDbObjectIdArray references;
  {
    OdDbBlockTableRecordPtr model =
        OdDbBlockTableRecord::cast(db->getModelSpaceId().openObjectShared(OdDb::kForRead).get());
    if (model.isNull()) return;
    for (OdDbObjectIteratorPtr it = model->newIterator(); !it->done(); it->step())
      if (OdDbBlockReference::cast(it->getObject().get())) references.append(it->objectId());
  }
  for (const OdDbObjectId& id : references) {
    try {
      if (edit.choice & 0x40) {
        customizable_drawing::dragGrip(id, edit);
        continue;
      }
      CJbCustBlockEditorHelper helper(id);
      CJbDbCustBlockGraphPtr graph = helper.GetGraph(OdDb::kForWrite);
      if (graph.isNull()) continue;
      customizable_drawing::editGraph(graph.get(), edit);
      graph.release();
      helper.Commit();
    } catch (const OdError&) {
    }
  }
}

// A drawing's DXF file split around the tags of its storage record: everything up to the record's
// object type, the record's own tags, and everything from the next object on.
struct StorageRecordSplit {
  std::string head;
  std::string tags;
  std::string tail;
};

inline StorageRecordSplit splitAtStorageRecord(const std::string& file) {
  const std::string end = file.find("\r\n") == std::string::npos ? "\n" : "\r\n";
  const std::string type = "  0" + end + "JB_BLOCK_STORAGE" + end;
  const std::size_t object = file.find(type);
  const std::size_t next = file.find(end + "  0" + end, object == std::string::npos ? 0 : object);
  if (object == std::string::npos || next == std::string::npos)
    throw OdError(eInvalidInput, "a DXF file holding a block storage object");
  const std::size_t tags = object + type.size();
  const std::size_t tail = next + end.size();
  return {file.substr(0, tags), file.substr(tags, tail - tags), file.substr(tail)};
}
