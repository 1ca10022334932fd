// The platform's array: value semantics over std::vector with the platform's member names. Copies
// are real copies; the module never relies on shared buffers, so copy-on-write would only cost.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <vector>

#include "platform/base/OdError.h"

template <class T>
class OdArray {
 public:
  using value_type = T;
  using size_type = unsigned int;
  using iterator = typename std::vector<T>::iterator;
  using const_iterator = typename std::vector<T>::const_iterator;

  OdArray() = default;
  explicit OdArray(size_type physicalLength) { m_items.reserve(physicalLength); }
  OdArray(std::initializer_list<T> items) : m_items(items) {}
  explicit OdArray(std::vector<T> items) : m_items(std::move(items)) {}

  size_type length() const noexcept { return static_cast<size_type>(m_items.size()); }
  size_type size() const noexcept { return length(); }
  bool isEmpty() const noexcept { return m_items.empty(); }
  bool empty() const noexcept { return m_items.empty(); }

  // Index-checked access: an index past the end raises eInvalidIndex rather than corrupting.
  T& at(size_type index) {
    checkIndex(index);
    return m_items[index];
  }
  const T& at(size_type index) const {
    checkIndex(index);
    return m_items[index];
  }
  T& operator[](size_type index) { return at(index); }
  const T& operator[](size_type index) const { return at(index); }
  const T& getAt(size_type index) const { return at(index); }
  OdArray& setAt(size_type index, const T& value) {
    at(index) = value;
    return *this;
  }
  T& first() { return at(0); }
  const T& first() const { return at(0); }
  T& last() { return at(length() - 1); }
  const T& last() const { return at(length() - 1); }

  size_type append(const T& value) {
    m_items.push_back(value);
    return length() - 1;
  }
  size_type append(T&& value) {
    m_items.push_back(std::move(value));
    return length() - 1;
  }
  OdArray& append(const OdArray& other) {
    m_items.insert(m_items.end(), other.m_items.begin(), other.m_items.end());
    return *this;
  }
  void push_back(const T& value) { m_items.push_back(value); }
  OdArray& insertAt(size_type index, const T& value) {
    if (index > length()) throw OdError(eInvalidIndex, "insert position past the end");
    m_items.insert(m_items.begin() + index, value);
    return *this;
  }
  OdArray& removeAt(size_type index) {
    checkIndex(index);
    m_items.erase(m_items.begin() + index);
    return *this;
  }
  OdArray& removeFirst() { return removeAt(0); }
  OdArray& removeLast() { return removeAt(length() - 1); }
  // Removes the first element equal to value; true when one was found.
  bool remove(const T& value) {
    auto it = std::find(m_items.begin(), m_items.end(), value);
    if (it == m_items.end()) return false;
    m_items.erase(it);
    return true;
  }
  OdArray& removeSubArray(size_type start, size_type end) {
    if (start > end || end >= length()) throw OdError(eInvalidIndex, "sub-array out of range");
    m_items.erase(m_items.begin() + start, m_items.begin() + end + 1);
    return *this;
  }

  bool find(const T& value, size_type& foundAt, size_type start = 0) const {
    for (size_type i = start; i < length(); ++i) {
      if (m_items[i] == value) {
        foundAt = i;
        return true;
      }
    }
    return false;
  }
  bool contains(const T& value, size_type start = 0) const {
    size_type ignored = 0;
    return find(value, ignored, start);
  }

  OdArray& clear() {
    m_items.clear();
    return *this;
  }
  OdArray& setLogicalLength(size_type n) {
    m_items.resize(n);
    return *this;
  }
  OdArray& resize(size_type n, const T& value) {
    m_items.resize(n, value);
    return *this;
  }
  OdArray& reserve(size_type n) {
    m_items.reserve(n);
    return *this;
  }
  OdArray& reverse() {
    std::reverse(m_items.begin(), m_items.end());
    return *this;
  }

  T* asArrayPtr() noexcept { return m_items.data(); }
  const T* asArrayPtr() const noexcept { return m_items.data(); }
  const T* getPtr() const noexcept { return m_items.data(); }

  iterator begin() noexcept { return m_items.begin(); }
  iterator end() noexcept { return m_items.end(); }
  const_iterator begin() const noexcept { return m_items.begin(); }
  const_iterator end() const noexcept { return m_items.end(); }

  const std::vector<T>& toStdVector() const noexcept { return m_items; }

  friend bool operator==(const OdArray& a, const OdArray& b) { return a.m_items == b.m_items; }
  friend bool operator!=(const OdArray& a, const OdArray& b) { return a.m_items != b.m_items; }

 private:
  void checkIndex(size_type index) const {
    if (index >= length()) throw OdError(eInvalidIndex, "array index out of range");
  }

  std::vector<T> m_items;
};

using OdIntArray = OdArray<int>;
