// Where the attribute definitions of a block stood before an evaluation.
#include "core/CJbDbCustBlockAttributeSnapshot.h"

void CJbDbCustBlockAttributeSnapshot::Add(const OdString& tag, const Definition& definition) {
  m_definitions.emplace(tag, definition);
}

const CJbDbCustBlockAttributeSnapshot::Definition* CJbDbCustBlockAttributeSnapshot::Find(
    const OdString& tag) const {
  auto it = m_definitions.find(tag);
  return it == m_definitions.end() ? nullptr : &it->second;
}
