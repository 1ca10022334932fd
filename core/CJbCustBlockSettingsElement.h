// The graph's single settings element: it files the grip cycling order of its graph.
#pragma once

#include "core/CJbCustBlockElement.h"

class CJbCustBlockSettingsElement : public CJbCustBlockElement {
  ODRX_DECLARE_MEMBERS(CJbCustBlockSettingsElement);

 public:
  CJbCustBlockSettingsElement();
  ~CJbCustBlockSettingsElement() override;

  OdString GetBaseName() const override;
  bool IsUnique() const override;
  // After the base fields: the graph's cycling order as a count and that many ids. Without a
  // graph the order is read and dropped, and written empty.
  OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) override;
  void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const override;
};
