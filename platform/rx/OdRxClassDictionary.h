// The registry of run-time classes, by name and by DXF name, in registration order.
#pragma once

#include <map>
#include <vector>

#include "platform/rx/OdRxClass.h"

class OdRxClassDictionary {
 public:
  static OdRxClassDictionary& instance();

  OdRxClass* getAt(const OdString& name) const;
  // DXF names are matched case-insensitively, as DXF readers do.
  OdRxClass* findByDxfName(const OdString& dxfName) const;
  bool has(const OdString& name) const { return getAt(name) != nullptr; }
  // Registered classes, oldest first.
  const std::vector<OdRxClass*>& classes() const { return m_order; }
  // Registered classes whose direct parent is cls.
  std::vector<OdRxClass*> children(const OdRxClass* cls) const;

 private:
  friend OdRxClass* newOdRxClass(const OdString&, OdRxClass*, OdPseudoConstructorType, int, int,
                                 int, const OdString&, const OdString&);
  friend void deleteOdRxClass(OdRxClass*);
  void add(OdRxClass* cls);
  void remove(OdRxClass* cls);

  std::map<OdString, OdRxClassPtr> m_byName;
  std::map<OdString, OdRxClass*, OdStringILess> m_byDxfName;
  std::vector<OdRxClass*> m_order;
};
