// Walks the live entries of a dictionary in key order, as they were when the iterator was made.
#pragma once

#include <utility>
#include <vector>

#include "platform/db/OdDbObject.h"

class OdDbDictionaryIterator : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbDictionaryIterator);

 public:
  OdDbDictionaryIterator();
  static OdSmartPtr<OdDbDictionaryIterator> createObject(
      std::vector<std::pair<OdString, OdDbObjectId>> entries);

  bool done() const { return m_position >= m_entries.size(); }
  // Moves to the next entry; false when there is none.
  bool next();
  OdString name() const;
  OdDbObjectId objectId() const;
  OdDbObjectPtr getObject(OdDb::OpenMode mode = OdDb::kForRead) const;

 private:
  std::vector<std::pair<OdString, OdDbObjectId>> m_entries;
  std::size_t m_position = 0;
};
using OdDbDictionaryIteratorPtr = OdSmartPtr<OdDbDictionaryIterator>;
