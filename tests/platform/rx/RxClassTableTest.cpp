// Class tables: merged tables keep table order within a rank, registration runs forwards and
// removal backwards, and a registration that fails part-way takes back what it had done.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/rx/OdRxClass.h"
#include "platform/rx/OdRxClassDictionary.h"
#include "platform/rx/OdRxClassTable.h"

// Test classes live outside an anonymous namespace: their members are defined by macro.
class TableBase : public OdRxObject {
  ODRX_DECLARE_MEMBERS(TableBase);
};
class TableKindA : public TableBase {
  ODRX_DECLARE_MEMBERS(TableKindA);
};
class TableKindB : public TableBase {
  ODRX_DECLARE_MEMBERS(TableKindB);
};
class TableKindC : public TableKindA {
  ODRX_DECLARE_MEMBERS(TableKindC);
};

ODRX_NO_CONS_DEFINE_MEMBERS(TableBase, OdRxObject)
ODRX_CONS_DEFINE_MEMBERS(TableKindA, TableBase)
ODRX_CONS_DEFINE_MEMBERS(TableKindB, TableBase)
ODRX_CONS_DEFINE_MEMBERS(TableKindC, TableKindA)

namespace {
struct Row {
  OdRxClassRow cls;
  int rank;
};
using Table = OdRxClassTable<Row>;

std::vector<std::string> namesOf(const Table& table) {
  std::vector<std::string> names;
  for (const Row& row : table)
    names.push_back(row.cls.desc() ? row.cls.desc()->name().str() : "?");
  return names;
}

std::vector<std::string> registeredTableClasses() {
  std::vector<std::string> names;
  for (const OdRxClass* cls : OdRxClassDictionary::instance().classes()) {
    if (cls->name().str().rfind("Table", 0) == 0) names.push_back(cls->name().str());
  }
  return names;
}
}  // namespace

TEST(RxClassTable, MergedTablesOrderByRankAndKeepTableOrderWithin) {
  const Table lower = {{odrxClassRow<TableBase>(), 0}, {odrxClassRow<TableKindA>(), 1}};
  const Table upper = {{odrxClassRow<TableKindC>(), 1}, {odrxClassRow<TableKindB>(), 0}};
  const Table merged = Table::merged({&lower, &upper}, [](const Row& row) { return row.rank; });
  ASSERT_EQ(merged.size(), 4u);

  merged.rxInit();
  EXPECT_EQ(registeredTableClasses(),
            std::vector<std::string>({"TableBase", "TableKindB", "TableKindA", "TableKindC"}));
  EXPECT_EQ(namesOf(merged), registeredTableClasses());
  // Removal runs backwards, so children leave before their parents.
  merged.rxUninit();
  EXPECT_TRUE(registeredTableClasses().empty());
  EXPECT_EQ(TableBase::desc(), nullptr);
}

TEST(RxClassTable, AFailedRegistrationTakesBackWhatItHadDone) {
  // The child comes before its parent: registering it fails, and what came before is removed.
  Table table = {{odrxClassRow<TableBase>(), 0}, {odrxClassRow<TableKindB>(), 0}};
  table.append({odrxClassRow<TableKindC>(), 0});
  table.append({odrxClassRow<TableKindA>(), 0});
  try {
    table.rxInit();
    FAIL() << "a child registered before its parent";
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), eNotInitializedYet);
  }
  EXPECT_TRUE(registeredTableClasses().empty());
  // Nothing half-registered stands in the way of a table in the right order.
  const Table fixed = {{odrxClassRow<TableBase>(), 0},
                       {odrxClassRow<TableKindA>(), 0},
                       {odrxClassRow<TableKindC>(), 0}};
  fixed.rxInit();
  EXPECT_EQ(registeredTableClasses(),
            std::vector<std::string>({"TableBase", "TableKindA", "TableKindC"}));
  fixed.rxUninit();
}
