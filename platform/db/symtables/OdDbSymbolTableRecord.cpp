// Symbol table record: a name unique within its table.
#include "platform/db/symtables/OdDbSymbolTableRecord.h"

#include <cstring>

#include "platform/db/OdDbStub.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/db/symtables/OdDbSymbolTable.h"
#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbSymbolTableRecord, OdDbObject)

OdDbSymbolTableRecord::OdDbSymbolTableRecord() = default;

const OdString& OdDbSymbolTableRecord::getName() const {
  assertReadEnabled();
  return m_name;
}

bool OdDbSymbolTableRecord::isValidName(const OdString& name) {
  if (name.isEmpty() || name.getLength() > 255) return false;
  const std::string& text = name.str();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '*' && i == 0) continue;
    if (static_cast<unsigned char>(c) < 0x20 || std::strchr("<>/\\\":;?*|,=`", c)) return false;
  }
  return true;
}

void OdDbSymbolTableRecord::setName(const OdString& name) {
  assertReadEnabled();
  if (name == m_name) return;
  if (!isValidName(name))
    throw OdError(eInvalidInput,
                  describe().str() + ": \"" + name.str() + "\" is not a valid record name");
  const OdDbObjectId owner = ownerId();
  OdDbObject* table = owner.isNull() ? nullptr : owner.stub()->object();
  if (table && table->isKindOf(OdDbSymbolTable::desc()) && isDBRO()) {
    auto* symbols = static_cast<OdDbSymbolTable*>(table);
    const OdString resolved = symbols->resolveName(objectId(), name);
    assertWriteEnabled();
    symbols->rename(objectId(), m_name, resolved);
    m_name = resolved;
    return;
  }
  assertWriteEnabled();
  m_name = name;
}

OdResult OdDbSymbolTableRecord::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbObject::dwgInFields(filer);
  if (result != eOk) return result;
  const OdString name = filer->rdString();
  if (name != m_name) {
    const OdString old = m_name;
    m_name = name;
    const OdDbObjectId owner = ownerId();
    OdDbObject* table = owner.isNull() || !isDBRO() ? nullptr : owner.stub()->object();
    if (table && table->isKindOf(OdDbSymbolTable::desc()))
      static_cast<OdDbSymbolTable*>(table)->m_indexStale = true;
  }
  return eOk;
}

void OdDbSymbolTableRecord::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbObject::dwgOutFields(filer);
  filer->wrString(m_name);
}

OdResult OdDbSymbolTableRecord::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbObject::dxfInFields(filer);
  if (result != eOk) return result;
  if (!filer->atSubclassData("AcDbSymbolTableRecord"))
    throw OdError(eBadDxfSequence, describe().str() + ": AcDbSymbolTableRecord expected at " +
                                       filer->describePosition().str());
  // The class's own marker follows; its name and flags come first in it.
  if (!filer->atSubclassData(recordSubclassMarker()))
    throw OdError(eBadDxfSequence, describe().str() + ": " + recordSubclassMarker().str() +
                                       " expected at " + filer->describePosition().str());
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    const int code = filer->nextItem();
    if (code == 2) {
      setName(filer->rdString());
    } else if (code == 70) {
      setDxfFlags(filer->rdInt16());
    } else {
      filer->pushBackItem();
      break;
    }
  }
  return filer->filerStatus();
}

void OdDbSymbolTableRecord::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbObject::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbSymbolTableRecord");
  filer->wrSubclassMarker(recordSubclassMarker());
  filer->wrName(2, m_name);
  filer->wrInt16(70, dxfFlags());
}
