// A layer: color, linetype, line weight and its on, frozen, locked and plot states.
#pragma once

#include "platform/db/symtables/OdDbSymbolTableRecord.h"

class OdDbLayerTableRecord : public OdDbSymbolTableRecord {
  ODRX_DECLARE_MEMBERS(OdDbLayerTableRecord);

 public:
  OdDbLayerTableRecord();

  // An index 1..255 (eInvalidInput otherwise).
  std::int16_t colorIndex() const;
  void setColorIndex(std::int16_t index);
  const OdString& linetype() const;
  void setLinetype(const OdString& name);
  // Hundredths of a millimetre, or -3 for the default (eInvalidInput below -3).
  std::int16_t lineWeight() const;
  void setLineWeight(std::int16_t weight);
  bool isOff() const;
  void setIsOff(bool off);
  bool isFrozen() const;
  void setIsFrozen(bool frozen);
  bool isLocked() const;
  void setIsLocked(bool locked);
  bool isPlottable() const;
  void setIsPlottable(bool plottable);

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  // After the name and flags: 62 color (negative when off), 6 linetype, 290 plot, 370 weight.
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 protected:
  OdString recordSubclassMarker() const override { return "AcDbLayerTableRecord"; }
  std::int16_t dxfFlags() const override;
  void setDxfFlags(std::int16_t flags) override;

 private:
  OdString m_linetype{"Continuous"};
  std::int16_t m_color = 7;
  std::int16_t m_lineWeight = -3;
  bool m_off = false;
  bool m_frozen = false;
  bool m_locked = false;
  bool m_plottable = true;
};
using OdDbLayerTableRecordPtr = OdSmartPtr<OdDbLayerTableRecord>;
