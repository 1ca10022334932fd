#include "platform/rx/OdRxObject.h"

#include "platform/rx/OdRxClass.h"

namespace {
OdRxClass* g_OdRxObject_desc = nullptr;
}

OdRxObject::~OdRxObject() = default;

OdRxClass* OdRxObject::desc() {
  return g_OdRxObject_desc;
}
OdRxClass* OdRxObject::isA() const {
  return g_OdRxObject_desc;
}

void OdRxObject::rxInit() {
  if (g_OdRxObject_desc) throw OdError(eAlreadyInitialized, "OdRxObject is already registered");
  g_OdRxObject_desc = newOdRxClass("OdRxObject", nullptr);
}

void OdRxObject::rxUninit() {
  if (!g_OdRxObject_desc) return;
  deleteOdRxClass(g_OdRxObject_desc);
  g_OdRxObject_desc = nullptr;
}

OdRxObject* OdRxObject::queryX(const OdRxClass* cls) const {
  if (!cls) return nullptr;
  const OdRxClass* mine = isA();
  if (!mine) return nullptr;
  if (mine->isDerivedFrom(cls)) {
    auto* self = const_cast<OdRxObject*>(this);
    self->addRef();
    return self;
  }
  OdRxObjectPtr extension = mine->getX(cls);
  return extension.detach();
}

OdRxObjectPtr OdRxObject::x(const OdRxClass* cls) const {
  OdRxObjectPtr result;
  result.attach(queryX(cls));
  if (result.isNull()) odrx_detail::throwNotThatKind(this, cls, "the requested class");
  return result;
}

bool OdRxObject::isKindOf(const OdRxClass* cls) const {
  const OdRxClass* mine = isA();
  return mine && mine->isDerivedFrom(cls);
}

void OdRxObject::release() {
  if (m_refs.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
}

OdRxObjectPtr OdRxObject::clone() const {
  const OdRxClass* cls = isA();
  if (!cls) throw OdError(eNotInitializedYet, "cannot clone an object of an unregistered class");
  OdRxObjectPtr copy = cls->create();
  copy->copyFrom(this);
  return copy;
}

void OdRxObject::copyFrom(const OdRxObject* source) {
  if (!source || !source->isKindOf(isA()))
    throw OdError(eNotThatKindOfClass, "copyFrom needs a source of the same class");
}

namespace odrx_detail {
void throwNotThatKind(const OdRxObject* object, const OdRxClass* target, const char* targetName) {
  const OdRxClass* from = object ? object->isA() : nullptr;
  throw OdError_NotThatKindOfClass(from ? from->name().c_str() : "(unregistered)",
                                   target ? target->name().c_str() : targetName);
}
}  // namespace odrx_detail
