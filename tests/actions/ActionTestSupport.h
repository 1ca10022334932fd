// Shared set-up of the action tests: an action whose modifier kind, set count and stretch sets are
// chosen per test, and a fixture with a database, a graph and blocks of lines.
#pragma once

#include "actions/CJbCustBlockAction.h"
#include "core/CJbDbCustBlockGraph.h"
#include "platform/db/DbTestSupport.h"
#include "platform/db/entities/OdDbLine.h"

class TestAction : public CJbCustBlockAction {
  ODRX_DECLARE_MEMBERS(TestAction);

 public:
  TestAction();
  TestAction(int modifierKind, unsigned setCount);
  bool IsAreaRequired(unsigned set) const override { return stretch && set == 0; }
  // Linear parameters only.
  OdArray<OdRxClass*> GetAcceptableParameters() const override;
  bool IsOneActionPerParameter() const override { return onePerParameter; }

  bool stretch = false;
  bool onePerParameter = false;
};

using TestActionPtr = OdSmartPtr<TestAction>;

class ActionTest : public DbTest {
 protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite();

  TestActionPtr addAction(int modifierKind = 1, unsigned setCount = 1);
  // A line from `from` to `to` in `block`.
  OdDbObjectId addLine(const OdDbObjectId& block, const OdGePoint3d& from, const OdGePoint3d& to);
  OdSmartPtr<OdDbLine> line(const OdDbObjectId& id) { return open<OdDbLine>(id); }
  // Data filed out by `from` and read into `to`; the filer's result.
  static OdResult fileInto(const CJbCustBlockElement* from, CJbCustBlockElement* to);

  CJbDbCustBlockGraphPtr graph = CJbDbCustBlockGraph::createObject();
};

::testing::AssertionResult SamePoint(const OdGePoint3d& actual, const OdGePoint3d& expected);
