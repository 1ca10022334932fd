// The data of a flip parameter: the two ends of its reflection line, the mirror-state value set,
// the flip state committed by the last evaluation and the one proposed for the next, and the
// labels of the two states.
#pragma once

#include "parameters/CJbCustBlockParameterImpl.h"
#include "platform/base/OdString.h"

class CJbCustBlockFlipParameterImpl : public CJbCustBlockParameterImpl {
 public:
  CJbCustBlockFlipParameterImpl() : CJbCustBlockParameterImpl(2) {
    AddValueInfo(CJbCustBlockParameterValueInfo::kMirrorState);
  }

  bool m_currentFlipped = false;
  bool m_updatedFlipped = false;
  OdString m_flippedStateName;
  OdString m_notFlippedStateName;
};
