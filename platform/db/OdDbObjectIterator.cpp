// Iterator over a snapshot of object ids.
#include "platform/db/OdDbObjectIterator.h"

#include "platform/db/OdDbEntity.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbObjectIterator, OdRxObject)

OdDbObjectIterator::OdDbObjectIterator() = default;

OdDbObjectIteratorPtr OdDbObjectIterator::createObject(const OdDbObjectIdArray& ids,
                                                       bool atBeginning, bool skipErased) {
  OdDbObjectIteratorPtr iterator = createObject();
  iterator->m_ids = ids;
  iterator->start(atBeginning, skipErased);
  return iterator;
}

void OdDbObjectIterator::start(bool atBeginning, bool skipErased) {
  m_position = atBeginning ? 0 : static_cast<long>(m_ids.length()) - 1;
  skip(atBeginning, skipErased);
}

bool OdDbObjectIterator::done() const {
  return m_position < 0 || m_position >= static_cast<long>(m_ids.length());
}

void OdDbObjectIterator::step(bool forward, bool skipErased) {
  if (done()) return;
  m_position += forward ? 1 : -1;
  skip(forward, skipErased);
}

void OdDbObjectIterator::skip(bool forward, bool skipErased) {
  while (skipErased && !done() &&
         m_ids[static_cast<OdDbObjectIdArray::size_type>(m_position)].isErased())
    m_position += forward ? 1 : -1;
}

OdDbObjectId OdDbObjectIterator::objectId() const {
  if (done()) return OdDbObjectId::kNull;
  return m_ids[static_cast<OdDbObjectIdArray::size_type>(m_position)];
}

OdDbObjectPtr OdDbObjectIterator::getObject(OdDb::OpenMode mode, bool openErased) const {
  if (done()) throw OdError(eInvalidIndex, "the iterator is past its last object");
  return objectId().safeOpenObject(mode, openErased);
}

OdDbEntityPtr OdDbObjectIterator::entity(OdDb::OpenMode mode, bool openErased) const {
  return OdDbEntityPtr(getObject(mode, openErased));
}
