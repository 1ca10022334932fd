// The record of one clone operation: which original became which copy, between which databases,
// in which context and under which duplicate-record rule.
#pragma once

#include <unordered_map>
#include <vector>

#include "platform/db/OdDbDatabase.h"
#include "platform/db/cloning/OdDbIdMappingIter.h"
#include "platform/db/cloning/OdDbIdPair.h"

namespace OdDb {
// Why objects are being cloned.
enum DeepCloneType {
  kDcCopy = 0,
  kDcExplode = 1,
  kDcBlock = 2,
  kDcXrefBind = 3,
  kDcSymTableMerge = 4,
  kDcInsert = 6,
  kDcWblock = 7,
  kDcObjects = 8,
  kDcXrefInsert = 9,
  kDcInsertCopy = 10,
  kDcWblkObjects = 11,
};
}  // namespace OdDb

class OdDbIdMapping : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbIdMapping);

 public:
  OdDbIdMapping();

  // Adds or replaces the pair of pair.key().
  void assign(const OdDbIdPair& pair);
  // Fills pair from the entry of pair.key(); false when there is none.
  bool compute(OdDbIdPair& pair) const;
  // Removes the entry of key; false when there is none.
  bool del(const OdDbObjectId& key);
  std::size_t numPairs() const { return m_order.size(); }
  OdDbIdMappingIterPtr newIterator() const;

  OdDbDatabase* origDb() const { return m_origDb; }
  OdDbDatabase* destDb() const { return m_destDb; }
  void setOrigDb(OdDbDatabase* database) { m_origDb = database; }
  void setDestDb(OdDbDatabase* database) { m_destDb = database; }
  OdDb::DeepCloneType deepCloneContext() const { return m_context; }
  void setDeepCloneContext(OdDb::DeepCloneType context) { m_context = context; }
  OdDb::DuplicateRecordCloning duplicateRecordCloning() const { return m_drc; }
  void setDuplicateRecordCloning(OdDb::DuplicateRecordCloning drc) { m_drc = drc; }

 private:
  friend class OdDbCloner;

  std::unordered_map<OdDbObjectId, OdDbIdPair> m_pairs;
  std::vector<OdDbObjectId> m_order;
  OdDbDatabase* m_origDb = nullptr;
  OdDbDatabase* m_destDb = nullptr;
  OdDb::DeepCloneType m_context = OdDb::kDcObjects;
  OdDb::DuplicateRecordCloning m_drc = OdDb::kDrcNotApplicable;
  // Set between the first clone call of an operation and its translation.
  bool m_inProgress = false;
};
using OdDbIdMappingPtr = OdSmartPtr<OdDbIdMapping>;
