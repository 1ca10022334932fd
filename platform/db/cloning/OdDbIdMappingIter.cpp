// Iterator over a snapshot of a clone mapping.
#include "platform/db/cloning/OdDbIdMappingIter.h"

#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbIdMappingIter, OdRxObject)

OdDbIdMappingIter::OdDbIdMappingIter() = default;

OdDbIdMappingIterPtr OdDbIdMappingIter::createObject(std::vector<OdDbIdPair> pairs) {
  OdDbIdMappingIterPtr iterator = createObject();
  iterator->m_pairs = std::move(pairs);
  return iterator;
}

bool OdDbIdMappingIter::getMap(OdDbIdPair& pair) const {
  if (done()) return false;
  pair = m_pairs[m_position];
  return true;
}
