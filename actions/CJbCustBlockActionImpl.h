// The data of an action: its parameter and point, its modifier and its selection sets.
#pragma once

#include "core/CJbCustBlockElementIdInConnection.h"
#include "core/CJbCustBlockElementImpl.h"
#include "platform/db/OdDbObjectId.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector3d.h"

class CJbCustBlockActionImpl : public CJbCustBlockElementImpl {
 public:
  enum ModifierKind { kNoModifier = 0, kAngleOffsetModifier = 1, kBaseOffsetModifier = 2 };
  enum SelectionKind { kRegularSelection = 0, kRectangleSelection = 1, kPolygonSelection = 2 };

  struct SelectionSet {
    // Entities of the block definition, each with the indices of its stretch points in the frame.
    OdArray<OdDbObjectId> entities;
    OdArray<OdArray<int>> entityIndices;
    // The matching entities of the block being evaluated.
    OdArray<OdDbObjectId> currentEntities;
    OdArray<int> elements;
    OdArray<OdArray<int>> elementIndices;
    int kind = kRegularSelection;
    OdArray<OdGePoint3d> definition;
  };

  CJbCustBlockActionImpl(ModifierKind modifierKind, unsigned setCount)
      : m_modifierKind(modifierKind) {
    m_sets.setLogicalLength(setCount);
  }

  void OnConnectionRemoved(int id) override {
    if (m_parameter.GetId() == id) m_parameter.SetId(0);
    for (auto& set : m_sets) {
      for (unsigned i = set.elements.length(); i-- > 0;) {
        if (set.elements[i] != id) continue;
        set.elements.removeAt(i);
        set.elementIndices.removeAt(i);
      }
    }
    CJbCustBlockElementImpl::OnConnectionRemoved(id);
  }

  bool HasSet(unsigned set) const { return set < m_sets.length(); }

  CJbCustBlockElementIdInConnection m_parameter;
  unsigned m_pointIndex = 0;
  ModifierKind m_modifierKind;
  double m_angleOffset = 0.0;
  double m_workingAngleOffset = 0.0;
  double m_distanceMultiplier = 1.0;
  unsigned m_distanceType = 0;
  OdGeVector3d m_baseOffset;
  OdGeVector3d m_workingBaseOffset;
  bool m_independentBase = false;
  OdArray<SelectionSet> m_sets;
};
