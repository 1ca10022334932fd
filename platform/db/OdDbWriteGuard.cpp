// Scoped write access used by the database's own bookkeeping.
#include "platform/db/OdDbWriteGuard.h"

#include "platform/db/OdDbStub.h"

OdDbWriteGuard::OdDbWriteGuard(OdDbObject* object) {
  if (!object) return;
  if (!object->m_stub || object->m_mode == OdDb::kForWrite) {
    m_object = object;
    return;
  }
  if (object->m_mode == OdDb::kNotOpen) {
    // Opened like any writer, so closing the guard notifies as a close would.
    object->m_mode = OdDb::kForWrite;
    object->m_readers = 0;
    m_object.attach(object);
    ++object->m_refs;
    return;
  }
  m_previousMode = object->m_mode;
  m_switched = true;
  object->m_mode = OdDb::kForWrite;
  m_object = object;
}

OdDbWriteGuard::OdDbWriteGuard(const OdDbObjectId& id)
    : OdDbWriteGuard(id.isNull() ? nullptr : id.stub()->object()) {}

OdDbWriteGuard::~OdDbWriteGuard() {
  if (m_switched) m_object->m_mode = m_previousMode;
}
