// The message services in use and the embedded stream writer.
#include "platform/host/CJbSystemServices.h"

#include <iostream>
#include <utility>

#include "platform/host/CJbTranslator.h"

namespace {
CJbSystemServices* g_installed = nullptr;
}

CJbSystemServices::CJbSystemServices() : m_out(&std::cerr) {}
CJbSystemServices::CJbSystemServices(std::ostream& out) : m_out(&out) {}
CJbSystemServices::~CJbSystemServices() = default;

void CJbSystemServices::Show(MessageKind kind, const OdString& text) {
  switch (kind) {
    case MessageKind::kMessage:
      break;
    case MessageKind::kWarning:
      *m_out << odTranslate("system_services", "Warning").view() << ": ";
      break;
    case MessageKind::kError:
      *m_out << odTranslate("system_services", "Error").view() << ": ";
      break;
  }
  *m_out << text.view() << std::endl;
}

CJbSystemServices* CJbSystemServices::Get() {
  static CJbSystemServices embedded;
  return g_installed ? g_installed : &embedded;
}

CJbSystemServices* CJbSystemServices::Set(CJbSystemServices* services) {
  return std::exchange(g_installed, services);
}
