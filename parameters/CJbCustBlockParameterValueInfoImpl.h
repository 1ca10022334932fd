// The data of a parameter value set.
#pragma once

#include "parameters/CJbCustBlockParameterValueInfo.h"

class CJbCustBlockParameterValueInfoImpl {
 public:
  CJbCustBlockParameterValueInfo::ValueType m_valueType = CJbCustBlockParameterValueInfo::kDistance;
  CJbCustBlockParameterValueInfo::LimitType m_limitType = CJbCustBlockParameterValueInfo::kNone;
  OdString m_name;
  OdString m_description;
  OdGePoint3d m_position;
  double m_minimum = 0.0;
  double m_maximum = 0.0;
  bool m_hasMaximum = false;
  double m_increment = 0.0;
  OdArray<double> m_list;
  CJbCustBlockParameterValueInfo* m_parent = nullptr;
  OdArray<CJbCustBlockParameterValueInfo*> m_children;
};
