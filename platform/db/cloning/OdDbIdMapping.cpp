// Clone mapping: pairs by original id, kept in assignment order.
#include "platform/db/cloning/OdDbIdMapping.h"

#include <algorithm>

#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbIdMapping, OdRxObject)

OdDbIdMapping::OdDbIdMapping() = default;

void OdDbIdMapping::assign(const OdDbIdPair& pair) {
  if (pair.key().isNull()) throw OdError(eNullObjectId, "a clone mapping pair needs a key");
  auto inserted = m_pairs.insert_or_assign(pair.key(), pair);
  if (inserted.second) m_order.push_back(pair.key());
}

bool OdDbIdMapping::compute(OdDbIdPair& pair) const {
  auto found = m_pairs.find(pair.key());
  if (found == m_pairs.end()) return false;
  pair = found->second;
  return true;
}

bool OdDbIdMapping::del(const OdDbObjectId& key) {
  if (!m_pairs.erase(key)) return false;
  m_order.erase(std::find(m_order.begin(), m_order.end(), key));
  return true;
}

OdDbIdMappingIterPtr OdDbIdMapping::newIterator() const {
  std::vector<OdDbIdPair> pairs;
  pairs.reserve(m_order.size());
  for (const OdDbObjectId& key : m_order)
    pairs.push_back(m_pairs.at(key));
  return OdDbIdMappingIter::createObject(std::move(pairs));
}
