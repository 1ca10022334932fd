// A dictionary: objects it owns, found by a key that is compared without regard to case and
// kept in key order.
#pragma once

#include <map>

#include "platform/db/OdDbDictionaryIterator.h"
#include "platform/db/OdDbObject.h"

class OdDbDictionary : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbDictionary);

 public:
  OdDbDictionary();

  // The id of the live entry of key, or null.
  OdDbObjectId getAt(const OdString& key) const;
  // The entry opened in mode, or null when there is none.
  OdDbObjectPtr getAt(const OdString& key, OdDb::OpenMode mode) const;
  bool has(const OdString& key) const { return !getAt(key).isNull(); }
  bool has(const OdDbObjectId& id) const;
  // The key of an entry, or an empty string.
  OdString nameAt(const OdDbObjectId& id) const;
  // Number of live entries.
  std::uint32_t numEntries() const;

  // Stores object under key and makes the dictionary its owner; a free object joins the
  // dictionary's database. An entry already under key is erased, unless eraseOld is false, in
  // which case it is only given up. Needs write access; eInvalidInput for an invalid key,
  // eWrongDatabase for an object of another database.
  OdDbObjectId setAt(const OdString& key, OdDbObject* object, bool eraseOld = true);
  // Gives up an entry without erasing it: its owner becomes null. eKeyNotFound when absent.
  OdResult remove(const OdString& key);
  OdResult remove(const OdDbObjectId& id);
  // Renames an entry; eKeyNotFound, eDuplicateKey or eInvalidInput when it cannot be done.
  OdResult setName(const OdString& oldKey, const OdString& newKey);

  // Entries filed as hard owned (360) rather than soft owned (350).
  bool isTreatElementsAsHard() const;
  void setTreatElementsAsHard(bool hard);

  OdDbDictionaryIteratorPtr newIterator() const;

  // Keys are at most 255 characters and hold no control character nor any of <>/\":;?,|=`;
  // a '*' only at the start (anonymous entries).
  static bool isValidKey(const OdString& key);

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  // AcDbDictionary: 280 hard owner flag, 281 merge style, then 3 key and 350/360 id per entry.
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 protected:
  bool canOwnClone(const OdDbObject* child) const override;
  void appendPrimaryClone(OdDbObject* clone, const OdDbObject* source,
                          OdDbIdMapping& mapping) override;

 private:
  friend class OdDbCloner;
  // The entry of key, live or erased.
  OdDbObjectId rawAt(const OdString& key) const;
  // A key not used here, made from key by a "$n$" prefix.
  OdString uniqueKey(const OdString& key) const;

  std::map<OdString, OdDbObjectId, OdStringILess> m_entries;
  bool m_hardOwner = false;
  std::int16_t m_mergeStyle = 1;
};
using OdDbDictionaryPtr = OdSmartPtr<OdDbDictionary>;
