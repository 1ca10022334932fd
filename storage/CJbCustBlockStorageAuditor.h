// The audit of a block storage: every entry checked against the drawing (erased or missing
// blocks, masters without a graph, instances without a master, custom data that is no state
// record or does not load, state saved by an older graph format). With fixing on, it drops or
// re-saves what is wrong.
#pragma once

#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/OdDbObjectId.h"

class CJbDbCustBlockStorage;
class CJbDbCustBlockStorageImpl;

class CJbCustBlockStorageAuditor {
 public:
  CJbCustBlockStorageAuditor(CJbDbCustBlockStorage& storage, CJbDbCustBlockStorageImpl& data,
                             OdDbAuditInfo& info)
      : m_storage(storage), m_data(data), m_info(info) {}

  // Masters first, so that their graphs are current before the instances' state is checked.
  void Audit();

 private:
  void AuditEntry(const OdDbObjectId& blockId);
  void Report(const OdDbObjectId& blockId, const OdString& value, const OdString& validation,
              const OdString& repair);

  CJbDbCustBlockStorage& m_storage;
  CJbDbCustBlockStorageImpl& m_data;
  OdDbAuditInfo& m_info;
};
