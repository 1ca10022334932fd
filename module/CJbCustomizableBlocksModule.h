// The module object of JbCustomizableBlocks. initApp lends everything the customizable blocks need
// to the platform and the host in a fixed order, parents before children; uninitApp takes it all
// back in exactly the reverse order.
#pragma once

#include <memory>

#include "platform/rx/OdRxModule.h"

class CJbCustomizableBlocksModuleImpl;

class CJbCustomizableBlocksModule : public OdRxModule {
 public:
  CJbCustomizableBlocksModule();
  ~CJbCustomizableBlocksModule() override;

  // A failure part-way takes back what was done before it and passes the error on.
  void initApp() override;
  void uninitApp() override;

 private:
  std::unique_ptr<CJbCustomizableBlocksModuleImpl> m_pImpl;
};
