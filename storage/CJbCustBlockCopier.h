// Copies of customizable blocks: a block copied into a new anonymous block, the instance state of
// a block carried to its copy, and a master copied with its graph onto another block, keeping
// that block's instances. The storage's static copy operations are made of these.
#pragma once

#include <vector>

#include "platform/db/OdDbObjectId.h"
#include "platform/db/cloning/OdDbIdMapping.h"
#include "platform/resbuf/OdResBuf.h"
#include "storage/CJbCustBlockResult.h"

class CJbDbCustBlockStorage;

class CJbCustBlockCopier {
 public:
  // Copies through `mapping`: the clones of what is copied are found there, and the ids of the
  // state carried along are translated through it.
  explicit CJbCustBlockCopier(OdDbIdMapping& mapping) : m_mapping(mapping) {}

  // A new anonymous copy of the block, stripped of customization; null when nothing was copied.
  OdDbObjectId CopyBlock(const OdDbObjectId& blockId);
  // Registers newBlockId as an instance of `masterId` carrying the state of sourceBlockId.
  CJbCustBlockResult CopyState(const OdDbObjectId& sourceBlockId, const OdDbObjectId& masterId,
                               const OdDbObjectId& newBlockId);
  // Makes destBlockId a master with a copy of sourceBlockId's customization, keeping its
  // instances.
  CJbCustBlockResult CopyMaster(const OdDbObjectId& sourceBlockId, const OdDbObjectId& destBlockId,
                                bool insideCloneOperation);
  // Rewrites the object ids (group code 330 only) of a state chain through a clone mapping.
  static void TranslateStateIds(OdResBuf* chain, const OdDbIdMapping& mapping);

 private:
  // An instance of the destination master, to be rebuilt on the new graph.
  struct RememberedInstance {
    OdDbObjectId blockId;
    OdResBufPtr state;
    OdDbObjectIdArray references;
  };

  static CJbCustBlockResult NoStorage(const OdDbObjectId& blockId);
  // References inserted straight from the old master keep their look through an instance.
  static void MoveReferencesOffMaster(CJbDbCustBlockStorage* storage, const OdDbObjectId& masterId);
  // The portable state and the references of each instance of the master that is still shown;
  // the instances no reference shows are erased.
  static std::vector<RememberedInstance> RememberInstances(CJbDbCustBlockStorage* storage,
                                                           const OdDbObjectId& masterId);
  // The clone of the graph the mapping holds, or a new one owned by the storage.
  OdDbObjectId CloneGraph(const OdDbObjectId& graphId, CJbDbCustBlockStorage* storage,
                          bool insideCloneOperation);
  // Each remembered instance as a new instance of the master in its remembered state; the
  // number of instances whose state no longer fits and that were reset.
  static int RebuildInstances(CJbDbCustBlockStorage* storage, const OdDbObjectId& masterId,
                              const std::vector<RememberedInstance>& remembered);

  OdDbIdMapping& m_mapping;
};
