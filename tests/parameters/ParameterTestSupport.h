// Shared set-up of the parameter tests: a small two-point parameter whose value 0 is its length
// (value 1 its start point), a plain grip, an action that follows one point of its parameter, and a
// fixture that registers the classes and builds graphs in and out of a database.
#pragma once

#include <gtest/gtest.h>

#include "core/CJbDbCustBlockGraph.h"
#include "parameters/CJbCustBlock2PointParameter.h"
#include "parameters/CJbCustBlockParameterPointBinding.h"
#include "parameters/CJbCustBlockParameterValueInfo.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "platform/db/OdDbDatabase.h"

class TestLengthParameter : public CJbCustBlock2PointParameter {
  ODRX_DECLARE_MEMBERS(TestLengthParameter);

 public:
  TestLengthParameter();
  OdResBufPtr GetValue(unsigned index) const override;
  bool SetValue(unsigned index, const OdResBufPtr& value) override;

  // Makes GetValue throw, to check that callers restore what they changed.
  bool failValue = false;
};

class TestAction : public CJbCustBlockElement, public CJbCustBlockParameterPointBinding {
  ODRX_DECLARE_MEMBERS(TestAction);

 public:
  bool HasParameterPointIndex() const override { return hasPointIndex; }
  unsigned GetParameterPointIndex() const override { return pointIndex; }

  bool hasPointIndex = true;
  unsigned pointIndex = 0;
};

class TestPointGrip : public CJbCustBlockGrip {
  ODRX_DECLARE_MEMBERS(TestPointGrip);

 public:
  TestPointGrip();
  GripType GetType() const override { return kPointGrip; }
};

class ParameterTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite();

  template <class T>
  OdSmartPtr<T> add(CJbDbCustBlockGraph* target = nullptr) {
    OdSmartPtr<T> element(new T);
    (target ? target : graph.get())->AppendNode(element);
    return element;
  }
  // Binds `grip` to point `index` of `parameter` as the editor does.
  static void bind(CJbCustBlockParameter* parameter, unsigned index, CJbCustBlockGrip* grip);
  // An action connected to `parameter`, following point `index`.
  OdSmartPtr<TestAction> addAction(CJbCustBlockParameter* parameter, unsigned index);

  // A parameter spanning start to end in all three position sets.
  static void place(CJbCustBlockParameter* parameter, const OdGePoint3d& start,
                    const OdGePoint3d& end);
  static double real(const OdResBufPtr& value) { return value->getDouble(); }
  static OdResBufPtr realValue(double value) { return OdResBuf::newRb(OdResBuf::kRtDouble, value); }

  CJbDbCustBlockGraphPtr graph = CJbDbCustBlockGraph::createObject();
};

// Element data filed out and read back through the element filer, as a graph files its nodes.
class ElementFilingRoundTrip {
 public:
  static OdResult Copy(const CJbCustBlockElement* from, CJbCustBlockElement* to,
                       const CJbDbCustBlockGraph* graph = nullptr);
};

// Compares points within the global tolerance, naming both in a failure.
::testing::AssertionResult SamePoint(const OdGePoint3d& actual, const OdGePoint3d& expected);
