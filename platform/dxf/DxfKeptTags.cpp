// Kept tags: typed copies of tags read from a file.
#include "platform/dxf/DxfKeptTags.h"

#include "platform/dxf/DxfTag.h"

void DxfKeptTags::append(const DxfTag& tag) {
  switch (tag.kind()) {
    case DxfValueKind::kDouble:
      m_items.push_back({tag.code(), tag.asDouble()});
      return;
    case DxfValueKind::kInt16:
    case DxfValueKind::kInt32:
    case DxfValueKind::kInt64:
      m_items.push_back({tag.code(), tag.asInt64()});
      return;
    case DxfValueKind::kBool:
      m_items.push_back({tag.code(), std::int64_t{tag.asBool() ? 1 : 0}});
      return;
    case DxfValueKind::kHandle:
      m_items.push_back({tag.code(), tag.asHandle()});
      return;
    case DxfValueKind::kBinary:
      m_items.push_back({tag.code(), tag.asBinary()});
      return;
    case DxfValueKind::kString:
    case DxfValueKind::kInvalid:
      break;
  }
  m_items.push_back({tag.code(), tag.asString()});
}

const DxfKeptTags::Item* DxfKeptTags::find(int code) const {
  for (const Item& item : m_items)
    if (item.code == code) return &item;
  return nullptr;
}
