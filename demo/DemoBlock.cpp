#include "demo/DemoBlock.h"

#include "demo/DoorDemoBlock.h"
#include "demo/FixtureDemoBlock.h"
#include "demo/LampArmDemoBlock.h"
#include "demo/PanelDemoBlock.h"
#include "demo/TableDemoBlock.h"
#include "demo/WindowDemoBlock.h"

std::vector<std::unique_ptr<DemoBlock>> DemoBlock::All() {
  std::vector<std::unique_ptr<DemoBlock>> blocks;
  blocks.push_back(std::make_unique<DoorDemoBlock>());
  blocks.push_back(std::make_unique<LampArmDemoBlock>());
  blocks.push_back(std::make_unique<TableDemoBlock>());
  blocks.push_back(std::make_unique<WindowDemoBlock>());
  blocks.push_back(std::make_unique<PanelDemoBlock>());
  blocks.push_back(std::make_unique<FixtureDemoBlock>());
  return blocks;
}
