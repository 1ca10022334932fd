// The data of a polar parameter: distance and angle value sets, and the reference direction and
// normal that the angle is measured from and about, current and updated.
#pragma once

#include "parameters/CJbCustBlock2PointParameterImpl.h"

class CJbCustBlockPolarParameterImpl : public CJbCustBlock2PointParameterImpl {
 public:
  CJbCustBlockPolarParameterImpl() {
    AddValueInfo(CJbCustBlockParameterValueInfo::kDistance);
    AddValueInfo(CJbCustBlockParameterValueInfo::kAngle);
  }

  OdGeVector3d m_currentReference = OdGeVector3d::kXAxis;
  OdGeVector3d m_currentNormal = OdGeVector3d::kZAxis;
  OdGeVector3d m_updatedReference = OdGeVector3d::kXAxis;
  OdGeVector3d m_updatedNormal = OdGeVector3d::kZAxis;
};
