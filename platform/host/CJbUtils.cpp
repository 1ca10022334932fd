// The host lookups in use and their embedded answers.
#include "platform/host/CJbUtils.h"

#include <utility>

namespace {
CJbUtils* g_installed = nullptr;
}

CJbUtils::~CJbUtils() = default;

OdDbObjectId CJbUtils::GetDynBlockId(const OdDbObjectId& blockRefId) {
  return Get()->LookupDynBlockId(blockRefId);
}

OdDbObjectId CJbUtils::LookupDynBlockId(const OdDbObjectId&) const {
  return OdDbObjectId();
}

CJbUtils* CJbUtils::Get() {
  static CJbUtils embedded;
  return g_installed ? g_installed : &embedded;
}

CJbUtils* CJbUtils::Set(CJbUtils* utils) {
  return std::exchange(g_installed, utils);
}
