// An extension record: a result-buffer chain kept in the drawing. Ids in it (group codes
// 330..369) are references of their kind: 330s soft pointers, 340s hard pointers, 350s soft
// owners, 360s hard owners, so clones translate them and owners clone what 360s name.
#pragma once

#include "platform/db/OdDbObject.h"

class OdDbXrecord : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbXrecord);

 public:
  OdDbXrecord();

  // A copy of the chain.
  OdResBufPtr rbChain() const;
  // Replaces the chain with a copy of items. eInvalidResBuf (nothing changed) for group codes an
  // extension record cannot hold: negative ones and the object's own framing (0, 5, 100, 102,
  // 105, 1001).
  OdResult setFromRbChain(const OdResBuf* items);

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  // AcDbXrecord: 280 cloning flag, then the items.
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 private:
  OdResBufPtr m_items;
  std::int16_t m_cloning = 1;
};
using OdDbXrecordPtr = OdSmartPtr<OdDbXrecord>;
