// The data of a base-point parameter: its one point, the translation its relocations have added
// up to, and whether it relocates at all.
#pragma once

#include "parameters/CJbCustBlockParameterImpl.h"
#include "platform/ge/OdGeVector3d.h"

class CJbCustBlockBasePointParameterImpl : public CJbCustBlockParameterImpl {
 public:
  CJbCustBlockBasePointParameterImpl() : CJbCustBlockParameterImpl(1) {}

  OdGeVector3d m_currentTranslate;
  bool m_relocationEnabled = false;
};
