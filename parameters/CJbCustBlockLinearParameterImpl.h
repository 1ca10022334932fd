// The data of a linear parameter: where its length is measured from, and its distance value set.
#pragma once

#include "parameters/CJbCustBlock2PointParameterImpl.h"

class CJbCustBlockLinearParameterImpl : public CJbCustBlock2PointParameterImpl {
 public:
  CJbCustBlockLinearParameterImpl();

  // Sets the updated length to `length` along the present direction: from the start point, or
  // symmetrically about the midpoint.
  void PlaceLength(double length);

  // 0: the start point stays; 1: the midpoint stays.
  int m_basePosition = 0;
};
