// Walks the pairs of a clone mapping in the order they were first assigned.
#pragma once

#include <vector>

#include "platform/db/cloning/OdDbIdPair.h"
#include "platform/rx/OdRxObject.h"

class OdDbIdMappingIter : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbIdMappingIter);

 public:
  OdDbIdMappingIter();
  static OdSmartPtr<OdDbIdMappingIter> createObject(std::vector<OdDbIdPair> pairs);

  void start() { m_position = 0; }
  bool done() const { return m_position >= m_pairs.size(); }
  void next() {
    if (!done()) ++m_position;
  }
  // The current pair; false past the end.
  bool getMap(OdDbIdPair& pair) const;

 private:
  std::vector<OdDbIdPair> m_pairs;
  std::size_t m_position = 0;
};
using OdDbIdMappingIterPtr = OdSmartPtr<OdDbIdMappingIter>;
