// Base of every object kept in a drawing database: identity and ownership, the open/close
// discipline, erasure, extension dictionary, extended data, reactors, filing and cloning.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/db/OdDbObjectId.h"
#include "platform/db/OdDbObjectReactor.h"
#include "platform/resbuf/OdResBuf.h"
#include "platform/rx/OdRxObject.h"

class OdDbAuditInfo;
class OdDbDatabase;
class OdDbDwgFiler;
class OdDbDxfFiler;
class OdDbIdMapping;
class OdDbStub;

class OdDbObject : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbObject);

 public:
  // How many holders may have one object open for read at a time.
  static constexpr int kMaxReaders = 256;

  OdDbObject();
  ~OdDbObject() override;

  // The reference count is the number of holders of an open object. When the last one lets go,
  // a database-resident object is closed (the database keeps it); any other object is deleted.
  void addRef() override { ++m_refs; }
  void release() override;
  long numRefs() const override { return static_cast<long>(m_refs); }

  // Identity and ownership.
  OdDbObjectId objectId() const;
  OdDbObjectId ownerId() const { return m_ownerId; }
  // The owner must belong to the same database (eWrongDatabase). Needs write access.
  virtual void setOwnerId(OdDbObjectId ownerId);
  OdDbDatabase* database() const;
  OdDbHandle getDbHandle() const;
  // Database-resident: added to a database. Objects that are not skip every open check.
  bool isDBRO() const { return m_stub != nullptr; }

  // Open state.
  OdDb::OpenMode openMode() const { return static_cast<OdDb::OpenMode>(m_mode); }
  bool isReadEnabled() const { return !m_stub || m_mode != OdDb::kNotOpen; }
  bool isWriteEnabled() const { return !m_stub || m_mode == OdDb::kForWrite; }
  bool isNotifyEnabled() const { return !m_stub || m_mode == OdDb::kForNotify; }
  bool isNotifying() const { return (m_state & kNotifying) != 0; }
  // Changed (assertWriteEnabled was called) since it was opened.
  bool isModified() const { return (m_state & kModified) != 0; }
  bool isErased() const;
  // Added to its database during the current open.
  bool isNewObject() const { return (m_state & kNew) != 0; }

  // Throw eNotOpenForRead / eNotOpenForWrite / eNotOpenForNotify, naming the object.
  void assertReadEnabled() const {
    if (m_stub && m_mode == OdDb::kNotOpen) throwOpenState(eNotOpenForRead);
  }
  // Also marks the object modified and, the first time in an open, tells the reactors.
  void assertWriteEnabled() {
    if (m_stub && m_mode != OdDb::kForWrite) throwOpenState(eNotOpenForWrite);
    if (!(m_state & kModified)) markModified();
  }
  void assertNotifyEnabled() const {
    if (m_stub && m_mode != OdDb::kForNotify && !(m_state & kNotifying))
      throwOpenState(eNotOpenForNotify);
  }
  // From read to write; only the single reader may (eWasOpenForRead otherwise).
  void upgradeOpen();
  // From write to read; a modified object is notified as if it were closed.
  void downgradeOpen();

  // Erases (or unerases) the object and what it owns. Needs write access. eWasErased when
  // erased already, eWasNotErased when unerasing a live object, or what subErase refused with.
  OdResult erase(bool erasing = true);

  // Extension dictionary: a dictionary owned by this object for other applications' data.
  OdDbObjectId extensionDictionary() const;
  // Creates it when missing. Needs write access and a database (eNoDatabase).
  void createExtensionDictionary();
  // Erases the extension dictionary when it holds no live entry; eContainerNotEmpty otherwise.
  OdResult releaseExtensionDictionary();

  // Extended data: a chain of applications, each a 1001 item with the name followed by its
  // items. An empty name gives all applications; an unknown one gives null.
  OdResBufPtr xData(const OdString& regappName = OdString()) const;
  // Replaces the data of each application named in the chain; an application with no items is
  // removed. Names are registered in the database's application table when missing.
  void setXData(const OdResBuf* xdata);

  // Persistent reactors: objects told (through modified and erased) about this one's changes.
  void addPersistentReactor(const OdDbObjectId& reactorId);
  void removePersistentReactor(const OdDbObjectId& reactorId);
  bool hasPersistentReactor(const OdDbObjectId& reactorId) const;
  OdDbObjectIdArray getPersistentReactors() const;
  // Transient reactors are not owned: the caller removes a reactor before it goes away.
  void addReactor(OdDbObjectReactor* reactor) const;
  void removeReactor(OdDbObjectReactor* reactor) const;
  OdDbObjectReactorArray getTransientReactors() const;

  // Notices received as a persistent reactor of another object.
  virtual void modified(const OdDbObject* object);
  virtual void erased(const OdDbObject* object, bool erasing);

  // Filing. The base fields are the owner, the persistent reactors, the extension dictionary
  // and the extended data; a copy filer leaves out the owner and what is owned.
  virtual OdResult dwgInFields(OdDbDwgFiler* filer);
  virtual void dwgOutFields(OdDbDwgFiler* filer) const;
  // DXF: the handle (5), the reactors ("{ACAD_REACTORS" 330...), the extension dictionary
  // ("{ACAD_XDICTIONARY" 360) and the owner (330). Subclasses follow with their subclass data.
  virtual OdResult dxfInFields(OdDbDxfFiler* filer);
  virtual void dxfOutFields(OdDbDxfFiler* filer) const;
  // The whole object in DXF: the fields, then the extended data (1001 groups).
  OdResult dxfIn(OdDbDxfFiler* filer);
  void dxfOut(OdDbDxfFiler* filer) const;

  // Checks the object and, when the audit fixes errors, repairs it.
  virtual void audit(OdDbAuditInfo* auditInfo);

  // A copy of this object, owned by owner, recorded in mapping, with what this object owns
  // cloned after it. A primary clone is added to its owner (block, dictionary or table); an owned
  // one is reached through its owner's translated ids. Returns the clone open for write, or the
  // existing clone when mapping already holds one.
  virtual OdDbObjectPtr deepClone(OdDbIdMapping& mapping, OdDbObject* owner,
                                  bool primary = true) const;
  // The same into the mapping's destination database; hard pointers are followed.
  virtual OdDbObjectPtr wblockClone(OdDbIdMapping& mapping, OdDbObject* owner,
                                    bool primary = true) const;
  // Copies the data (not the identity, owner or owned objects) through a copy filer.
  void copyFrom(const OdRxObject* source) override;

  // Ids of the objects this one owns (through ownership references and its extension
  // dictionary), whose owner is this object.
  OdDbObjectIdArray ownedIds() const;

  // A short description for messages: "OdDbLine (handle 2A)".
  OdString describe() const;

 protected:
  // Called when a modified or erased object is closed, before the reactors hear of it.
  virtual void subClose();
  // Called before the object is erased or unerased; anything but eOk refuses.
  virtual OdResult subErase(bool erasing);
  // Called when a closed object is opened; anything but eOk refuses the open.
  virtual OdResult subOpen(OdDb::OpenMode mode);
  // Called when the object has joined a database.
  virtual void subAddedToDatabase();
  // Whether this object may own child as a primary clone.
  virtual bool canOwnClone(const OdDbObject* child) const;
  // Adds a primary clone, already owned by this object, to this owner's contents (a block's
  // entities, a dictionary's entries); by default nothing more. source is the original.
  virtual void appendPrimaryClone(OdDbObject* clone, const OdDbObject* source,
                                  OdDbIdMapping& mapping);

 private:
  friend class OdDbDatabase;
  friend class OdDbCloner;
  friend class OdDbWriteGuard;

  enum State : std::uint8_t {
    kModified = 1,
    kNew = 2,
    kEraseChanged = 4,
    kNotifying = 8,
  };
  struct Extras;

  [[noreturn]] void throwOpenState(OdResult code) const;
  void markModified();
  OdResult openFor(OdDb::OpenMode mode);
  void close();
  void notifyClose();
  Extras& extras() const;
  OdResult eraseOwned(bool erasing);
  void registerXDataApplications();

  OdDbStub* m_stub = nullptr;
  OdDbObjectId m_ownerId;
  std::uint32_t m_refs = 0;
  std::uint16_t m_readers = 0;
  std::int8_t m_mode = OdDb::kNotOpen;
  std::uint8_t m_state = 0;
  mutable std::unique_ptr<Extras> m_extras;
};
