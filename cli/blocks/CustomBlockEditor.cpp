#include "cli/blocks/CustomBlockEditor.h"

#include <map>

#include "cli/blocks/CustomBlockProperty.h"
#include "cli/blocks/CustomReferenceGrips.h"
#include "platform/base/OdError.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "storage/CJbCustBlockEditorHelper.h"

namespace {
std::string handleOf(const OdDbObjectId& id) {
  return id.getHandle().ascii().str();
}

OdDbObjectId blockOf(const OdDbObjectId& reference) {
  const OdDbBlockReferencePtr entity = OdDbBlockReference::cast(reference.openObject().get());
  if (entity.isNull())
    throw OdError(eNotThatKindOfClass,
                  "object " + handleOf(reference) + " is not a block reference");
  return entity->blockTableRecord();
}

bool hasAttributes(const OdDbObjectId& reference) {
  return !OdDbBlockReferencePtr(reference.safeOpenObject())->attributeIterator()->done();
}

std::string listOf(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names)
    text += (text.empty() ? "" : ", ") + name;
  return text.empty() ? "none" : text;
}

// The graph of a reference's block in its state, or OdError saying the block is not customizable.
CJbDbCustBlockGraphPtr graphOf(const CustomBlockCatalog& catalog, const OdDbObjectId& reference) {
  const OdDbObjectId block = blockOf(reference);
  CJbDbCustBlockGraphPtr graph = catalog.graphOf(block);
  if (graph.isNull())
    throw OdError(eNotApplicable,
                  "reference " + handleOf(reference) + " shows block \"" +
                      OdDbBlockTableRecordPtr(block.safeOpenObject())->getName().str() +
                      "\", which is not customizable");
  return graph;
}

// The graph for write of the helper's reference, or OdError saying why there is none.
CJbDbCustBlockGraphPtr graphForWrite(CJbCustBlockEditorHelper& helper) {
  CJbCustBlockResult result;
  const CJbDbCustBlockGraphPtr graph = helper.GetGraph(OdDb::kForWrite, result);
  result.ThrowIfFailed();
  return graph;
}

CJbCustBlockParameterPtr parameterOf(const CJbDbCustBlockGraph* graph,
                                     const CustomBlockProperty& property) {
  return CJbCustBlockParameter::cast(graph->GetNode(property.parameterId()).get());
}
}  // namespace

std::vector<CustomBlockEditor::Change> CustomBlockEditor::set(const OdDbObjectId& reference,
                                                              const Assignments& assignments) {
  const CJbDbCustBlockGraphPtr before = graphOf(m_catalog, reference);
  const std::vector<CustomBlockProperty> properties = CustomBlockProperty::of(before.get());
  struct Planned {
    const CustomBlockProperty* property;
    OdResBufPtr value;
  };
  std::vector<Planned> planned;
  for (const auto& [name, text] : assignments) {
    const CustomBlockProperty* found = nullptr;
    std::vector<std::string> settable;
    for (const CustomBlockProperty& property : properties) {
      if (property.name() == name) found = &property;
      if (property.isSettable()) settable.push_back(property.name());
    }
    if (!found)
      throw OdError(eKeyNotFound, "reference " + handleOf(reference) + " has no property \"" +
                                      name + "\"; it has " + listOf(settable));
    OdResBufPtr value;
    std::string error;
    if (!found->parse(parameterOf(before.get(), *found).get(), text, value, error))
      throw OdError(eInvalidInput, error);
    planned.push_back({found, value});
  }
  CJbCustBlockEditorHelper helper(reference);
  // Still held after the commit: the graph as the evaluation left it.
  const CJbDbCustBlockGraphPtr graph = graphForWrite(helper);
  for (std::size_t i = 0; i < planned.size(); ++i) {
    const CJbCustBlockParameterPtr parameter = parameterOf(graph.get(), *planned[i].property);
    if (parameter.isNull() || !parameter->SetValue(planned[i].property->index(), planned[i].value))
      throw OdError(eInvalidInput,
                    planned[i].property->name() + " refused \"" + assignments[i].second + "\"");
  }
  helper.Commit().ThrowIfFailed();
  std::vector<Change> changes;
  for (std::size_t i = 0; i < planned.size(); ++i) {
    const CustomBlockProperty& property = *planned[i].property;
    changes.push_back({property.name(), assignments[i].second,
                       property.text(parameterOf(graph.get(), property).get())});
  }
  return changes;
}

std::vector<std::vector<CustomBlockEditor::Change>> CustomBlockEditor::setAll(
    const std::vector<OdDbObjectId>& references, const Assignments& assignments) {
  struct Outcome {
    OdDbObjectId block;
    std::vector<Change> changes;
  };
  std::map<OdDbObjectId, Outcome> byBlock;
  std::vector<std::vector<Change>> results;
  for (const OdDbObjectId& reference : references) {
    const OdDbObjectId block = blockOf(reference);
    const auto done = byBlock.find(block);
    if (done != byBlock.end() && !hasAttributes(reference)) {
      OdDbBlockReferencePtr(reference.safeOpenObject(OdDb::kForWrite))
          ->setBlockTableRecord(done->second.block);
      results.push_back(done->second.changes);
      continue;
    }
    results.push_back(set(reference, assignments));
    byBlock[block] = {blockOf(reference), results.back()};
  }
  return results;
}

std::vector<CustomBlockEditor::Change> CustomBlockEditor::drag(const OdDbObjectId& reference,
                                                               const std::string& grip,
                                                               const OdGePoint3d& to) {
  int gripId = 0;
  std::vector<std::string> names;
  for (const CustomReferenceGrips::Grip& shown : CustomReferenceGrips::of(m_catalog, reference)) {
    if (shown.name == grip) gripId = shown.elementId;
    names.push_back(shown.name);
  }
  if (gripId == 0)
    throw OdError(eKeyNotFound, "reference " + handleOf(reference) + " shows no grip \"" + grip +
                                    "\"; it shows " + listOf(names));
  const OdGeMatrix3d toBlock =
      OdDbBlockReferencePtr(reference.safeOpenObject())->blockTransform().inverse();
  CJbCustBlockEditorHelper helper(reference);
  const CJbDbCustBlockGraphPtr graph = graphForWrite(helper);
  const std::vector<CustomBlockProperty> properties = CustomBlockProperty::of(graph.get());
  std::vector<std::string> before;
  for (const CustomBlockProperty& property : properties)
    before.push_back(property.text(parameterOf(graph.get(), property).get()));
  CJbCustBlockGrip::cast(graph->GetNode(gripId).get())->SetDisplayPosition(toBlock * to);
  helper.Commit().ThrowIfFailed();
  std::vector<Change> changes;
  for (std::size_t i = 0; i < properties.size(); ++i) {
    const std::string now = properties[i].text(parameterOf(graph.get(), properties[i]).get());
    if (now != before[i]) changes.push_back({properties[i].name(), before[i], now});
  }
  return changes;
}
