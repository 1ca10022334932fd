// Shared helpers for the entity tests: the DXF items an entity writes, the group codes of one
// subclass, and a comparison of two entities through everything they file.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "platform/db/OdDbEntity.h"
#include "platform/db/filers/OdDbResBufDxfFiler.h"
#include "platform/ge/GeExpect.h"
#include "platform/resbuf/OdResBuf.h"

// The items of an entity's own DXF data (its fields after the common object data).
inline OdResBufPtr dxfItems(const OdDbEntity* entity) {
  OdDbResBufDxfFilerPtr filer = OdDbResBufDxfFiler::createObject(nullptr);
  entity->dxfOutFields(filer.get());
  return filer->items();
}

// The group codes that follow the subclass marker (100 marker) up to the next marker.
inline std::vector<int> subclassCodes(const OdResBufPtr& items, const char* marker) {
  std::vector<int> codes;
  bool inside = false;
  for (OdResBufPtr item = items; !item.isNull(); item = item->next()) {
    if (item->restype() == 100) {
      if (inside) break;
      inside = item->getString() == marker;
      continue;
    }
    if (inside) codes.push_back(item->restype());
  }
  return codes;
}

// The first item with this group code after the marker.
inline OdResBufPtr itemAfter(const OdResBufPtr& items, const char* marker, int code) {
  bool inside = false;
  for (OdResBufPtr item = items; !item.isNull(); item = item->next()) {
    if (item->restype() == 100) inside = item->getString() == marker;
    if (inside && item->restype() == code) return item;
  }
  return OdResBufPtr();
}

// Both entities file the same DXF items.
inline ::testing::AssertionResult sameDxf(const OdDbEntity* a, const OdDbEntity* b) {
  OdResBufPtr x = dxfItems(a);
  OdResBufPtr y = dxfItems(b);
  int index = 0;
  for (; !x.isNull() && !y.isNull(); x = x->next(), y = y->next(), ++index) {
    if (!x->isEqualTo(y.get()))
      return ::testing::AssertionFailure()
             << "item " << index << " (group " << x->restype() << ") differs";
  }
  if (!x.isNull() || !y.isNull())
    return ::testing::AssertionFailure() << "item counts differ after " << index;
  return ::testing::AssertionSuccess();
}

inline OdGePoint3d pt(double x, double y, double z = 0.0) {
  return OdGePoint3d(x, y, z);
}
