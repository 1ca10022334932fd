// Audit results.
#include "platform/db/OdDbAuditInfo.h"

void OdDbAuditInfo::printError(const OdString& object, const OdString& value,
                               const OdString& validation, const OdString& defaultValue) {
  m_errors.push_back(Error{object, value, validation, defaultValue});
}
