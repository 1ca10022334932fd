// Filing of simple entity kinds from their field tables.
#include "platform/db/entities/FieldTable.h"

#include "platform/base/OdError.h"
#include "platform/db/entities/EntityFiling.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector3d.h"

namespace {
using Field = FieldTable::Field;

template <typename T>
T& valueOf(const void* object, const Field& field) {
  return *reinterpret_cast<T*>(static_cast<char*>(const_cast<void*>(object)) + field.offset);
}

void readValue(OdDbDxfFiler* filer, const Field& field, const void* object) {
  switch (field.kind) {
    case FieldTable::kReal:
      valueOf<double>(object, field) = filer->rdDouble();
      break;
    case FieldTable::kAngle: {
      const double angle = EntityFiling::rdAngleDegrees(filer);
      valueOf<double>(object, field) = field.normalized ? OdGeAngle::normalize(angle) : angle;
      break;
    }
    case FieldTable::kPoint:
    case FieldTable::kOcsPoint:
      valueOf<OdGePoint3d>(object, field) = filer->rdPoint3d();
      break;
    case FieldTable::kVector:
      valueOf<OdGeVector3d>(object, field) = filer->rdVector3d();
      break;
    case FieldTable::kNormal:
      valueOf<OdGeVector3d>(object, field) = EntityFiling::rdNormal(filer);
      break;
    case FieldTable::kFlags:
      valueOf<int>(object, field) = filer->rdInt16() & ~static_cast<int>(field.bits);
      break;
    case FieldTable::kMarker:
      break;
  }
}

bool isDefault(const Field& field, const void* object) {
  switch (field.kind) {
    case FieldTable::kReal:
    case FieldTable::kAngle:
      return valueOf<double>(object, field) == field.defaultValue;
    case FieldTable::kNormal:
      return valueOf<OdGeVector3d>(object, field).isEqualTo(OdGeVector3d::kZAxis);
    case FieldTable::kFlags:
      return valueOf<int>(object, field) == static_cast<int>(field.defaultValue);
    default:
      return false;
  }
}

void writeValue(OdDbDxfFiler* filer, const Field& field, const void* object,
                const OdGeVector3d* normal) {
  switch (field.kind) {
    case FieldTable::kReal:
      filer->wrDouble(field.code, valueOf<double>(object, field));
      break;
    case FieldTable::kAngle:
      EntityFiling::wrAngleDegrees(filer, field.code, valueOf<double>(object, field));
      break;
    case FieldTable::kPoint:
      filer->wrPoint3d(field.code, valueOf<OdGePoint3d>(object, field));
      break;
    case FieldTable::kOcsPoint:
      filer->wrPoint3d(field.code,
                       EntityFiling::toOcs(*normal, valueOf<OdGePoint3d>(object, field)));
      break;
    case FieldTable::kVector:
    case FieldTable::kNormal:
      filer->wrVector3d(field.code, valueOf<OdGeVector3d>(object, field));
      break;
    case FieldTable::kFlags:
      filer->wrInt16(field.code,
                     static_cast<std::int16_t>(valueOf<int>(object, field) | field.bits));
      break;
    case FieldTable::kMarker:
      filer->wrSubclassMarker(OdString(field.marker));
      break;
  }
}
}  // namespace

void FieldTable::tooManyParts() {
  throw OdError(eInvalidInput, "a field table of more parts than it can hold");
}

std::uint64_t FieldTable::readSubclass(OdDbDxfFiler* filer, const Part& part, std::size_t first,
                                       std::size_t end, bool last) {
  std::uint64_t read = 0;
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    const int code = filer->nextItem();
    if (code == 100 && !last) {
      filer->pushBackItem();
      break;
    }
    for (std::size_t i = first; i < end; ++i) {
      if (part.fields[i].code != code) continue;
      readValue(filer, part.fields[i], part.object);
      read |= std::uint64_t{1} << i;
      break;
    }
  }
  return read;
}

void FieldTable::finishRead(const Part& part, std::uint64_t read) {
  const Field& first = part.fields[0];
  for (std::size_t i = 1; first.copies && i < part.count; ++i) {
    const Field& field = part.fields[i];
    if (!field.copiesPrevious || (read >> i & 1) != 0) continue;
    if (field.kind == kPoint || field.kind == kOcsPoint)
      valueOf<OdGePoint3d>(part.object, field) =
          valueOf<OdGePoint3d>(part.object, part.fields[i - 1]);
    else
      valueOf<double>(part.object, field) = valueOf<double>(part.object, part.fields[i - 1]);
  }
  if (!first.planeNormal) return;
  const OdGeVector3d& normal = valueOf<OdGeVector3d>(part.object, part.fields[first.planeNormal]);
  for (std::size_t i = 1; i < part.count; ++i) {
    if (part.fields[i].kind != kOcsPoint) continue;
    OdGePoint3d& point = valueOf<OdGePoint3d>(part.object, part.fields[i]);
    point = EntityFiling::toWcs(normal, point);
  }
}

OdResult FieldTable::dxfIn(OdDbDxfFiler* filer, const OdDbObject* owner) const {
  for (std::size_t p = 0; p < m_partCount; ++p) {
    const Part& part = m_parts[p];
    std::uint64_t read = 0;
    for (std::size_t first = 0; first < part.count; first = part.fields[first].end) {
      EntityFiling::requireSubclass(filer, owner, part.fields[first].marker);
      const std::size_t end = part.fields[first].end;
      // A marker that another follows at once holds no fields, and nothing may stand between.
      if (end > first + 1)
        read |=
            readSubclass(filer, part, first + 1, end, end == part.count && p + 1 == m_partCount);
    }
    if (part.fields[0].copies || part.fields[0].planeNormal) finishRead(part, read);
  }
  return eOk;
}

void FieldTable::dxfOut(OdDbDxfFiler* filer) const {
  for (std::size_t p = 0; p < m_partCount; ++p) {
    const Part& part = m_parts[p];
    const Field& first = part.fields[0];
    const OdDb::DwgVersion version = first.versioned ? filer->dwgVersion() : OdDb::kDHL_CURRENT;
    const OdGeVector3d* normal =
        first.planeNormal ? &valueOf<OdGeVector3d>(part.object, part.fields[first.planeNormal])
                          : nullptr;
    const int flags =
        first.flagsField ? valueOf<int>(part.object, part.fields[first.flagsField]) : 0;
    for (std::size_t i = 0; i < part.count; ++i) {
      const Field& field = part.fields[i];
      if (first.versioned && (version < field.since || version > field.until)) continue;
      if (field.write == Write::kUnlessDefault && isDefault(field, part.object)) continue;
      if (field.write == Write::kWhenFlagged && (flags & field.bits) == 0) continue;
      writeValue(filer, field, part.object, normal);
    }
  }
}

void FieldTable::dwgFile(OdDbDwgFiler* filer, bool in) const {
  for (std::size_t p = 0; p < m_partCount; ++p) {
    const Part& part = m_parts[p];
    for (std::size_t i = 0; i < part.count; ++i) {
      const Field& field = part.fields[i];
      switch (field.kind) {
        case kReal:
        case kAngle: {
          double& value = valueOf<double>(part.object, field);
          if (in)
            value = filer->rdDouble();
          else
            filer->wrDouble(value);
          break;
        }
        case kPoint:
        case kOcsPoint: {
          OdGePoint3d& value = valueOf<OdGePoint3d>(part.object, field);
          if (in)
            value = filer->rdPoint3d();
          else
            filer->wrPoint3d(value);
          break;
        }
        case kVector:
        case kNormal: {
          OdGeVector3d& value = valueOf<OdGeVector3d>(part.object, field);
          if (in)
            value = filer->rdVector3d();
          else
            filer->wrVector3d(value);
          break;
        }
        case kFlags: {
          int& value = valueOf<int>(part.object, field);
          if (in)
            value = filer->rdInt16();
          else
            filer->wrInt16(static_cast<std::int16_t>(value));
          break;
        }
        case kMarker:
          break;
      }
    }
  }
}
