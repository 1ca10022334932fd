// Tags kept as read, written back as they were: header variables, sections and items that the
// object model does not hold. Values are copied out of the reader's buffer, typed by group code.
#pragma once

#include <cstdint>
#include <variant>
#include <vector>

#include "platform/base/OdString.h"
#include "platform/db/OdDbHandle.h"

class DxfTag;

class DxfKeptTags {
 public:
  using Value = std::variant<OdString, double, std::int64_t, OdDbHandle, std::vector<std::uint8_t>>;
  struct Item {
    int code;
    Value value;
  };

  void append(const DxfTag& tag);
  void append(int code, Value value) { m_items.push_back({code, std::move(value)}); }
  void clear() { m_items.clear(); }
  bool empty() const { return m_items.empty(); }
  std::size_t size() const { return m_items.size(); }
  const Item& operator[](std::size_t i) const { return m_items[i]; }
  std::vector<Item>::const_iterator begin() const { return m_items.begin(); }
  std::vector<Item>::const_iterator end() const { return m_items.end(); }

  // The first item of code, or null.
  const Item* find(int code) const;

 private:
  std::vector<Item> m_items;
};
