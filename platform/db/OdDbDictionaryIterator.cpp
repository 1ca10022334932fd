// Dictionary iterator over a snapshot of the entries.
#include "platform/db/OdDbDictionaryIterator.h"

#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbDictionaryIterator, OdRxObject)

OdDbDictionaryIterator::OdDbDictionaryIterator() = default;

OdDbDictionaryIteratorPtr OdDbDictionaryIterator::createObject(
    std::vector<std::pair<OdString, OdDbObjectId>> entries) {
  OdDbDictionaryIteratorPtr iterator = createObject();
  iterator->m_entries = std::move(entries);
  return iterator;
}

bool OdDbDictionaryIterator::next() {
  if (done()) return false;
  ++m_position;
  return !done();
}

OdString OdDbDictionaryIterator::name() const {
  return done() ? OdString() : m_entries[m_position].first;
}

OdDbObjectId OdDbDictionaryIterator::objectId() const {
  return done() ? OdDbObjectId::kNull : m_entries[m_position].second;
}

OdDbObjectPtr OdDbDictionaryIterator::getObject(OdDb::OpenMode mode) const {
  if (done()) throw OdError(eInvalidIndex, "the dictionary iterator is past its last entry");
  return objectId().safeOpenObject(mode);
}
