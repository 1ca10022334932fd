// Per-drawing facts about customizable blocks and the utilities in use.
#include "platform/host/CJbCustBlockUtils.h"

#include <utility>

#include "platform/host/CJbSystemServices.h"
#include "platform/host/CJbTranslator.h"

namespace {
CJbCustBlockUtils* g_installed = nullptr;
}

CJbCustBlockUtils::~CJbCustBlockUtils() = default;

void CJbCustBlockUtils::SetNewerFormatFound(OdDbDatabase* database) {
  if (!database || !m_newerFormat.insert(database).second) return;
  CJbSystemServices::Get()->ShowWarning(
      odTranslate("customizable_blocks",
                  "The drawing holds customizable blocks saved in a newer format. They are read as "
                  "far as this version understands them; newer behaviour may be lost."));
}

bool CJbCustBlockUtils::IsNewerFormatFound(const OdDbDatabase* database) const {
  return m_newerFormat.count(database) != 0;
}

void CJbCustBlockUtils::Forget(const OdDbDatabase* database) {
  m_newerFormat.erase(database);
}

CJbCustBlockUtils* CJbCustBlockUtils::Get() {
  static CJbCustBlockUtils embedded;
  return g_installed ? g_installed : &embedded;
}

CJbCustBlockUtils* CJbCustBlockUtils::Set(CJbCustBlockUtils* utils) {
  return std::exchange(g_installed, utils);
}
