// Where the attribute definitions of a block stood before an evaluation, by tag, so that the
// attributes of a reference can follow the definitions that the evaluation moved.
#pragma once

#include <map>

#include "platform/base/OdString.h"
#include "platform/db/OdDbObjectId.h"
#include "platform/ge/OdGePoint3d.h"

class CJbDbCustBlockAttributeSnapshot {
 public:
  struct Definition {
    OdDbObjectId id;
    OdGePoint3d position;
    OdGePoint3d alignmentPoint;
  };

  // Records a definition; the first of several definitions with one tag is kept.
  void Add(const OdString& tag, const Definition& definition);
  // The definition recorded for a tag (tags compare without regard to case), or null.
  const Definition* Find(const OdString& tag) const;
  bool IsEmpty() const { return m_definitions.empty(); }

 private:
  std::map<OdString, Definition, OdStringILess> m_definitions;
};
