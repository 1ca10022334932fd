// Host-wide facts about customizable blocks that outlive a single object, kept per drawing: so far,
// whether a drawing holds customizable blocks written in a newer format than this build reads.
#pragma once

#include <unordered_set>

class OdDbDatabase;

class CJbCustBlockUtils {
 public:
  CJbCustBlockUtils() = default;
  CJbCustBlockUtils(const CJbCustBlockUtils&) = delete;
  CJbCustBlockUtils& operator=(const CJbCustBlockUtils&) = delete;
  virtual ~CJbCustBlockUtils();

  // Notes that database holds blocks of a newer format. The first note for a database warns the
  // user through the system services; a null database is ignored.
  virtual void SetNewerFormatFound(OdDbDatabase* database);
  virtual bool IsNewerFormatFound(const OdDbDatabase* database) const;
  // Drops what is known about a database that is going away, so that a later database at the same
  // address starts clean.
  virtual void Forget(const OdDbDatabase* database);

  // The installed utilities, or the embedded ones.
  static CJbCustBlockUtils* Get();
  // Installs utilities the caller keeps alive (null goes back to the embedded ones); returns those
  // installed before, null when they were the embedded ones.
  static CJbCustBlockUtils* Set(CJbCustBlockUtils* utils);

 private:
  std::unordered_set<const OdDbDatabase*> m_newerFormat;
};
