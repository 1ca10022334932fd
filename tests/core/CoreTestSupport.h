// Shared set-up of the core tests: small element classes that record the hooks the graph calls
// and file a little data of their own, stand-ins for the parameter and grip kinds the graph
// treats specially (they take on the roles that parameters and grips implement), and a fixture
// that registers the classes.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/CJbCustBlockElement.h"
#include "core/CJbCustBlockGraphGrip.h"
#include "core/CJbCustBlockGraphParameter.h"
#include "core/CJbDbCustBlockGraph.h"

// Hook calls in the order they happened: "B3" is BeginEvaluate of element 3, "E" Evaluate,
// "N" EndEvaluate, "R" Reset, "C" Cleanup.
std::vector<std::string>& hookJournal();

class RecordingElement : public CJbCustBlockElement {
  ODRX_DECLARE_MEMBERS(RecordingElement);

 public:
  bool BeginEvaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool Reset(CJbDbCustBlockGraphEvaluationContext* context) override;
  void Cleanup() override;
  bool NeedEvaluate() const override { return needEvaluate; }
  Priority GetPriority() const override { return priority; }
  bool IsAlwaysVisible() const override { return alwaysVisible; }
  bool IsConnectionSuppressed(int id) const override { return suppressed.contains(id); }
  OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) override;
  void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const override;

  bool needEvaluate = false;
  Priority priority = kPriorityNormal;
  bool alwaysVisible = false;
  OdArray<int> suppressed;
  // Modes of the contexts the evaluation hooks were given, in call order.
  std::vector<int> modes;
  // Filed data.
  int payload = 0;
  OdString label;
  OdDbObjectId softOwner, hardOwner, softPointer, hardPointer;

 private:
  void Record(const char* hook, CJbDbCustBlockGraphEvaluationContext* context);
};

class TestParameter : public RecordingElement, public CJbCustBlockGraphParameter {
  ODRX_DECLARE_MEMBERS(TestParameter);
};

class TestGrip : public RecordingElement, public CJbCustBlockGraphGrip {
  ODRX_DECLARE_MEMBERS(TestGrip);

 public:
  bool IsInsertionPointCyclingEnabled() const override { return cyclingEnabled; }
  OdGePoint3d GetUpdatedPosition() const override { return position; }
  bool GathersCyclingPoints() const override { return false; }

  bool cyclingEnabled = true;
  OdGePoint3d position;
};

class TestAlignmentGrip : public TestGrip {
  ODRX_DECLARE_MEMBERS(TestAlignmentGrip);

 public:
  bool GathersCyclingPoints() const override { return true; }
};

// An element registered under the name of the grip base but without the grip role: a name alone
// makes no grip.
class NamedLikeAGrip : public RecordingElement {
  ODRX_DECLARE_MEMBERS(NamedLikeAGrip);
};

// Registers the core classes and the test classes for one suite.
class CoreTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite();
  void SetUp() override { hookJournal().clear(); }

  // Appends a new element of class T to `graph` and returns it.
  template <class T = RecordingElement>
  OdSmartPtr<T> add(CJbDbCustBlockGraph* graph) {
    OdSmartPtr<T> element(new T);
    graph->AppendNode(element);
    return element;
  }

  static OdArray<int> connections(const CJbCustBlockElement* element, bool in, bool out) {
    OdArray<int> ids;
    element->GetConnections(ids, in, out);
    return ids;
  }

  // Files connection lists into an element that is not in a graph yet, as reading a drawing
  // would; the lists may name ids that no node will have.
  static void fileConnections(RecordingElement* element, const OdArray<int>& in,
                              const OdArray<int>& out);

  CJbDbCustBlockGraphPtr graph = CJbDbCustBlockGraph::createObject();
};
