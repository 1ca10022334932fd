// The machinery behind deep clone and wblock clone: checks, cloning of an object with what it
// owns (and, for wblock, what it hard-points to), translation of references and the event
// notices around them.
#pragma once

#include "platform/db/OdDbDatabase.h"
#include "platform/db/cloning/OdDbIdMapping.h"

class OdDbCloner {
 public:
  // deepCloneObjects (wblock false) and wblockCloneObjects (wblock true).
  static void cloneObjects(OdDbDatabase* source, const OdDbObjectIdArray& ids,
                           const OdDbObjectId& ownerId, OdDbIdMapping& mapping, bool wblock,
                           OdDb::DuplicateRecordCloning drc, bool deferXlation);
  // One object: OdDbObject::deepClone / wblockClone. attach adds the clone to owner.
  static OdDbObjectPtr cloneObject(const OdDbObject* source, OdDbIdMapping& mapping,
                                   OdDbObject* owner, bool primary, bool wblock);
  // What a plain object may own as a primary clone: objects that are neither entities, records
  // nor tables, when it is itself no entity or record.
  static bool defaultCanOwn(const OdDbObject* owner, const OdDbObject* child);

 private:
  static OdDbObjectPtr clone(const OdDbObject* source, OdDbIdMapping& mapping, OdDbObject* owner,
                             bool primary, bool attach, bool wblock);
  // Clones (or maps by name) an object a wblock clone points to, with its owners as needed.
  static OdDbObjectId cloneReferenced(const OdDbObjectId& id, OdDbIdMapping& mapping);
  static void translate(OdDbIdMapping& mapping);
  static void eraseClones(OdDbIdMapping& mapping);
  static OdDbObjectId mapped(const OdDbIdMapping& mapping, const OdDbObjectId& key);
};
