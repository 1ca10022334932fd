#include "platform/db/entities/OdDb2dVertex.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/FieldTable.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDb2dVertex, OdDbEntity, "VERTEX", "", 0)

// Offsets into a class with a virtual table: GCC supports them for classes without virtual bases
// and says so by a warning.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

OdGePoint3d OdDb2dVertex::position() const {
  assertReadEnabled();
  return m_position;
}

void OdDb2dVertex::setPosition(const OdGePoint3d& position) {
  assertWriteEnabled();
  m_position = position;
}

double OdDb2dVertex::bulge() const {
  assertReadEnabled();
  return m_bulge;
}

void OdDb2dVertex::setBulge(double bulge) {
  assertWriteEnabled();
  m_bulge = bulge;
}

double OdDb2dVertex::startWidth() const {
  assertReadEnabled();
  return m_startWidth;
}

void OdDb2dVertex::setStartWidth(double width) {
  assertWriteEnabled();
  m_startWidth = width;
}

double OdDb2dVertex::endWidth() const {
  assertReadEnabled();
  return m_endWidth;
}

void OdDb2dVertex::setEndWidth(double width) {
  assertWriteEnabled();
  m_endWidth = width;
}

double OdDb2dVertex::tangent() const {
  assertReadEnabled();
  return m_tangent;
}

void OdDb2dVertex::setTangent(double angle) {
  assertWriteEnabled();
  m_tangent = angle;
}

int OdDb2dVertex::flags() const {
  assertReadEnabled();
  return m_flags;
}

void OdDb2dVertex::setFlags(int flags) {
  assertWriteEnabled();
  m_flags = flags;
}

OdResult OdDb2dVertex::transformBy(const OdGeMatrix3d&) {
  return eNotApplicable;
}

FieldTable OdDb2dVertex::fieldTable() const {
  static constexpr auto kFields = FieldTable::compile({
      FieldTable::marker("AcDbVertex"),
      FieldTable::marker("AcDb2dVertex"),
      FieldTable::field(10, FieldTable::kPoint, offsetof(OdDb2dVertex, m_position)),
      FieldTable::field(40, FieldTable::kReal, offsetof(OdDb2dVertex, m_startWidth)).omittedAt(0.0),
      FieldTable::field(41, FieldTable::kReal, offsetof(OdDb2dVertex, m_endWidth)).omittedAt(0.0),
      FieldTable::field(42, FieldTable::kReal, offsetof(OdDb2dVertex, m_bulge)).omittedAt(0.0),
      FieldTable::flags(70, offsetof(OdDb2dVertex, m_flags)),
      FieldTable::field(50, FieldTable::kAngle, offsetof(OdDb2dVertex, m_tangent))
          .writtenWhenFlagged(kTangentUsed),
  });
  return FieldTable(kFields, this);
}
