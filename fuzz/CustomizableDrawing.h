// Set-up shared by the targets that read drawings of customizable blocks: the storage's classes
// registered after the module's, a drawing with several customizable blocks (a door with a
// stretched width, a flipped swing and a turned leaf; a table whose chairs repeat along its width;
// a door shown open or closed; a window sized from a table), two references of each, the first of
// them edited; and the edit of every reference of a drawing through the editor helper, as the
// grips and the properties palette make it.
#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "ModuleFuzzing.h"
#include "actions/CJbCustBlockArrayAction.h"
#include "actions/CJbCustBlockFlipAction.h"
#include "actions/CJbCustBlockLookupAction.h"
#include "actions/CJbCustBlockRotateAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "authoring/CJbCustBlockGraphAuthor.h"
#include "parameters/CJbCustBlockFlipParameter.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockLookupParameter.h"
#include "parameters/CJbCustBlockRotationParameter.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "parameters/grips/CJbCustBlockFlipGrip.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbCircle.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "platform/db/symtables/OdDbBlockTable.h"
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
// Names the seed drawing uses, so that string values can hit a real state now and then.
inline const char* const kStateNames[] = {"Open", "Closed", "600x900", "900x1200"};

template <class T>
OdSmartPtr<T> append(CJbDbCustBlockGraph* graph) {
  OdSmartPtr<T> element(new T);
  graph->AppendNode(element);
  return element;
}

template <class Grip>
void appendGrip(CJbDbCustBlockGraph* graph, CJbCustBlockParameter* parameter, unsigned index) {
  CJbCustBlockGraphAuthor(graph).BindGrip(parameter, index, OdSmartPtr<Grip>(new Grip).get());
}

template <class Action>
OdSmartPtr<Action> appendAction(CJbDbCustBlockGraph* graph, const CJbCustBlockParameter* parameter,
                                const OdDbObjectIdArray& entities) {
  OdSmartPtr<Action> action = append<Action>(graph);
  action->SetParameter(parameter->GetElementId());
  action->SetEntities(0, entities);
  return action;
}

inline OdDbObjectId append(OdDbBlockTableRecord* block, OdDbEntity* entity) {
  return block->appendOdDbEntity(entity);
}

inline OdDbObjectId closedOutline(OdDbBlockTableRecord* block, double width, double height) {
  OdSmartPtr<OdDbPolyline> outline = OdDbPolyline::createObject();
  const OdGePoint2d corners[] = {OdGePoint2d(0, 0), OdGePoint2d(width, 0),
                                 OdGePoint2d(width, height), OdGePoint2d(0, height)};
  for (const OdGePoint2d& corner : corners)
    outline->addVertexAt(outline->numVerts(), corner);
  outline->setClosed(true);
  return append(block, outline.get());
}

inline OdDbObjectId line(OdDbBlockTableRecord* block, const OdGePoint3d& from,
                         const OdGePoint3d& to) {
  OdSmartPtr<OdDbLine> entity = OdDbLine::createObject();
  entity->setStartPoint(from);
  entity->setEndPoint(to);
  return append(block, entity.get());
}

inline OdDbObjectId arc(OdDbBlockTableRecord* block, double radius) {
  OdSmartPtr<OdDbArc> entity = OdDbArc::createObject();
  entity->setRadius(radius);
  entity->setEndAngle(1.5);
  return append(block, entity.get());
}

inline CJbCustBlockLinearParameterPtr linear(CJbDbCustBlockGraph* graph, const OdGePoint3d& end) {
  auto parameter = append<CJbCustBlockLinearParameter>(graph);
  parameter->SetDefinedPosition(1, end);
  return parameter;
}

inline void stretch(CJbDbCustBlockGraph* graph, const CJbCustBlockParameter* parameter,
                    const OdDbObjectIdArray& entities, const OdGePoint3d& low,
                    const OdGePoint3d& high) {
  auto action = appendAction<CJbCustBlockStretchAction>(graph, parameter, entities);
  action->SetParameterPointIndex(1);
  action->SetSelectionDefinition(0, {low, high}, true);
}

inline void door(CJbDbCustBlockGraph* graph, OdDbBlockTableRecord* block) {
  const OdDbObjectIdArray entities{closedOutline(block, 10, 1), arc(block, 10)};
  auto width = linear(graph, OdGePoint3d(10, 0, 0));
  appendGrip<CJbCustBlockLinearGrip>(graph, width.get(), 0);
  appendGrip<CJbCustBlockLinearGrip>(graph, width.get(), 1);
  stretch(graph, width.get(), entities, OdGePoint3d(8, -1, 0), OdGePoint3d(12, 2, 0));
  auto flip = append<CJbCustBlockFlipParameter>(graph);
  flip->SetDefinedPosition(1, OdGePoint3d(10, 0, 0));
  appendGrip<CJbCustBlockFlipGrip>(graph, flip.get(), 0);
  auto rotation = append<CJbCustBlockRotationParameter>(graph);
  rotation->SetDefinedPosition(1, OdGePoint3d(5, 0, 0));
  rotation->SetDefinedPosition(2, OdGePoint3d(5, 0, 0));
  appendAction<CJbCustBlockFlipAction>(graph, flip.get(), entities)
      ->SetElements(0, {rotation->GetElementId()});
  appendAction<CJbCustBlockRotateAction>(graph, rotation.get(), entities);
}

inline void table(CJbDbCustBlockGraph* graph, OdDbBlockTableRecord* block) {
  line(block, OdGePoint3d::kOrigin, OdGePoint3d(6, 0, 0));
  OdSmartPtr<OdDbCircle> seat = OdDbCircle::createObject();
  seat->setCenter(OdGePoint3d(1, -1, 0));
  seat->setRadius(0.5);
  const OdDbObjectId chair = append(block, seat.get());
  auto width = linear(graph, OdGePoint3d(6, 0, 0));
  appendAction<CJbCustBlockArrayAction>(graph, width.get(), {chair})->SetColumnDistance(4.0);
}

inline void swingDoor(CJbDbCustBlockGraph* graph, OdDbBlockTableRecord* block) {
  line(block, OdGePoint3d::kOrigin, OdGePoint3d(0, 10, 0));
  const OdDbObjectId swing = arc(block, 10);
  const OdDbObjectId leaf = line(block, OdGePoint3d::kOrigin, OdGePoint3d(10, 0, 0));
  auto visibility = append<CJbCustBlockVisibilityParameter>(graph);
  visibility->AddState(kStateNames[0], {leaf}, {});
  visibility->AddState(kStateNames[1], {swing}, {});
  visibility->ForceHideEntitiesForDefaultState();
}

inline void window(CJbDbCustBlockGraph* graph, OdDbBlockTableRecord* block) {
  const OdDbObjectIdArray frame{closedOutline(block, 600, 900)};
  auto width = linear(graph, OdGePoint3d(600, 0, 0));
  stretch(graph, width.get(), frame, OdGePoint3d(550, -50, 0), OdGePoint3d(650, 950, 0));
  auto height = linear(graph, OdGePoint3d(0, 900, 0));
  stretch(graph, height.get(), frame, OdGePoint3d(-50, 850, 0), OdGePoint3d(650, 950, 0));
  auto lookup = append<CJbCustBlockLookupParameter>(graph);
  append<CJbCustBlockLookupAction>(graph)->SetParameter(lookup->GetElementId());
  lookup->AddParameterId(width->GetElementId(), 0);
  lookup->AddParameterId(height->GetElementId(), 0);
  const double sizes[2][2] = {{600, 900}, {900, 1200}};
  for (unsigned row = 0; row < 2; ++row) {
    lookup->AddState();
    lookup->SetStateName(row, kStateNames[2 + row]);
    for (unsigned column = 0; column < 2; ++column)
      lookup->SetParameterValue(column, row,
                                OdResBuf::newRb(OdResBuf::kRtDouble, sizes[row][column]));
  }
}

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

// Every customizable block of the seed drawing, with two references each, the first edited.
inline OdDbDatabasePtr customizableDrawing() {
  using namespace customizable_drawing;
  using Author = void (*)(CJbDbCustBlockGraph*, OdDbBlockTableRecord*);
  const std::pair<const char*, Author> blocks[] = {
      {"Door", door}, {"Table", table}, {"SwingDoor", swingDoor}, {"Window", window}};
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  OdDbObjectIdArray references;
  double x = 0;
  for (const auto& item : blocks) {
    OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
    block->setName(item.first);
    OdSmartPtr<OdDbBlockTable> table =
        OdDbBlockTable::cast(db->getBlockTableId().openObjectShared(OdDb::kForWrite).get());
    const OdDbObjectId blockId = table->add(block.get());
    table.release();
    OdDbObjectId graphId;
    CJbDbCustBlockStorage::GetStorage(db.get(), OdDb::kForWrite, true)
        ->AppendMasterBlock(blockId, graphId);
    item.second(CJbDbCustBlockGraph::cast(graphId.openObjectShared(OdDb::kForWrite).get()).get(),
                block.get());
    block.release();
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
      editGraph(graph.get(), ReferenceEdit{0x81, 5.0});
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
