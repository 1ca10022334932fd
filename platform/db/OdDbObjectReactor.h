// A transient observer of database objects: attached to an object with addReactor, told about
// its modification, erasure, copying and deletion. Every notice does nothing by default.
#pragma once

#include "platform/base/OdArray.h"
#include "platform/rx/OdRxObject.h"

class OdDbObject;

class OdDbObjectReactor : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbObjectReactor);

 public:
  // newObject is a copy of object made by clone or deep clone.
  virtual void copied(const OdDbObject* object, const OdDbObject* newObject);
  // Sent when an object whose erase state changed is closed; erasing is false for an unerase.
  virtual void erased(const OdDbObject* object, bool erasing);
  // The object is being deleted from memory.
  virtual void goodbye(const OdDbObject* object);
  // The object, open for write, is about to be changed for the first time since it was opened.
  virtual void openedForModify(const OdDbObject* object);
  // A modified object is being closed.
  virtual void modified(const OdDbObject* object);
};
using OdDbObjectReactorPtr = OdSmartPtr<OdDbObjectReactor>;
using OdDbObjectReactorArray = OdArray<OdDbObjectReactor*>;
