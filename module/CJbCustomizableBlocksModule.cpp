#include "module/CJbCustomizableBlocksModule.h"

#include "module/CJbCustomizableBlocksModuleImpl.h"

CJbCustomizableBlocksModule::CJbCustomizableBlocksModule()
    : m_pImpl(std::make_unique<CJbCustomizableBlocksModuleImpl>()) {}

CJbCustomizableBlocksModule::~CJbCustomizableBlocksModule() = default;

void CJbCustomizableBlocksModule::initApp() {
  m_pImpl->InitApp();
}

void CJbCustomizableBlocksModule::uninitApp() {
  m_pImpl->UninitApp();
}

ODRX_DEFINE_DYNAMIC_MODULE(CJbCustomizableBlocksModule)
