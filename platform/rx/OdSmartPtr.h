// Intrusive smart pointer for run-time objects. Building one from a pointer of an unrelated static
// type checks the run-time class (and protocol extensions) and throws eNotThatKindOfClass on a
// wrong cast, so a bad cast can never go unnoticed.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

#include "platform/base/OdError.h"

class OdRxObject;

// Tag: take over a reference the caller already holds instead of adding one.
enum OdRxObjMod { kOdRxObjAttach };

namespace odrx_detail {
// Defined in OdRxObject.h: queries `object` for class T (kind or protocol extension) and returns
// an added reference, or throws when it is neither.
template <class T>
T* checkedQuery(const OdRxObject* object);
}  // namespace odrx_detail

template <class T>
class OdSmartPtr {
 public:
  OdSmartPtr() noexcept = default;
  OdSmartPtr(std::nullptr_t) noexcept {}                                        // NOLINT
  OdSmartPtr(const T* object) : m_object(const_cast<T*>(object)) { addRef(); }  // NOLINT
  OdSmartPtr(const T* object, OdRxObjMod) noexcept : m_object(const_cast<T*>(object)) {}
  OdSmartPtr(const OdSmartPtr& other) : m_object(other.m_object) { addRef(); }
  OdSmartPtr(OdSmartPtr&& other) noexcept : m_object(other.m_object) { other.m_object = nullptr; }

  // A pointer whose type does not convert implicitly is cast by run-time class.
  template <class U, std::enable_if_t<!std::is_convertible<U*, T*>::value, int> = 0>
  OdSmartPtr(const U* object)  // NOLINT
      : m_object(object ? odrx_detail::checkedQuery<T>(object) : nullptr) {}
  template <class U>
  OdSmartPtr(const OdSmartPtr<U>& other) : OdSmartPtr(other.get()) {}  // NOLINT

  ~OdSmartPtr() { release(); }

  OdSmartPtr& operator=(OdSmartPtr other) noexcept {
    std::swap(m_object, other.m_object);
    return *this;
  }

  // Drops the reference and becomes null.
  void release() {
    T* object = m_object;
    m_object = nullptr;
    if (object) object->release();
  }
  // Takes over a reference the caller already holds.
  void attach(const T* object) {
    release();
    m_object = const_cast<T*>(object);
  }
  // Gives up the reference without dropping it.
  T* detach() noexcept {
    T* object = m_object;
    m_object = nullptr;
    return object;
  }

  T* get() const noexcept { return m_object; }
  T* operator->() const {
    if (!m_object) throw OdError(eNullPtr, "dereferencing a null smart pointer");
    return m_object;
  }
  T& operator*() const { return *operator->(); }
  bool isNull() const noexcept { return m_object == nullptr; }
  explicit operator bool() const noexcept { return m_object != nullptr; }

  friend bool operator==(const OdSmartPtr& a, const OdSmartPtr& b) noexcept {
    return a.m_object == b.m_object;
  }
  friend bool operator!=(const OdSmartPtr& a, const OdSmartPtr& b) noexcept {
    return a.m_object != b.m_object;
  }
  friend bool operator==(const OdSmartPtr& a, const T* b) noexcept { return a.m_object == b; }
  friend bool operator!=(const OdSmartPtr& a, const T* b) noexcept { return a.m_object != b; }

 private:
  void addRef() {
    if (m_object) m_object->addRef();
  }

  T* m_object = nullptr;
};
