// Layer record.
#include "platform/db/symtables/OdDbLayerTableRecord.h"

#include <cstdlib>
#include <string>

#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbLayerTableRecord, OdDbSymbolTableRecord, "LAYER", "", 0)

OdDbLayerTableRecord::OdDbLayerTableRecord() = default;

std::int16_t OdDbLayerTableRecord::colorIndex() const {
  assertReadEnabled();
  return m_color;
}
void OdDbLayerTableRecord::setColorIndex(std::int16_t index) {
  if (index == m_color) return;
  if (index < 1 || index > 255)
    throw OdError(eInvalidInput, describe().str() + ": layer color " + std::to_string(index) +
                                     " is not in 1..255");
  assertWriteEnabled();
  m_color = index;
}
const OdString& OdDbLayerTableRecord::linetype() const {
  assertReadEnabled();
  return m_linetype;
}
void OdDbLayerTableRecord::setLinetype(const OdString& name) {
  if (name == m_linetype) return;
  assertWriteEnabled();
  m_linetype = name;
}
std::int16_t OdDbLayerTableRecord::lineWeight() const {
  assertReadEnabled();
  return m_lineWeight;
}
void OdDbLayerTableRecord::setLineWeight(std::int16_t weight) {
  if (weight == m_lineWeight) return;
  if (weight < -3 || weight > 211)
    throw OdError(eInvalidInput, describe().str() + ": line weight " + std::to_string(weight) +
                                     " is out of range");
  assertWriteEnabled();
  m_lineWeight = weight;
}
bool OdDbLayerTableRecord::isOff() const {
  assertReadEnabled();
  return m_off;
}
void OdDbLayerTableRecord::setIsOff(bool off) {
  if (off == m_off) return;
  assertWriteEnabled();
  m_off = off;
}
bool OdDbLayerTableRecord::isFrozen() const {
  assertReadEnabled();
  return m_frozen;
}
void OdDbLayerTableRecord::setIsFrozen(bool frozen) {
  if (frozen == m_frozen) return;
  assertWriteEnabled();
  m_frozen = frozen;
}
bool OdDbLayerTableRecord::isLocked() const {
  assertReadEnabled();
  return m_locked;
}
void OdDbLayerTableRecord::setIsLocked(bool locked) {
  if (locked == m_locked) return;
  assertWriteEnabled();
  m_locked = locked;
}
bool OdDbLayerTableRecord::isPlottable() const {
  assertReadEnabled();
  return m_plottable;
}
void OdDbLayerTableRecord::setIsPlottable(bool plottable) {
  if (plottable == m_plottable) return;
  assertWriteEnabled();
  m_plottable = plottable;
}

std::int16_t OdDbLayerTableRecord::dxfFlags() const {
  return static_cast<std::int16_t>((m_frozen ? 1 : 0) | (m_locked ? 4 : 0));
}
void OdDbLayerTableRecord::setDxfFlags(std::int16_t flags) {
  assertWriteEnabled();
  m_frozen = (flags & 1) != 0;
  m_locked = (flags & 4) != 0;
}

OdResult OdDbLayerTableRecord::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbSymbolTableRecord::dwgInFields(filer);
  if (result != eOk) return result;
  m_color = filer->rdInt16();
  m_linetype = filer->rdString();
  m_lineWeight = filer->rdInt16();
  m_off = filer->rdBool();
  m_frozen = filer->rdBool();
  m_locked = filer->rdBool();
  m_plottable = filer->rdBool();
  return eOk;
}

void OdDbLayerTableRecord::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbSymbolTableRecord::dwgOutFields(filer);
  filer->wrInt16(m_color);
  filer->wrString(m_linetype);
  filer->wrInt16(m_lineWeight);
  filer->wrBool(m_off);
  filer->wrBool(m_frozen);
  filer->wrBool(m_locked);
  filer->wrBool(m_plottable);
}

OdResult OdDbLayerTableRecord::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbSymbolTableRecord::dxfInFields(filer);
  if (result != eOk) return result;
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    switch (filer->nextItem()) {
      case 62: {
        const std::int16_t color = filer->rdInt16();
        m_off = color < 0;
        m_color = static_cast<std::int16_t>(std::abs(color));
        if (m_color < 1 || m_color > 255) m_color = 7;
        break;
      }
      case 6:
        m_linetype = filer->rdString();
        break;
      case 290:
        m_plottable = filer->rdBool();
        break;
      case 370:
        m_lineWeight = filer->rdInt16();
        break;
      default:
        // Fields this layer does not keep (material, plot style) are skipped.
        break;
    }
  }
  return filer->filerStatus();
}

void OdDbLayerTableRecord::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbSymbolTableRecord::dxfOutFields(filer);
  filer->wrInt16(62, static_cast<std::int16_t>(m_off ? -m_color : m_color));
  filer->wrString(6, m_linetype);
  if (!m_plottable) filer->wrBool(290, m_plottable);
  filer->wrInt16(370, m_lineWeight);
}
