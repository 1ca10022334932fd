#include "adoption/CJbOutsideBlockAdopter.h"

#include <algorithm>

#include "adoption/CJbOutsideBlockReader.h"
#include "adoption/CJbOutsideGraphBuilder.h"
#include "adoption/CJbOutsideRecord.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "parameters/CJbCustBlockFlipParameter.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "platform/base/OdError.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbEntity.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "storage/CJbCustBlockCopier.h"
#include "storage/CJbCustBlockObjectAccess.h"
#include "storage/CJbCustBlockOutsideData.h"
#include "storage/CJbCustBlockStateRecord.h"
#include "storage/CJbDbCustBlockStorage.h"

namespace {
using Access = CJbCustBlockObjectAccess;
// The extended data that ties each entity of a definition to its copies in anonymous blocks.
const char kEntityTagApplication[] = "AcDbBlockRepETag";
constexpr int kEntityIndexCode = 1071;

std::vector<OdDbObjectId> entitiesOf(const OdDbObjectId& blockId) {
  std::vector<OdDbObjectId> ids;
  const OdDbBlockTableRecordPtr block(blockId.safeOpenObject());
  for (OdDbObjectIteratorPtr it = block->newIterator(); !it->done(); it->step())
    ids.push_back(it->objectId());
  return ids;
}

// The index the other program tags an entity with, the same in the definition and its copies;
// -1 without a tag.
int tagOf(const OdDbEntity* entity) {
  for (OdResBufPtr item = entity->xData(kEntityTagApplication); !item.isNull(); item = item->next())
    if (item->restype() == kEntityIndexCode) return item->getInt32();
  return -1;
}

OdString handleOf(const OdDbObjectId& id) {
  return id.getHandle().ascii();
}

// Commits a recorded state into a parameter as if an evaluation had brought it there, without
// touching the block: its points, flip state or visibility state, and the elements the state
// hides.
void applyState(CJbCustBlockParameter* parameter, const CJbOutsideReference::ParameterState& state,
                CJbDbCustBlockGraphEvaluationContext* context) {
  for (unsigned i = 0; i < state.points.size(); ++i)
    parameter->SetUpdatedPosition(i, state.points[i]);
  if (const CJbCustBlockFlipParameterPtr flip = CJbCustBlockFlipParameter::cast(parameter))
    flip->SetUpdatedFlipped(state.flipped);
  if (const CJbCustBlockVisibilityParameterPtr visibility =
          CJbCustBlockVisibilityParameter::cast(parameter))
    visibility->SetUpdatedState(
        static_cast<unsigned>(visibility->GetStateIndex(state.visibilityState)));
  parameter->Evaluate(context);
  parameter->EndEvaluate(context);
}
}  // namespace

CJbOutsideBlockAdopter::Outcome CJbOutsideBlockAdopter::Adopt(const CJbOutsideDrawing& drawing,
                                                              const OdDbObjectId& blockId,
                                                              bool partial) {
  CJbOutsideBlockAdopter adopter(blockId);
  Outcome& outcome = adopter.m_outcome;
  try {
    outcome.block = CJbOutsideBlockReader::Read(blockId);
  } catch (const OdError& error) {
    outcome.failure = CJbOutsideRecord::Reason(error);
    return outcome;
  }
  outcome.notConverted = outcome.block.unconverted;
  adopter.PrepareInstances(drawing.ReferencesOf(blockId));
  if (!outcome.notConverted.empty() && !partial) return outcome;
  if (outcome.block.parameters.empty()) {
    outcome.failure = "none of its parameters can be converted";
    return outcome;
  }
  try {
    adopter.RegisterMaster();
  } catch (const OdError& error) {
    outcome.failure = CJbOutsideRecord::Reason(error);
    return outcome;
  }
  CJbDbCustBlockStorage::RemoveBlockCustomization(blockId, false, true);
  for (const auto& [instanceBlock, instance] : adopter.m_instances) {
    try {
      adopter.AdoptInstance(instanceBlock, instance);
    } catch (const OdError& error) {
      for (const OdDbObjectId& reference : instance.references)
        adopter.NotConverted(reference, CJbOutsideRecord::Reason(error));
    }
  }
  for (const OdDbObjectId& reference : adopter.m_direct) {
    OdDbBlockReferencePtr opened(reference.safeOpenObject(OdDb::kForWrite));
    CJbCustBlockOutsideData::DropRepresentation(opened.get());
    outcome.references.push_back(reference);
  }
  std::sort(outcome.references.begin(), outcome.references.end(),
            [](const OdDbObjectId& a, const OdDbObjectId& b) {
              return a.getHandle().value() < b.getHandle().value();
            });
  outcome.adopted = true;
  return outcome;
}

void CJbOutsideBlockAdopter::PrepareInstances(const std::vector<OdDbObjectId>& references) {
  std::map<OdDbObjectId, bool> fits;
  for (const OdDbObjectId& referenceId : references) {
    const OdDbBlockReferencePtr reference(referenceId.safeOpenObject());
    const OdDbObjectId shown = reference->blockTableRecord();
    if (shown == m_blockId) {
      m_direct.push_back(referenceId);
      continue;
    }
    if (fits.count(shown) && !fits[shown]) {
      NotConverted(referenceId, "its anonymous block does not fit the definition");
      continue;
    }
    const auto known = m_instances.find(shown);
    if (known != m_instances.end()) {
      known->second.references.push_back(referenceId);
      continue;
    }
    try {
      m_instances[shown] = ReadInstance(CJbOutsideReference::Read(referenceId), shown);
      fits[shown] = true;
    } catch (const OdError& error) {
      fits[shown] = false;
      NotConverted(referenceId, CJbOutsideRecord::Reason(error));
    }
  }
}

CJbOutsideBlockAdopter::Instance CJbOutsideBlockAdopter::ReadInstance(
    const CJbOutsideReference& reference, const OdDbObjectId& blockId) const {
  Instance instance;
  instance.references.push_back(reference.ReferenceId());
  const std::vector<OdDbObjectId> definition = entitiesOf(m_blockId);
  const std::vector<OdDbObjectId> copy = entitiesOf(blockId);
  const OdString name = Access::NameOf(blockId);
  if (definition.size() != copy.size())
    throw OdError(eInvalidInput, OdString::format("its anonymous block \"%s\" holds %zu entities, "
                                                  "the definition %zu",
                                                  name.c_str(), copy.size(), definition.size())
                                     .str());
  for (std::size_t i = 0; i < copy.size(); ++i) {
    const OdDbEntityPtr original = OdDbEntity::cast(definition[i].safeOpenObject().get());
    const OdDbEntityPtr standIn = OdDbEntity::cast(copy[i].safeOpenObject().get());
    if (original.isNull() || standIn.isNull() || original->isA() != standIn->isA() ||
        tagOf(original.get()) != tagOf(standIn.get()))
      throw OdError(eInvalidInput, OdString::format("entity %zu of its anonymous block \"%s\" is "
                                                    "not the definition's entity %zu",
                                                    i + 1, name.c_str(), i + 1)
                                       .str());
    instance.entities.emplace_back(definition[i], copy[i]);
  }
  for (const CJbOutsideBlock::Parameter& parameter : m_outcome.block.parameters) {
    const CJbOutsideReference::ParameterState state = reference.StateOf(parameter);
    if (parameter.kind == CJbOutsideBlock::ParameterKind::kVisibility) {
      bool known = false;
      for (const CJbOutsideBlock::State& defined : parameter.states)
        known = known || defined.name == state.visibilityState;
      if (!known)
        throw OdError(eInvalidInput, "it shows visibility state \"" + state.visibilityState.str() +
                                         "\", which the definition does not have");
    }
    instance.states[parameter.node] = state;
  }
  return instance;
}

void CJbOutsideBlockAdopter::RegisterMaster() {
  CJbDbCustBlockGraphPtr graph;
  {
    CJbOutsideGraphBuilder builder(m_outcome.block);
    graph = builder.Build();
    m_elements = builder.Elements();
  }
  OdDbDatabase* database = m_blockId.database();
  const CJbDbCustBlockStoragePtr storage =
      CJbDbCustBlockStorage::GetStorage(database, OdDb::kForWrite, true);
  if (storage->IsBlockCustomizable(m_blockId))
    throw OdError(eDuplicateKey, "the block is customizable already");
  TakeShownName();
  OdDbObjectId graphId = database->addOdDbObject(graph.get());
  graph.release();
  if (const CJbCustBlockResult appended = storage->AppendMasterBlock(m_blockId, graphId);
      !appended) {
    Access::Erase(graphId);
    appended.ThrowIfFailed();
  }
  graph = CJbDbCustBlockGraph::cast(graphId.safeOpenObject(OdDb::kForWrite).get());
  graph->Reset(m_blockId, false);
  // The definition shows the first visibility state, as a reference of it does.
  for (int id : graph->GetAllNodeIds())
    if (const CJbCustBlockVisibilityParameterPtr visibility =
            CJbCustBlockVisibilityParameter::cast(graph->GetNode(id).get()))
      visibility->ForceHideEntitiesForDefaultState();
}

void CJbOutsideBlockAdopter::TakeShownName() {
  const OdDbBlockTableRecordPtr block(m_blockId.safeOpenObject(OdDb::kForWrite));
  const OdString& shown = m_outcome.block.name;
  if (!block->isAnonymous() || shown == block->getName()) return;
  const OdSmartPtr<OdDbBlockTable> table(block->database()->getBlockTableId().safeOpenObject());
  if (!table->getAt(shown).isNull()) return;
  try {
    block->setName(shown);
  } catch (const OdError&) {
    // A name that is no valid block name stays recorded only; the block keeps its own.
  }
}

void CJbOutsideBlockAdopter::AdoptInstance(const OdDbObjectId& blockId, const Instance& instance) {
  OdDbDatabase* database = m_blockId.database();
  const CJbDbCustBlockStoragePtr storage =
      CJbDbCustBlockStorage::GetStorage(database, OdDb::kForWrite, false);
  // The definition's state, its entities replaced by those of this block ...
  OdResBufPtr chain;
  storage->GetCustomData(m_blockId, chain).ThrowIfFailed();
  const OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  for (const auto& [original, standIn] : instance.entities)
    mapping->assign(OdDbIdPair(original, standIn, true));
  CJbCustBlockCopier::TranslateStateIds(chain.get(), *mapping);
  storage->SetCustomData(m_blockId, blockId, chain).ThrowIfFailed();
  try {
    // ... then moved to the values the reference records.
    CJbDbCustBlockGraphPtr graph;
    storage->GetUpdatedGraph(blockId, graph).ThrowIfFailed();
    const CJbDbCustBlockGraphEvaluationContextPtr context(new CJbDbCustBlockGraphEvaluationContext(
        CJbDbCustBlockGraphEvaluationContext::kIgnoreBlockEntities, blockId));
    for (const auto& [node, state] : instance.states) {
      const auto element = m_elements.find(node);
      if (element == m_elements.end()) continue;
      if (const CJbCustBlockParameterPtr parameter =
              CJbCustBlockParameter::cast(graph->GetNode(element->second).get()))
        applyState(parameter.get(), state, context.get());
    }
    CJbDbCustBlockGraphInstanceContext saving(CJbCustBlockStateRecord::kPlainState, database);
    storage->SetCustomData(blockId, graph->SaveInstance(&saving)).ThrowIfFailed();
  } catch (const OdError&) {
    storage->RemoveBlock(blockId, false);
    throw;
  }
  for (const OdDbObjectId& reference : instance.references) {
    OdDbBlockReferencePtr opened(reference.safeOpenObject(OdDb::kForWrite));
    CJbCustBlockOutsideData::DropRepresentation(opened.get());
    m_outcome.references.push_back(reference);
  }
}

void CJbOutsideBlockAdopter::NotConverted(const OdDbObjectId& reference, const OdString& reason) {
  m_outcome.notConverted.push_back({"INSERT", handleOf(reference), reason});
}
