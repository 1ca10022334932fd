// Base of every run-time-typed object: intrusive reference count, class identity and protocol
// extensions. Also declares the member macros each run-time class uses.
#pragma once

#include <atomic>
#include <typeinfo>

#include "platform/base/OdString.h"
#include "platform/rx/OdSmartPtr.h"

class OdRxClass;
class OdRxObject;
using OdRxObjectPtr = OdSmartPtr<OdRxObject>;

// Declares the run-time class members of ClassName: its class object, identity and cast.
#define ODRX_DECLARE_MEMBERS(ClassName)                   \
 public:                                                  \
  static OdSmartPtr<ClassName> cast(const OdRxObject* p); \
  static OdRxClass* desc();                               \
  OdRxClass* isA() const override;                        \
  static OdSmartPtr<ClassName> createObject();            \
  static void rxInit();                                   \
  static void rxUninit()

class OdRxObject {
 public:
  OdRxObject() = default;
  OdRxObject(const OdRxObject&) = delete;
  OdRxObject& operator=(const OdRxObject&) = delete;
  virtual ~OdRxObject();

  static OdSmartPtr<OdRxObject> cast(const OdRxObject* p) { return OdSmartPtr<OdRxObject>(p); }
  static OdRxClass* desc();
  virtual OdRxClass* isA() const;
  // An added reference to this object when it is of class cls, else to cls's protocol extension
  // on this object's class (searched up the parent chain), else null.
  virtual OdRxObject* queryX(const OdRxClass* cls) const;
  static void rxInit();
  static void rxUninit();

  // Like queryX but throws eNotThatKindOfClass when there is nothing to return.
  OdRxObjectPtr x(const OdRxClass* cls) const;
  bool isKindOf(const OdRxClass* cls) const;

  virtual void addRef() { m_refs.fetch_add(1, std::memory_order_relaxed); }
  virtual void release();
  virtual long numRefs() const { return m_refs.load(std::memory_order_relaxed); }

  virtual OdRxObjectPtr clone() const;
  virtual void copyFrom(const OdRxObject* source);

 private:
  std::atomic<long> m_refs{0};
};

// An object that lives on the stack or as a member: references are counted by its owner, so
// lending it to the platform never deletes it.
template <class T>
class OdStaticRxObject : public T {
 public:
  using T::T;
  void addRef() override {}
  void release() override {}
  long numRefs() const override { return 1; }
};

namespace odrx_detail {
[[noreturn]] void throwNotThatKind(const OdRxObject* object, const OdRxClass* target,
                                   const char* targetName);

template <class T>
T* checkedQuery(const OdRxObject* object) {
  const OdRxClass* target = T::desc();
  OdRxObject* found = target ? object->queryX(target) : nullptr;
  if (!found) throwNotThatKind(object, target, typeid(T).name());
  return static_cast<T*>(found);
}
}  // namespace odrx_detail
