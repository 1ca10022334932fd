// The one record per drawing of its customizable blocks: which blocks are masters (authored
// definitions owning an evaluation graph) and which are anonymous instance blocks (per-reference
// copies of a master), and where each block's instance state is kept. It copies shared blocks into
// new anonymous blocks for editing, copies masters with their graphs, and strips the round-trip
// data another application's dynamic blocks leave behind. It lives in the named-objects
// dictionary under "JB_CUST_BLOCK_DATA". Questions answer bool; operations that can fail answer a
// result whose reason names the block and what was missing.
#pragma once

#include <memory>

#include "core/CJbDbCustBlockGraph.h"
#include "platform/db/OdDbObject.h"
#include "platform/db/cloning/OdDbIdMapping.h"
#include "storage/CJbCustBlockResult.h"

class CJbDbCustBlockStorageImpl;
class CJbDbCustBlockStorage;
using CJbDbCustBlockStoragePtr = OdSmartPtr<CJbDbCustBlockStorage>;

class CJbDbCustBlockStorage : public OdDbObject {
  ODRX_DECLARE_MEMBERS(CJbDbCustBlockStorage);

 public:
  CJbDbCustBlockStorage();
  ~CJbDbCustBlockStorage() override;

  // The drawing's storage opened in `mode`; created (and added to the named-objects dictionary)
  // when missing and `createIfNotFound`. Null for a null database or when absent.
  static CJbDbCustBlockStoragePtr GetStorage(OdDbDatabase* database, OdDb::OpenMode mode,
                                             bool createIfNotFound);

  bool IsBlockCustomizable(const OdDbObjectId& blockId) const;
  bool IsBlockMaster(const OdDbObjectId& blockId) const;
  CJbCustBlockResult GetMasterBlockId(const OdDbObjectId& blockId, OdDbObjectId& masterId) const;
  CJbCustBlockResult GetMasterBlockGraphId(const OdDbObjectId& blockId,
                                           OdDbObjectId& graphId) const;
  // The instance blocks of a master, in entry order.
  CJbCustBlockResult GetAllBlockInstancesForMasterBlock(const OdDbObjectId& masterId,
                                                        OdArray<OdDbObjectId>& instances) const;
  // The block's instance state: its own when set, else the master graph's default state.
  CJbCustBlockResult GetCustomData(const OdDbObjectId& blockId, OdResBufPtr& chain) const;
  // A private clone of the master graph loaded with the block's state; the master is untouched.
  CJbCustBlockResult GetUpdatedGraph(const OdDbObjectId& blockId,
                                     CJbDbCustBlockGraphPtr& graph) const;
  // A master, or an instance block shown by more than one reference, is never edited in place.
  bool IsNewBlockInstanceRequired(const OdDbObjectId& blockId) const;

  // Registers a block as a master owning `graphId` (a new graph when null, returned there).
  CJbCustBlockResult AppendMasterBlock(const OdDbObjectId& blockId, OdDbObjectId& graphId);
  // Copies the block into a new anonymous instance block carrying the block's state.
  CJbCustBlockResult CreateBlockInstance(const OdDbObjectId& blockId, OdDbObjectId& newBlockId);
  CJbCustBlockResult SetCustomData(const OdDbObjectId& blockId, OdResBufPtr chain);
  // Stores state for newBlockId, registering it as an instance of sourceBlockId's master when it
  // has no entry yet.
  CJbCustBlockResult SetCustomData(const OdDbObjectId& sourceBlockId,
                                   const OdDbObjectId& newBlockId, OdResBufPtr chain);
  CJbCustBlockResult EraseMasterCustomData(const OdDbObjectId& blockId);
  // Drops a block's entry; a master takes its instances with it. References of a dropped
  // instance fall back to the master when `repointReferences`.
  CJbCustBlockResult RemoveBlock(const OdDbObjectId& blockId, bool repointReferences);
  // Drops the entries of erased blocks.
  void CleanUp();
  // Exchanges two masters' ids throughout the storage, as when a definition is replaced by an
  // edited copy. Does nothing unless both are valid, neither is an instance and one is a master.
  void SwapBlockIds(const OdDbObjectId& blockA, const OdDbObjectId& blockB);

  // A new anonymous copy of the block in its own database, stripped of customization; null for a
  // null block. A mapping is created when none is given.
  static OdDbObjectId CopyBlockTableRecord(const OdDbObjectId& blockId, OdDbIdMappingPtr& mapping);
  // Registers newBlockId as an instance of `masterId` carrying the state of sourceBlockId, ids
  // translated through `mapping`. A source that is no customizable block copies nothing.
  static CJbCustBlockResult CopyBlockInstance(const OdDbObjectId& sourceBlockId,
                                              const OdDbObjectId& masterId,
                                              const OdDbObjectId& newBlockId,
                                              OdDbIdMapping& mapping);
  // Makes destBlockId a master with a copy of sourceBlockId's customization, rebuilding the
  // existing instances of destBlockId; instances whose state no longer fits are reset and counted
  // in a message to the user.
  static CJbCustBlockResult CopyMasterBlock(const OdDbObjectId& sourceBlockId,
                                            const OdDbObjectId& destBlockId, OdDbIdMapping& mapping,
                                            bool insideCloneOperation);
  static void RemoveBlockCustomization(const OdDbObjectId& blockId, bool removeFromStorage,
                                       bool removeOutsideData);
  static void RemoveReferenceCustomization(const OdDbObjectId& referenceId,
                                           bool removeBlockFromStorage, bool restoreDynamicBlock);

  // The object's common data, then the entries (see CJbDbCustBlockStorageImpl).
  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

  // Checks every entry against the drawing: erased or missing blocks, masters without a graph,
  // instances without a master, custom data that is no state record or does not load, and state
  // saved by an older graph format. With fixing on, drops or re-saves what is wrong.
  void audit(OdDbAuditInfo* auditInfo) override;

 protected:
  // Rewrites the object ids (group code 330 only) of a state chain through a clone mapping.
  static void ApplyMappingToCustomData(OdResBufPtr chain, const OdDbIdMapping& mapping);

 private:
  // A new state record of the block, owned by the storage; its id.
  CJbCustBlockResult AddCustomDataRecord(const OdDbObjectId& blockId, const OdResBufPtr& chain,
                                         OdDbObjectId& recordId);
  // Whether GetCustomData finds state for the block, without building the chain.
  bool HasState(const OdDbObjectId& blockId) const;
  // The state the master graph would give a new instance of the block.
  static CJbCustBlockResult DefaultState(const OdDbObjectId& blockId, const OdDbObjectId& graphId,
                                         OdResBufPtr& chain);
  // The failures the operations share, each naming what it is about.
  static CJbCustBlockResult NotCustomizable(const OdDbObjectId& blockId);
  static CJbCustBlockResult NoGraph(const OdDbObjectId& blockId);
  static CJbCustBlockResult NoBlock(const OdDbObjectId& id);
  static CJbCustBlockResult NoDrawing();
  static CJbCustBlockResult StateNotStored(const OdDbObjectId& blockId, OdResult code);

  std::unique_ptr<CJbDbCustBlockStorageImpl> m_pImpl;
};
