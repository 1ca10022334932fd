#include "cli/blocks/CustomBlockReport.h"

#include <QJsonArray>
#include <QString>
#include <cmath>
#include <sstream>

#include "actions/CJbCustBlockAction.h"
#include "adoption/CJbOutsideBlockReader.h"
#include "adoption/CJbOutsideDrawing.h"
#include "adoption/CJbOutsideReference.h"
#include "cli/blocks/CustomBlockCatalog.h"
#include "cli/blocks/CustomBlockProperty.h"
#include "cli/blocks/OutsideBlockReport.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "platform/base/OdError.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/rx/OdRxClass.h"

namespace {
// "Linear" for a "JbCustBlockLinearParameter": the registered class name without the family
// prefix and the role suffix.
QString kindOf(const OdRxObject* object, const char* suffix) {
  QString name = QString::fromUtf8(object->isA()->name().c_str());
  if (name.startsWith("JbCustBlock")) name.remove(0, 11);
  if (name.endsWith(suffix)) name.chop(static_cast<int>(strlen(suffix)));
  return name;
}

QString nameOf(const CJbDbCustBlockGraph* graph, int id) {
  const CJbCustBlockElementPtr node = graph->GetNode(id);
  return node.isNull() ? QString() : QString::fromUtf8(node->GetName().c_str());
}

// Coordinates to a millionth of a unit: the noise below it does not survive a text file.
double rounded(double value) {
  const double r = std::round(value * 1e6) / 1e6;
  return r == 0 ? 0.0 : r;
}

QJsonArray point(const OdGePoint3d& p) {
  return {rounded(p.x), rounded(p.y), rounded(p.z)};
}

QString blockName(const OdDbObjectId& block) {
  return QString::fromUtf8(OdDbBlockTableRecordPtr(block.safeOpenObject())->getName().c_str());
}

QJsonObject describeGraph(const CJbDbCustBlockGraph* graph) {
  QJsonArray parameters, properties, actions, grips;
  for (const CustomBlockProperty& property : CustomBlockProperty::of(graph)) {
    const CJbCustBlockParameterPtr parameter =
        CJbCustBlockParameter::cast(graph->GetNode(property.parameterId()).get());
    properties.append(QJsonObject{{"name", QString::fromStdString(property.name())},
                                  {"parameter", nameOf(graph, property.parameterId())},
                                  {"type", QString::fromStdString(property.typeName())},
                                  {"value", property.json(parameter.get())},
                                  {"valueSet", property.valueSetJson(parameter.get())},
                                  {"settable", property.isSettable()}});
  }
  for (int id : graph->GetAllNodeIds()) {
    const CJbCustBlockElementPtr node = graph->GetNode(id);
    if (const CJbCustBlockParameterPtr parameter = CJbCustBlockParameter::cast(node.get())) {
      QJsonArray gripNames, actionNames;
      for (unsigned i = 0; i < parameter->GetPointCount(); ++i)
        if (parameter->GetGrip(i) != 0) gripNames.append(nameOf(graph, parameter->GetGrip(i)));
      for (int action : parameter->GetConnectedActions())
        actionNames.append(nameOf(graph, action));
      parameters.append(QJsonObject{{"name", nameOf(graph, id)},
                                    {"kind", kindOf(node.get(), "Parameter")},
                                    {"grips", gripNames},
                                    {"actions", actionNames}});
    } else if (const CJbCustBlockActionPtr action = CJbCustBlockAction::cast(node.get())) {
      int entities = 0;
      for (unsigned set = 0; set < action->GetRequiredSelectionSetCount(); ++set)
        entities += static_cast<int>(action->GetEntities(set).length());
      actions.append(QJsonObject{{"name", nameOf(graph, id)},
                                 {"kind", kindOf(node.get(), "Action")},
                                 {"parameter", nameOf(graph, action->GetParameter())},
                                 {"point", static_cast<int>(action->GetParameterPointIndex())},
                                 {"entities", entities}});
    } else if (const CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(node.get())) {
      unsigned index = 0;
      const int parameter = grip->GetParameter(&index);
      grips.append(QJsonObject{{"name", nameOf(graph, id)},
                               {"kind", kindOf(node.get(), "Grip")},
                               {"parameter", nameOf(graph, parameter)},
                               {"point", static_cast<int>(index)},
                               {"position", point(grip->GetDisplayPosition())}});
    }
  }
  return {{"parameters", parameters},
          {"properties", properties},
          {"actions", actions},
          {"grips", grips}};
}

QJsonObject currentValues(const CJbDbCustBlockGraph* graph) {
  QJsonObject values;
  for (const CustomBlockProperty& property : CustomBlockProperty::of(graph)) {
    const CJbCustBlockParameterPtr parameter =
        CJbCustBlockParameter::cast(graph->GetNode(property.parameterId()).get());
    values[QString::fromStdString(property.name())] = property.json(parameter.get());
  }
  return values;
}

// A reference as both kinds of block list it: what it shows, where, its values and extents.
QJsonObject referenceEntry(const OdDbObjectId& id, const OdDbObjectId& block,
                           const QJsonObject& values) {
  const OdDbBlockReferencePtr reference(id.safeOpenObject());
  const OdDbObjectId shown = reference->blockTableRecord();
  OdGeExtents3d extents;
  QJsonValue box;
  if (reference->getGeomExtents(extents) == eOk && extents.isValidExtents())
    box = QJsonObject{{"min", point(extents.minPoint())}, {"max", point(extents.maxPoint())}};
  return {{"handle", QString::fromUtf8(id.getHandle().ascii().c_str())},
          {"block", blockName(block)},
          {"instanceBlock", shown == block ? QJsonValue() : QJsonValue(blockName(shown))},
          {"position", point(reference->position())},
          {"values", values},
          {"extents", box}};
}

// Another program's parametric blocks: each described, and each of their references with the
// values it records.
void addOutsideBlocks(OdDbDatabase* database, QJsonArray& blocks, QJsonArray& references) {
  const CJbOutsideDrawing drawing(database);
  for (const OdDbObjectId& id : drawing.Blocks()) {
    const std::vector<OdDbObjectId> shown = drawing.ReferencesOf(id);
    QJsonObject entry;
    try {
      const CJbOutsideBlock block = CJbOutsideBlockReader::Read(id);
      entry = OutsideBlockReport::describe(block);
      for (const OdDbObjectId& reference : shown) {
        QJsonObject listed = referenceEntry(reference, id, {});
        listed["block"] = entry["name"];
        try {
          listed["values"] =
              OutsideBlockReport::values(block, CJbOutsideReference::Read(reference));
        } catch (const OdError& error) {
          listed["error"] = QString::fromUtf8(error.what());
        }
        listed["outside"] = true;
        references.append(listed);
      }
    } catch (const OdError& error) {
      entry = {{"name", QString::fromUtf8(CJbOutsideBlockReader::NameOf(id).c_str())},
               {"outside", true},
               {"error", QString::fromUtf8(error.what())}};
    }
    entry["references"] = static_cast<int>(shown.size());
    blocks.append(entry);
  }
}
}  // namespace

CustomBlockReport CustomBlockReport::of(OdDbDatabase* database, const std::string& file) {
  const CustomBlockCatalog catalog(database);
  QJsonArray blocks;
  std::map<OdDbObjectId, int> referenceCounts;
  QJsonArray references;
  for (const OdDbObjectId& id : catalog.references()) {
    const OdDbObjectId master =
        catalog.masterOf(OdDbBlockReferencePtr(id.safeOpenObject())->blockTableRecord());
    ++referenceCounts[master];
    const CJbDbCustBlockGraphPtr graph =
        catalog.graphOf(OdDbBlockReferencePtr(id.safeOpenObject())->blockTableRecord());
    references.append(
        referenceEntry(id, master, graph.isNull() ? QJsonObject() : currentValues(graph.get())));
  }
  for (const OdDbObjectId& master : catalog.masters()) {
    const CJbDbCustBlockGraphPtr graph = catalog.graphOf(master);
    QJsonObject block = describeGraph(graph.get());
    block["name"] = blockName(master);
    block["references"] = referenceCounts[master];
    blocks.append(block);
  }
  QJsonArray outsideBlocks;
  addOutsideBlocks(database, outsideBlocks, references);
  CustomBlockReport report;
  report.m_json = QJsonObject{{"schema", kSchemaVersion},
                              {"file", QString::fromStdString(file)},
                              {"customBlocks", blocks},
                              {"outsideBlocks", outsideBlocks},
                              {"references", references}};
  return report;
}

std::string CustomBlockReport::toText() const {
  std::ostringstream out;
  out << m_json["file"].toString().toStdString() << "\n";
  const QJsonArray blocks = m_json["customBlocks"].toArray();
  const QJsonArray outsideBlocks = m_json["outsideBlocks"].toArray();
  if (blocks.isEmpty() && outsideBlocks.isEmpty()) out << "  no customizable blocks\n";
  for (const QJsonValue& block : blocks) {
    out << "  block " << block["name"].toString().toStdString() << ": "
        << block["references"].toInt() << " references\n";
    for (const QJsonValue& property : block["properties"].toArray()) {
      out << "    " << property["name"].toString().toStdString() << " ("
          << property["type"].toString().toStdString() << " of "
          << property["parameter"].toString().toStdString()
          << ") = " << OutsideBlockReport::valueText(property["value"]);
      const QJsonObject set = property["valueSet"].toObject();
      if (set.contains("list")) {
        out << "  list";
        for (const QJsonValue& entry : set["list"].toArray())
          out << " " << OutsideBlockReport::valueText(entry);
      }
      if (set.contains("states")) {
        out << "  states";
        for (const QJsonValue& state : set["states"].toArray())
          out << " " << state.toString().toStdString();
      }
      for (const char* limit : {"minimum", "maximum", "increment"})
        if (set.contains(limit))
          out << "  " << limit << " " << OutsideBlockReport::valueText(set[limit]);
      out << "\n";
    }
    for (const QJsonValue& action : block["actions"].toArray())
      out << "    action " << action["name"].toString().toStdString() << " ("
          << action["kind"].toString().toStdString() << ") follows "
          << action["parameter"].toString().toStdString() << " point " << action["point"].toInt()
          << ", " << action["entities"].toInt() << " entities\n";
    for (const QJsonValue& grip : block["grips"].toArray()) {
      const QJsonArray at = grip["position"].toArray();
      out << "    grip " << grip["name"].toString().toStdString() << " ("
          << grip["kind"].toString().toStdString() << ") on "
          << grip["parameter"].toString().toStdString() << " point " << grip["point"].toInt()
          << " at " << OutsideBlockReport::valueText(at[0]) << ","
          << OutsideBlockReport::valueText(at[1]) << "\n";
    }
  }
  for (const QJsonValue& block : outsideBlocks) {
    out << "  outside block " << block["name"].toString().toStdString()
        << " (another program's parametric block, 'jbcb adopt' converts it): "
        << block["references"].toInt() << " references\n";
    if (block["error"].isString())
      out << "    not readable: " << block["error"].toString().toStdString() << "\n";
    else
      OutsideBlockReport::writeText(block.toObject(), "    ", out);
  }
  for (const QJsonValue& reference : m_json["references"].toArray()) {
    out << "  reference " << reference["handle"].toString().toStdString() << ": "
        << reference["block"].toString().toStdString();
    if (reference["instanceBlock"].isString())
      out << " as " << reference["instanceBlock"].toString().toStdString();
    if (reference["outside"].toBool()) out << " (outside)";
    if (reference["error"].isString())
      out << "  values not readable: " << reference["error"].toString().toStdString();
    const QJsonObject values = reference["values"].toObject();
    for (auto it = values.begin(); it != values.end(); ++it)
      out << "  " << it.key().toStdString() << "=" << OutsideBlockReport::valueText(it.value());
    out << "\n";
  }
  return out.str();
}
