// The installed dynamic-block converter, if any.
#include "platform/host/CJbCustBlockConverterUtils.h"

#include <utility>

namespace {
CJbCustBlockConverterUtils* g_installed = nullptr;
}

CJbCustBlockConverterUtils::~CJbCustBlockConverterUtils() = default;

CJbCustBlockConverterUtils* CJbCustBlockConverterUtils::Get() {
  return g_installed;
}

CJbCustBlockConverterUtils* CJbCustBlockConverterUtils::Set(CJbCustBlockConverterUtils* converter) {
  return std::exchange(g_installed, converter);
}
