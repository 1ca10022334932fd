// Object id: the stub's view of its object.
#include "platform/db/OdDbObjectId.h"

#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbStub.h"

const OdDbObjectId OdDbObjectId::kNull;

bool OdDbObjectId::isValid() const {
  return m_stub && !m_stub->isErased();
}

bool OdDbObjectId::isErased() const {
  return m_stub && m_stub->isErased();
}

OdDbHandle OdDbObjectId::getHandle() const {
  return m_stub ? m_stub->handle() : OdDbHandle();
}

OdDbDatabase* OdDbObjectId::database() const {
  return m_stub ? m_stub->database() : nullptr;
}

OdResult OdDbObjectId::openObject(OdDbObjectPtr& object, OdDb::OpenMode mode,
                                  bool openErased) const {
  if (!m_stub) {
    object.release();
    return eNullObjectId;
  }
  return m_stub->database()->openObject(object, *this, mode, openErased);
}

OdDbObjectPtr OdDbObjectId::openObject(OdDb::OpenMode mode, bool openErased) const {
  OdDbObjectPtr object;
  openObject(object, mode, openErased);
  return object;
}

OdDbObjectPtr OdDbObjectId::openObjectShared(OdDb::OpenMode mode, bool openErased) const {
  OdDbObject* open = m_stub ? m_stub->object() : nullptr;
  if (open && open->openMode() == OdDb::kForWrite && (openErased || !open->isErased()))
    return OdDbObjectPtr(open);
  return openObject(mode, openErased);
}

OdDbObjectPtr OdDbObjectId::safeOpenObject(OdDb::OpenMode mode, bool openErased) const {
  if (!m_stub) throw OdError(eNullObjectId, "cannot open the null object id");
  return m_stub->database()->openObject(*this, mode, openErased);
}
