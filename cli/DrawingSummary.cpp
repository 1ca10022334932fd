// Gathers the summary by walking the block and layer tables and every object once.
#include "cli/DrawingSummary.h"

#include <QJsonArray>
#include <QJsonValue>
#include <QString>
#include <cstdio>
#include <sstream>

#include "cli/DrawingFile.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbEntity.h"
#include "platform/db/OdDbUnknownObject.h"
#include "platform/db/entities/OdDbUnknownEntity.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbLayerTable.h"
#include "platform/db/symtables/OdDbLayerTableRecord.h"
#include "platform/rx/OdRxClass.h"
#include "render/DrawingRenderer.h"

namespace {
QString q(const std::string& text) {
  return QString::fromStdString(text);
}

// The record name an object is filed under: the one it was read with for unknown classes.
std::string recordName(const OdDbObject* object) {
  if (auto entity = OdDbUnknownEntity::cast(object); !entity.isNull())
    return entity->dxfRecordName().str();
  if (auto unknown = OdDbUnknownObject::cast(object); !unknown.isNull())
    return unknown->dxfRecordName().str();
  const OdRxClass* cls = object->isA();
  return (cls->dxfName().isEmpty() ? cls->name() : cls->dxfName()).str();
}

QJsonArray pointJson(const OdGePoint3d& p) {
  return QJsonArray{p.x, p.y, p.z};
}

std::string number(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.6g", value);
  return text;
}
}  // namespace

DrawingSummary DrawingSummary::of(OdDbDatabase* database, const std::string& file) {
  DrawingSummary summary;
  summary.file = file;
  summary.version = DrawingFile::versionOf(database);
  summary.units = database->getINSUNITS();

  const OdDbBlockTableRecordPtr model = database->openObject(database->getModelSpaceId());
  for (OdDbObjectIteratorPtr it = model->newIterator(); !it->done(); it->step())
    ++summary.entities[recordName(it->entity().get())];
  summary.extents = DrawingRenderer(database, Qt::white).extents(database->getModelSpaceId());

  const OdSmartPtr<OdDbBlockTable> blocks = database->openObject(database->getBlockTableId());
  for (const OdDbObjectId& id : blocks->recordIds()) {
    const OdDbBlockTableRecordPtr record = database->openObject(id);
    if (record->isLayout()) continue;
    Block block;
    block.name = record->getName().str();
    for (OdDbObjectIteratorPtr it = record->newIterator(); !it->done(); it->step())
      ++block.entities;
    OdDbObjectIdArray references;
    record->getBlockReferenceIds(references);
    block.references = static_cast<int>(references.length());
    block.anonymous = record->isAnonymous();
    summary.blocks.push_back(block);
  }

  const OdSmartPtr<OdDbLayerTable> layers = database->openObject(database->getLayerTableId());
  for (const OdDbObjectId& id : layers->recordIds()) {
    const OdDbLayerTableRecordPtr record = database->openObject(id);
    summary.layers.push_back({record->getName().str(), std::abs(record->colorIndex()),
                              !record->isOff(), record->isFrozen(), record->isLocked()});
  }

  for (const OdDbObjectId& id : database->objectIds()) {
    if (id.isErased()) continue;
    const OdDbObjectPtr object = database->openObject(id);
    if (!OdDbUnknownEntity::cast(object.get()).isNull() ||
        !OdDbUnknownObject::cast(object.get()).isNull())
      ++summary.unknownClasses[recordName(object.get())];
  }
  return summary;
}

std::string DrawingSummary::unitsName(int code) {
  static const char* const kNames[] = {"unitless",
                                       "inches",
                                       "feet",
                                       "miles",
                                       "millimeters",
                                       "centimeters",
                                       "meters",
                                       "kilometers",
                                       "microinches",
                                       "mils",
                                       "yards",
                                       "angstroms",
                                       "nanometers",
                                       "microns",
                                       "decimeters",
                                       "decameters",
                                       "hectometers",
                                       "gigameters",
                                       "astronomical units",
                                       "light years",
                                       "parsecs",
                                       "US survey feet"};
  if (code < 0 || code >= static_cast<int>(sizeof kNames / sizeof kNames[0])) return "unknown";
  return kNames[code];
}

QJsonObject DrawingSummary::toJson() const {
  QJsonObject entityCounts;
  int total = 0;
  for (const auto& [kind, count] : entities) {
    entityCounts[q(kind)] = count;
    total += count;
  }
  QJsonArray blockList;
  for (const Block& block : blocks)
    blockList.append(QJsonObject{{"name", q(block.name)},
                                 {"entities", block.entities},
                                 {"references", block.references},
                                 {"anonymous", block.anonymous}});
  QJsonArray layerList;
  for (const Layer& layer : layers)
    layerList.append(QJsonObject{{"name", q(layer.name)},
                                 {"color", layer.color},
                                 {"on", layer.on},
                                 {"frozen", layer.frozen},
                                 {"locked", layer.locked}});
  QJsonObject unknown;
  for (const auto& [name, count] : unknownClasses)
    unknown[q(name)] = count;
  const QJsonValue box = extents.isValidExtents()
                             ? QJsonValue(QJsonObject{{"min", pointJson(extents.minPoint())},
                                                      {"max", pointJson(extents.maxPoint())}})
                             : QJsonValue(QJsonValue::Null);
  return QJsonObject{{"schema", kSchemaVersion},
                     {"file", q(file)},
                     {"version", version.empty() ? QJsonValue() : QJsonValue(q(version))},
                     {"units", QJsonObject{{"code", units}, {"name", q(unitsName(units))}}},
                     {"entities", entityCounts},
                     {"entityCount", total},
                     {"blocks", blockList},
                     {"layers", layerList},
                     {"extents", box},
                     {"unknownClasses", unknown}};
}

std::string DrawingSummary::toText() const {
  std::ostringstream out;
  int total = 0;
  std::string kinds;
  for (const auto& [kind, count] : entities) {
    total += count;
    kinds += (kinds.empty() ? ": " : ", ") + kind + " " + std::to_string(count);
  }
  out << file << "\n";
  out << "  version    " << (version.empty() ? "-" : version) << "\n";
  out << "  units      " << unitsName(units) << "\n";
  out << "  entities   " << total << " in model space" << kinds << "\n";
  out << "  extents    ";
  if (extents.isValidExtents())
    out << "(" << number(extents.minPoint().x) << ", " << number(extents.minPoint().y) << ") - ("
        << number(extents.maxPoint().x) << ", " << number(extents.maxPoint().y) << ")\n";
  else
    out << "empty\n";
  out << "  blocks     " << blocks.size() << "\n";
  for (const Block& block : blocks)
    out << "    " << block.name << ": " << block.entities << " entities, " << block.references
        << (block.references == 1 ? " reference" : " references")
        << (block.anonymous ? ", anonymous" : "") << "\n";
  out << "  layers     " << layers.size() << "\n";
  for (const Layer& layer : layers)
    out << "    " << layer.name << ": color " << layer.color << (layer.on ? "" : ", off")
        << (layer.frozen ? ", frozen" : "") << (layer.locked ? ", locked" : "") << "\n";
  if (!unknownClasses.empty()) {
    out << "  kept unknown classes\n";
    for (const auto& [name, count] : unknownClasses)
      out << "    " << name << ": " << count << "\n";
  }
  return out.str();
}
