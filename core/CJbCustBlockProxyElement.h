// Stand-in for an element whose class is not available: it keeps the element's data unchanged
// so that it can be written back, and can re-create the element once the class is there. Every
// node of a filed graph travels in this form.
#pragma once

#include "core/CJbCustBlockElement.h"
#include "platform/base/OdBinaryData.h"
#include "platform/db/filers/OdDbDwgFiler.h"

class CJbCustBlockProxyElementImpl;

class CJbCustBlockProxyElement : public CJbCustBlockElement {
  ODRX_DECLARE_MEMBERS(CJbCustBlockProxyElement);

 public:
  CJbCustBlockProxyElement();
  ~CJbCustBlockProxyElement() override;

  // A proxy of `element`: its base fields, class name and its own data filed through the element
  // filer. A proxy yields a copy of itself.
  static OdSmartPtr<CJbCustBlockProxyElement> CreateProxyFromElement(
      const CJbCustBlockElement* element, const CJbDbCustBlockGraph* graph);
  // The element this proxy stands for, or empty when its class is not registered. Fails with
  // eNotThatKindOfClass when the class is no element, and with the read error when the data
  // does not read back.
  CJbCustBlockElementPtr CreateElement(CJbDbCustBlockGraph* graph) const;

  const OdString& GetOriginalClassName() const;
  const OdBinaryData& GetData() const;
  // Ids of one reference kind that the element's data referred to, in filing order.
  const OdDbObjectIdArray& GetIds(OdDb::ReferenceType type) const;

  bool IsProxy() const override;
  OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) override;
  void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const override;
  OdResult dxfInFields(OdDbDxfFiler* filer, CJbDbCustBlockGraph* graph) override;
  void dxfOutFields(OdDbDxfFiler* filer, const CJbDbCustBlockGraph* graph) const override;

 private:
  CJbCustBlockProxyElementImpl* ProxyImpl() const;
};

using CJbCustBlockProxyElementPtr = OdSmartPtr<CJbCustBlockProxyElement>;
