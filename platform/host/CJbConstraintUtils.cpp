// The installed constraint solver, if any.
#include "platform/host/CJbConstraintUtils.h"

#include <utility>

namespace {
CJbConstraintUtils* g_installed = nullptr;
}

CJbConstraintUtils::~CJbConstraintUtils() = default;

CJbConstraintUtils* CJbConstraintUtils::Get() {
  return g_installed;
}

CJbConstraintUtils* CJbConstraintUtils::Set(CJbConstraintUtils* utils) {
  return std::exchange(g_installed, utils);
}
