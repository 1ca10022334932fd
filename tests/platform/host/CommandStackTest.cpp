#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "platform/host/OdEdCommandStack.h"

namespace {
class NamedCommand : public OdEdCommand {
 public:
  NamedCommand(OdString group, OdString global, OdString local = OdString())
      : m_group(std::move(group)), m_global(std::move(global)), m_local(std::move(local)) {}
  OdString groupName() const override { return m_group; }
  OdString globalName() const override { return m_global; }
  OdString localName() const override { return m_local.isEmpty() ? m_global : m_local; }
  void execute(OdEdCommandContext*) override {}

 private:
  OdString m_group;
  OdString m_global;
  OdString m_local;
};

std::vector<OdString> globalNames(const OdArray<OdEdCommandPtr>& commands) {
  std::vector<OdString> names;
  for (const OdEdCommandPtr& command : commands)
    names.push_back(command->globalName());
  return names;
}

OdResult resultOf(void (*call)(OdEdCommandStack&), OdEdCommandStack& stack) {
  try {
    call(stack);
  } catch (const OdError& e) {
    return e.code();
  }
  return eOk;
}

class CommandStack : public ::testing::Test {
 protected:
  void SetUp() override {
    stack.addCommand(new NamedCommand("BLOCKS", "CBELEMENT", "ELEMENT"));
    stack.addCommand(new NamedCommand("DRAW", "LINE"));
    stack.addCommand(new NamedCommand("BLOCKS", "-CBVISIBILITY"));
    stack.addCommand(new NamedCommand("DRAW", "CIRCLE"));
    stack.addCommand(new NamedCommand("BLOCKS", "_CBSHOW"));
  }
  OdEdCommandStack stack;
};
}  // namespace

TEST_F(CommandStack, RegistersInOrderAndRefusesDuplicatesAndBadCommands) {
  EXPECT_EQ(globalNames(stack.commands()),
            (std::vector<OdString>{"CBELEMENT", "LINE", "-CBVISIBILITY", "CIRCLE", "_CBSHOW"}));
  EXPECT_EQ(globalNames(stack.commands("draw")), (std::vector<OdString>{"LINE", "CIRCLE"}));
  EXPECT_TRUE(stack.lookupCmd("line")->isKindOf(OdEdCommand::desc()));

  // A global name is taken whatever its case and group.
  EXPECT_EQ(
      resultOf([](OdEdCommandStack& s) { s.addCommand(new NamedCommand("OTHER", "Line")); }, stack),
      eDuplicateKey);
  EXPECT_EQ(resultOf([](OdEdCommandStack& s) { s.addCommand(nullptr); }, stack), eNullPtr);
  EXPECT_EQ(
      resultOf([](OdEdCommandStack& s) { s.addCommand(new NamedCommand("DRAW", "")); }, stack),
      eInvalidInput);
  EXPECT_EQ(stack.commands().size(), 5u);
  EXPECT_EQ(odedRegCmds(), odedRegCmds());
}

TEST_F(CommandStack, LooksUpLocalNamesAndUnderscoredGlobalNames) {
  const OdEdCommandPtr element = stack.lookupCmd("CBELEMENT");
  ASSERT_FALSE(element.isNull());
  EXPECT_EQ(stack.lookupCmd("element"), element);
  EXPECT_EQ(stack.lookupCmd("_cbelement"), element);
  EXPECT_TRUE(stack.lookupCmd("_ELEMENT").isNull());  // the underscore asks for a global name
  EXPECT_EQ(stack.lookupCmd("_-CBVISIBILITY")->globalName(), "-CBVISIBILITY");
  EXPECT_EQ(stack.lookupCmd("_CBSHOW")->globalName(), "_CBSHOW");
  EXPECT_TRUE(stack.lookupCmd("ARC").isNull());
  EXPECT_TRUE(stack.lookupCmd("").isNull());
}

TEST_F(CommandStack, RemovesOneCommandOrAWholeGroup) {
  const OdEdCommandPtr line = stack.lookupCmd("LINE");
  EXPECT_EQ(resultOf([](OdEdCommandStack& s) { s.removeCmd("BLOCKS", "LINE"); }, stack),
            eKeyNotFound);
  stack.removeCmd("draw", "line");
  EXPECT_TRUE(stack.lookupCmd("LINE").isNull());
  EXPECT_EQ(line->globalName(), "LINE");  // still alive for whoever holds it

  EXPECT_EQ(stack.removeGroup("Blocks"), 3);
  EXPECT_EQ(globalNames(stack.commands()), (std::vector<OdString>{"CIRCLE"}));
  EXPECT_EQ(stack.removeGroup("BLOCKS"), 0);
  // A withdrawn name is free again.
  stack.addCommand(new NamedCommand("BLOCKS", "CBELEMENT"));
  EXPECT_EQ(globalNames(stack.commands()), (std::vector<OdString>{"CIRCLE", "CBELEMENT"}));
}
