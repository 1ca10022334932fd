// What the editing utilities of every kind share: the class they describe, its name for users and
// for commands, and making new elements of it.
#pragma once

#include "platform/host/CJbCustBlockElementUtilsPE.h"

class OdRxClass;

class CJbCustBlockKindUtilsPE : public CJbCustBlockElementUtilsPE {
 public:
  using ClassGetter = OdRxClass* (*)();

  OdString GetDisplayName() const override;
  OdString GetKeyword() const override;
  OdRxObjectPtr CreateElement() const override;
  // The class the extension describes; null while it is not registered.
  OdRxClass* GetKindClass() const { return m_kind(); }

 protected:
  CJbCustBlockKindUtilsPE(ClassGetter kind, const char* displayName, const char* keyword);
  // A new object of `cls`; null for an abstract class.
  static OdRxObjectPtr NewObjectOf(const OdRxClass* cls);
  // The element's name, or the kind's display name for an object of another kind.
  OdString NameOf(const OdRxObject* object) const;

 private:
  ClassGetter m_kind;
  const char* m_displayName;
  const char* m_keyword;
};
