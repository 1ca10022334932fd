#include "platform/db/entities/OdDbSequenceEnd.h"

#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbSequenceEnd, OdDbEntity, "SEQEND", "", 0)

OdResult OdDbSequenceEnd::transformBy(const OdGeMatrix3d&) {
  assertWriteEnabled();
  return eOk;
}
