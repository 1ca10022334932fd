// What an audit found and fixed: a count of each and one record per error, and whether the audit
// is to fix what it finds.
#pragma once

#include <vector>

#include "platform/base/OdString.h"

class OdDbAuditInfo {
 public:
  struct Error {
    OdString object;        // the object, as described by OdDbObject::describe
    OdString value;         // the value found
    OdString validation;    // what the value should be
    OdString defaultValue;  // what a fix sets
  };

  OdDbAuditInfo() = default;
  explicit OdDbAuditInfo(bool fixErrors) : m_fixErrors(fixErrors) {}
  virtual ~OdDbAuditInfo() = default;

  bool fixErrors() const { return m_fixErrors; }
  void setFixErrors(bool fix) { m_fixErrors = fix; }
  int numErrors() const { return m_numErrors; }
  int numFixes() const { return m_numFixes; }
  void errorsFound(int count) { m_numErrors += count; }
  void errorsFixed(int count) { m_numFixes += count; }
  // Records one error; a host may override to show it as well.
  virtual void printError(const OdString& object, const OdString& value, const OdString& validation,
                          const OdString& defaultValue);
  const std::vector<Error>& errors() const { return m_errors; }

 private:
  bool m_fixErrors = false;
  int m_numErrors = 0;
  int m_numFixes = 0;
  std::vector<Error> m_errors;
};
