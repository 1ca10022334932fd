#include "platform/rx/OdRxClass.h"

#include <algorithm>

#include "platform/rx/OdRxClassDictionary.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdRxClass, OdRxObject)

OdRxClass::OdRxClass(OdString name, OdRxClass* parent, OdPseudoConstructorType constructor,
                     int dwgVersion, int maintVersion, int proxyFlags, OdString dxfName,
                     OdString appName)
    : m_name(std::move(name)),
      m_parent(parent),
      m_constructor(constructor),
      m_dwgVersion(dwgVersion),
      m_maintVersion(maintVersion),
      m_proxyFlags(proxyFlags),
      m_dxfName(std::move(dxfName)),
      m_appName(std::move(appName)) {}

OdRxClass::~OdRxClass() = default;

OdRxObjectPtr OdRxClass::create() const {
  OdRxObjectPtr made = m_constructor ? m_constructor() : OdRxObjectPtr();
  if (made.isNull()) throw OdError(eNotApplicable, "class " + m_name.str() + " is abstract");
  return made;
}

bool OdRxClass::isDerivedFrom(const OdRxClass* other) const {
  if (!other) return false;
  for (const OdRxClass* cls = this; cls; cls = cls->m_parent) {
    if (cls == other) return true;
  }
  return false;
}

OdRxObjectPtr OdRxClass::addX(const OdRxClass* protocolClass, OdRxObject* extension) {
  if (!protocolClass) throw OdError(eNullPtr, "addX on " + m_name.str() + " without a protocol");
  OdRxObjectPtr previous = delX(protocolClass);
  if (extension) m_extensions.emplace_back(protocolClass, OdRxObjectPtr(extension));
  return previous;
}

OdRxObjectPtr OdRxClass::getX(const OdRxClass* protocolClass) const {
  for (const OdRxClass* cls = this; cls; cls = cls->m_parent) {
    for (const auto& entry : cls->m_extensions) {
      if (entry.first == protocolClass) return entry.second;
    }
  }
  return OdRxObjectPtr();
}

OdRxObjectPtr OdRxClass::delX(const OdRxClass* protocolClass) {
  auto it = std::find_if(m_extensions.begin(), m_extensions.end(),
                         [&](const auto& entry) { return entry.first == protocolClass; });
  if (it == m_extensions.end()) return OdRxObjectPtr();
  OdRxObjectPtr removed = it->second;
  m_extensions.erase(it);
  return removed;
}

OdRxClass* newOdRxClass(const OdString& name, OdRxClass* parent,
                        OdPseudoConstructorType constructor, int dwgVersion, int maintVersion,
                        int proxyFlags, const OdString& dxfName, const OdString& appName) {
  OdRxClassDictionary& dictionary = OdRxClassDictionary::instance();
  if (name.isEmpty()) throw OdError(eInvalidInput, "a run-time class needs a name");
  if (dictionary.has(name))
    throw OdError(eDuplicateKey, "class " + name.str() + " is already registered");
  // Only OdRxObject itself has no parent; anything else must come after its parent.
  if (!parent && name != "OdRxObject")
    throw OdError(eNotInitializedYet,
                  "the parent class of " + name.str() + " is not registered yet");
  if (parent && dictionary.getAt(parent->name()) != parent)
    throw OdError(eNotInitializedYet, "parent class " + parent->name().str() + " of " + name.str() +
                                          " is not registered");
  auto* cls = new OdRxClass(name, parent, constructor, dwgVersion, maintVersion, proxyFlags,
                            dxfName, appName);
  dictionary.add(cls);
  return cls;
}

void deleteOdRxClass(OdRxClass* cls) {
  if (!cls) return;
  OdRxClassDictionary& dictionary = OdRxClassDictionary::instance();
  const auto children = dictionary.children(cls);
  if (!children.empty())
    throw OdError(eHasDependents, "class " + cls->name().str() +
                                      " still has the registered child " +
                                      children.front()->name().str());
  dictionary.remove(cls);
}
