// The data every parameter holds: its point records, its value sets, two flags and where the
// block editor draws the icons of its actions.
#pragma once

#include <memory>
#include <vector>

#include "core/CJbCustBlockElementImpl.h"
#include "parameters/CJbCustBlockParameterValueInfo.h"
#include "platform/ge/OdGePoint3d.h"

class CJbCustBlockParameterImpl : public CJbCustBlockElementImpl {
 public:
  struct PointRecord {
    int grip = 0;
    OdGePoint3d defined;
    OdGePoint3d current;
    OdGePoint3d updated;
  };

  // The point count is fixed for the life of the parameter.
  explicit CJbCustBlockParameterImpl(unsigned pointCount);
  ~CJbCustBlockParameterImpl() override;

  // A grip that leaves the graph is no longer bound to any point.
  void OnConnectionRemoved(int id) override;

  // Appends a value set; a child names the index of its parent.
  CJbCustBlockParameterValueInfo* AddValueInfo(CJbCustBlockParameterValueInfo::ValueType type,
                                               int parentIndex = -1);
  bool HasPoint(unsigned index) const { return index < m_points.size(); }

  std::vector<PointRecord> m_points;
  std::vector<std::unique_ptr<CJbCustBlockParameterValueInfo>> m_valueInfos;
  bool m_chain = false;
  bool m_propertyVisible = true;
  OdGePoint3d m_activityIconPosition;
};
