// The audit of a block storage.
#include "storage/CJbCustBlockStorageAuditor.h"

#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "storage/CJbCustBlockObjectAccess.h"
#include "storage/CJbCustBlockStateRecord.h"
#include "storage/CJbDbCustBlockStorage.h"
#include "storage/CJbDbCustBlockStorageImpl.h"

using Access = CJbCustBlockObjectAccess;

void CJbCustBlockStorageAuditor::Audit() {
  OdArray<OdDbObjectId> ids;
  for (const auto& entry : m_data.m_entries)
    ids.append(entry.first);
  for (bool masters : {true, false}) {
    for (const OdDbObjectId& id : ids) {
      const CustBlockStorageEntry* entry = m_data.Find(id);
      if (entry && entry->IsMaster() == masters) AuditEntry(id);
    }
  }
}

void CJbCustBlockStorageAuditor::Report(const OdDbObjectId& blockId, const OdString& value,
                                        const OdString& validation, const OdString& repair) {
  m_info.errorsFound(1);
  m_info.printError(m_storage.describe(), "block " + blockId.getHandle().ascii() + ": " + value,
                    validation, repair);
}

void CJbCustBlockStorageAuditor::AuditEntry(const OdDbObjectId& blockId) {
  const CustBlockStorageEntry* entry = m_data.Find(blockId);
  if (!entry) return;
  const bool fix = m_info.fixErrors();

  if (!OdDbBlockTableRecord::cast(blockId.openObjectShared(OdDb::kForRead).get())) {
    Report(blockId, "not a live block definition", "a block definition in the drawing",
           "entry removed");
    if (fix) {
      m_storage.RemoveBlock(blockId, true);
      m_info.errorsFixed(1);
    }
    return;
  }
  const CustBlockStorageEntry* master = m_data.FindMaster(blockId);
  CJbDbCustBlockGraphPtr graph =
      master ? Access::Open<CJbDbCustBlockGraph>(master->graphId, OdDb::kForRead)
             : CJbDbCustBlockGraphPtr();
  if (graph.isNull()) {
    Report(blockId, master ? "master without an evaluation graph" : "instance without a master",
           "a master owning its graph", "entry removed");
    if (fix) {
      m_data.m_entries.erase(blockId);
      m_info.errorsFixed(1);
    }
    return;
  }
  if (entry->IsMaster() && graph->IsOlderVersion()) {
    Report(blockId, "graph of an older format", "the current graph format", "upgraded");
    if (fix) {
      graph->upgradeOpen();
      graph->UpgradeToCurrentVersion();
      m_info.errorsFixed(1);
    }
  }
  graph.release();
  if (entry->customDataId.isNull()) return;
  OdDbXrecordPtr record = Access::Open<OdDbXrecord>(entry->customDataId, OdDb::kForRead);
  if (record.isNull()) {
    Report(blockId, "state is no extension record", "an extension record of instance state",
           "default state");
    if (fix) {
      m_data.Find(blockId)->customDataId = OdDbObjectId::kNull;
      m_info.errorsFixed(1);
    }
    return;
  }
  const OdResBufPtr chain = CJbCustBlockStateRecord::Read(record.get());
  record.release();
  CJbDbCustBlockGraphPtr updated;
  if (!m_storage.GetUpdatedGraph(blockId, updated)) return;
  CJbDbCustBlockGraphInstanceContext context(CJbCustBlockStateRecord::kPlainState,
                                             m_storage.database());
  const bool loads = !chain.isNull() && updated->LoadInstance(chain, &context);
  const int version = updated->GetMajorVersion() * 100 + updated->GetMinorVersion();
  if (loads && CJbCustBlockStateRecord::Version(chain.get()) == version) return;
  Report(blockId, loads ? "state of an older format" : "state that does not load",
         "state saved by the current graph", "saved again");
  if (fix) {
    m_storage.SetCustomData(blockId, updated->SaveInstance(&context));
    m_info.errorsFixed(1);
  }
}
