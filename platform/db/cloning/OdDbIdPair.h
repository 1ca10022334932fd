// One entry of a clone mapping: an original id (key), its clone or the existing object it maps
// to (value), and how it got there.
#pragma once

#include "platform/db/OdDbObjectId.h"

class OdDbIdPair {
 public:
  OdDbIdPair() = default;
  explicit OdDbIdPair(const OdDbObjectId& key) : m_key(key) {}
  OdDbIdPair(const OdDbObjectId& key, const OdDbObjectId& value, bool isCloned,
             bool isPrimary = false, bool isOwnerXlated = true)
      : m_key(key),
        m_value(value),
        m_cloned(isCloned),
        m_primary(isPrimary),
        m_ownerXlated(isOwnerXlated) {}

  const OdDbObjectId& key() const { return m_key; }
  const OdDbObjectId& value() const { return m_value; }
  // The value is a new copy (false when the key was mapped to an object that already existed).
  bool isCloned() const { return m_cloned; }
  // The key was one of the objects asked for, not something they own or point to.
  bool isPrimary() const { return m_primary; }
  bool isOwnerXlated() const { return m_ownerXlated; }
  void setKey(const OdDbObjectId& key) { m_key = key; }
  void setValue(const OdDbObjectId& value) { m_value = value; }
  void setIsCloned(bool cloned) { m_cloned = cloned; }
  void setIsPrimary(bool primary) { m_primary = primary; }
  void setIsOwnerXlated(bool ownerXlated) { m_ownerXlated = ownerXlated; }

 private:
  OdDbObjectId m_key;
  OdDbObjectId m_value;
  bool m_cloned = false;
  bool m_primary = false;
  bool m_ownerXlated = true;
};
