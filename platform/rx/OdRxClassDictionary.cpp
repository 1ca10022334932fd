#include "platform/rx/OdRxClassDictionary.h"

#include <algorithm>

OdRxClassDictionary& OdRxClassDictionary::instance() {
  static OdRxClassDictionary dictionary;
  return dictionary;
}

OdRxClass* OdRxClassDictionary::getAt(const OdString& name) const {
  auto it = m_byName.find(name);
  return it == m_byName.end() ? nullptr : it->second.get();
}

OdRxClass* OdRxClassDictionary::findByDxfName(const OdString& dxfName) const {
  auto it = m_byDxfName.find(dxfName);
  return it == m_byDxfName.end() ? nullptr : it->second;
}

std::vector<OdRxClass*> OdRxClassDictionary::children(const OdRxClass* cls) const {
  std::vector<OdRxClass*> result;
  for (OdRxClass* candidate : m_order) {
    if (candidate->myParent() == cls) result.push_back(candidate);
  }
  return result;
}

void OdRxClassDictionary::add(OdRxClass* cls) {
  m_byName[cls->name()] = cls;
  if (!cls->dxfName().isEmpty()) m_byDxfName[cls->dxfName()] = cls;
  m_order.push_back(cls);
}

void OdRxClassDictionary::remove(OdRxClass* cls) {
  m_order.erase(std::remove(m_order.begin(), m_order.end(), cls), m_order.end());
  auto dxf = m_byDxfName.find(cls->dxfName());
  if (dxf != m_byDxfName.end() && dxf->second == cls) m_byDxfName.erase(dxf);
  m_byName.erase(cls->name());  // may delete cls: last
}
