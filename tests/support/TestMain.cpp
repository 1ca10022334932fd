// Test entry: the platform is initialised once for the whole program, as a host would do.
#include <gtest/gtest.h>

#include "platform/OdPlatform.h"

namespace {
class PlatformEnvironment : public ::testing::Environment {
 public:
  void SetUp() override { odInitialize(); }
  void TearDown() override { odUninitialize(); }
};
}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  ::testing::AddGlobalTestEnvironment(new PlatformEnvironment);
  return RUN_ALL_TESTS();
}
