// A run-time class: name, parent, pseudo-constructor, DXF identity and the protocol extensions
// attached to it. Classes register themselves with the class dictionary (rxInit) parents first and
// leave it (rxUninit) children first.
#pragma once

#include <utility>
#include <vector>

#include "platform/rx/OdRxObject.h"

using OdPseudoConstructorType = OdRxObjectPtr (*)();

class OdRxClass : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdRxClass);

 public:
  OdRxClass(OdString name, OdRxClass* parent, OdPseudoConstructorType constructor, int dwgVersion,
            int maintVersion, int proxyFlags, OdString dxfName, OdString appName);
  ~OdRxClass() override;

  const OdString& name() const { return m_name; }
  OdRxClass* myParent() const { return m_parent; }
  const OdString& dxfName() const { return m_dxfName; }
  const OdString& appName() const { return m_appName; }
  int dwgVersion() const { return m_dwgVersion; }
  int maintVersion() const { return m_maintVersion; }
  int proxyFlags() const { return m_proxyFlags; }
  OdPseudoConstructorType constructor() const { return m_constructor; }

  // A new object of this class; eNotApplicable for an abstract class.
  OdRxObjectPtr create() const;
  bool isDerivedFrom(const OdRxClass* other) const;

  // Protocol extensions. addX returns the extension it replaced; getX searches the parent chain.
  OdRxObjectPtr addX(const OdRxClass* protocolClass, OdRxObject* extension);
  OdRxObjectPtr getX(const OdRxClass* protocolClass) const;
  OdRxObjectPtr delX(const OdRxClass* protocolClass);

 private:
  OdString m_name;
  OdRxClass* m_parent;
  OdPseudoConstructorType m_constructor;
  int m_dwgVersion;
  int m_maintVersion;
  int m_proxyFlags;
  OdString m_dxfName;
  OdString m_appName;
  std::vector<std::pair<const OdRxClass*, OdRxObjectPtr>> m_extensions;
};
using OdRxClassPtr = OdSmartPtr<OdRxClass>;

// Creates a class and registers it. Fails with eDuplicateKey when the name is taken and with
// eNotInitializedYet when a parent is named but not registered.
OdRxClass* newOdRxClass(const OdString& name, OdRxClass* parent,
                        OdPseudoConstructorType constructor = nullptr, int dwgVersion = 0,
                        int maintVersion = 0, int proxyFlags = 0, const OdString& dxfName = {},
                        const OdString& appName = {});
// Unregisters a class; eHasDependents while any registered class derives from it.
void deleteOdRxClass(OdRxClass* cls);

// Defines the members declared by ODRX_DECLARE_MEMBERS, registering the class under
// RegisteredName. The class object lives from rxInit to rxUninit; before and after, desc() is
// null and casts to the class fail.
#define ODRX_DEFINE_MEMBERS_NAMED(ClassName, RegisteredName, ParentClass, Constructor, DwgVersion, \
                                  MaintVersion, ProxyFlags, DxfName, AppName)                      \
  static OdRxClass* g_##ClassName##_desc = nullptr;                                                \
  OdRxClass* ClassName::desc() {                                                                   \
    return g_##ClassName##_desc;                                                                   \
  }                                                                                                \
  OdRxClass* ClassName::isA() const {                                                              \
    return g_##ClassName##_desc;                                                                   \
  }                                                                                                \
  OdSmartPtr<ClassName> ClassName::cast(const OdRxObject* p) {                                     \
    if (!p || !p->isKindOf(g_##ClassName##_desc)) return OdSmartPtr<ClassName>();                  \
    return OdSmartPtr<ClassName>(static_cast<const ClassName*>(p));                                \
  }                                                                                                \
  OdSmartPtr<ClassName> ClassName::createObject() {                                                \
    OdRxObjectPtr made = Constructor();                                                            \
    if (made.isNull())                                                                             \
      throw OdError(eNotApplicable, OdString(RegisteredName).str() + " is abstract");              \
    return OdSmartPtr<ClassName>(static_cast<ClassName*>(made.get()));                             \
  }                                                                                                \
  void ClassName::rxInit() {                                                                       \
    if (g_##ClassName##_desc)                                                                      \
      throw OdError(eAlreadyInitialized,                                                           \
                    OdString(RegisteredName).str() + " is already registered");                    \
    g_##ClassName##_desc = newOdRxClass(RegisteredName, ParentClass::desc(), Constructor,          \
                                        DwgVersion, MaintVersion, ProxyFlags, DxfName, AppName);   \
  }                                                                                                \
  void ClassName::rxUninit() {                                                                     \
    if (!g_##ClassName##_desc) return;                                                             \
    deleteOdRxClass(g_##ClassName##_desc);                                                         \
    g_##ClassName##_desc = nullptr;                                                                \
  }

// As ODRX_DEFINE_MEMBERS_NAMED, registered under the C++ class name.
#define ODRX_DEFINE_MEMBERS_EX(ClassName, ParentClass, Constructor, DwgVersion, MaintVersion, \
                               ProxyFlags, DxfName, AppName)                                  \
  ODRX_DEFINE_MEMBERS_NAMED(ClassName, #ClassName, ParentClass, Constructor, DwgVersion,      \
                            MaintVersion, ProxyFlags, DxfName, AppName)

namespace odrx_detail {
template <class T>
OdRxObjectPtr construct() {
  return OdRxObjectPtr(new T());
}
inline OdRxObjectPtr constructNothing() {
  return OdRxObjectPtr();
}
}  // namespace odrx_detail

// A concrete class without DXF identity.
#define ODRX_CONS_DEFINE_MEMBERS(ClassName, ParentClass) \
  ODRX_DEFINE_MEMBERS_EX(ClassName, ParentClass, odrx_detail::construct<ClassName>, 0, 0, 0, "", "")
// An abstract class.
#define ODRX_NO_CONS_DEFINE_MEMBERS(ClassName, ParentClass) \
  ODRX_DEFINE_MEMBERS_EX(ClassName, ParentClass, odrx_detail::constructNothing, 0, 0, 0, "", "")
// A concrete class filed in drawings under a DXF name.
#define ODRX_DXF_DEFINE_MEMBERS(ClassName, ParentClass, DxfName, AppName, ProxyFlags)     \
  ODRX_DEFINE_MEMBERS_EX(ClassName, ParentClass, odrx_detail::construct<ClassName>, 0, 0, \
                         ProxyFlags, DxfName, AppName)

// Variants for classes whose registered name differs from the C++ name (the module's classes
// register without their leading C).
#define ODRX_CONS_DEFINE_MEMBERS_NAMED(ClassName, RegisteredName, ParentClass) \
  ODRX_DEFINE_MEMBERS_NAMED(ClassName, RegisteredName, ParentClass,            \
                            odrx_detail::construct<ClassName>, 0, 0, 0, "", "")
#define ODRX_NO_CONS_DEFINE_MEMBERS_NAMED(ClassName, RegisteredName, ParentClass)                  \
  ODRX_DEFINE_MEMBERS_NAMED(ClassName, RegisteredName, ParentClass, odrx_detail::constructNothing, \
                            0, 0, 0, "", "")
