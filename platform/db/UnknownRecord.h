// What an object or entity of an unknown class keeps: its record name and every item after the
// common data, filed back exactly as they were read.
#pragma once

#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/resbuf/OdResBuf.h"

class UnknownRecord {
 public:
  const OdString& name() const { return m_name; }
  void setName(const OdString& name) { m_name = name; }
  // A copy, so that callers cannot change what is written back.
  OdResBufPtr items() const;

  void dwgIn(OdDbDwgFiler* filer);
  void dwgOut(OdDbDwgFiler* filer) const;
  // Every item up to the end of the object; the filer's status.
  OdResult dxfIn(OdDbDxfFiler* filer);
  void dxfOut(OdDbDxfFiler* filer) const;

 private:
  OdString m_name;
  OdResBufPtr m_items;
};
