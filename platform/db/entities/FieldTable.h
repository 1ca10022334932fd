// The fields of a simple entity kind declared once, as a table that DXF and binary filing walk.
// An entry is a subclass marker or a field: group code, in-memory kind, where the value lies in
// the object, how DXF writes it (always, unless at its default, or when the kind's flags call for
// it) and the file versions that have it. Entries follow the DXF order of the record; binary
// filing takes the fields in the same order. The fields of a subclass run up to the next marker,
// those of the last one to the end of the record.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/base/OdResult.h"
#include "platform/db/filers/OdDbDxfFiler.h"

class OdDbDwgFiler;
class OdDbObject;

class FieldTable {
 public:
  enum Kind : std::uint8_t {
    kMarker,    // a subclass marker
    kReal,      // double
    kAngle,     // double: radians in memory, degrees in DXF
    kPoint,     // OdGePoint3d
    kOcsPoint,  // OdGePoint3d: world coordinates in memory, the plane of the normal in DXF
    kVector,    // OdGeVector3d, filed as a point
    kNormal,    // OdGeVector3d of unit length; a zero vector reads as +Z
    kFlags,     // int, filed as a 16-bit integer
  };
  enum class Write : std::uint8_t {
    kAlways,
    kUnlessDefault,  // left out at its default (a normal's is +Z)
    kWhenFlagged,    // only when the kind's flags have one of bits
  };

  struct Field {
    std::string_view marker;
    std::size_t offset = 0;
    double defaultValue = 0.0;
    std::int16_t code = 0;
    Kind kind = kMarker;
    Write write = Write::kAlways;
    // Angles: read into [0, 2pi).
    bool normalized = false;
    // Read as the field before it when the record leaves it out.
    bool copiesPrevious = false;
    // Flags: bits every file sets and memory leaves out. kWhenFlagged: the flags that call for
    // the field.
    std::uint16_t bits = 0;
    OdDb::DwgVersion since = OdDb::vAC12;
    OdDb::DwgVersion until = OdDb::kDHL_CURRENT;
    // Worked out by compile: where a marker's subclass ends; on the first entry, whether some
    // field is not in every version, whether a read has fields to copy once the part is read,
    // the entry of the normal that points in the plane are taken out of, and the entry of the
    // flags (0 when there is none).
    std::uint8_t end = 0;
    bool versioned = false;
    bool copies = false;
    std::uint8_t planeNormal = 0;
    std::uint8_t flagsField = 0;

    constexpr Field omittedAt(double value = 0.0) const {
      Field field = *this;
      field.write = Write::kUnlessDefault;
      field.defaultValue = value;
      return field;
    }
    constexpr Field writtenWhenFlagged(std::uint16_t flags) const {
      Field field = *this;
      field.write = Write::kWhenFlagged;
      field.bits = flags;
      return field;
    }
    constexpr Field normalizedOnRead() const {
      Field field = *this;
      field.normalized = true;
      return field;
    }
    constexpr Field previousWhenAbsent() const {
      Field field = *this;
      field.copiesPrevious = true;
      return field;
    }
    constexpr Field inVersions(OdDb::DwgVersion first, OdDb::DwgVersion last) const {
      Field field = *this;
      field.since = first;
      field.until = last;
      return field;
    }
  };

  static constexpr Field marker(std::string_view name) {
    Field field;
    field.marker = name;
    return field;
  }
  // A field of kind (not a marker) at offset in the object.
  static constexpr Field field(int code, Kind kind, std::size_t offset) {
    Field field;
    field.code = static_cast<std::int16_t>(code);
    field.kind = kind;
    field.offset = offset;
    return field;
  }
  // fileBits: set in every file, left out in memory.
  static constexpr Field flags(int code, std::size_t offset, std::uint16_t fileBits = 0) {
    Field field = FieldTable::field(code, kFlags, offset);
    field.bits = fileBits;
    return field;
  }

  // The table of entries (starting with a marker), made once at compile time so that reading
  // does not look for what the entries say about one another.
  template <std::size_t N>
  static constexpr std::array<Field, N> compile(const Field (&entries)[N]) {
    static_assert(N <= 64, "the fields read are kept as the bits of one word");
    std::array<Field, N> table{};
    bool versioned = false;
    bool copies = false;
    bool planePoints = false;
    std::size_t normal = 0;
    std::size_t flags = 0;
    std::size_t end = N;
    for (std::size_t i = N; i-- > 0;) {
      table[i] = entries[i];
      versioned =
          versioned || entries[i].since != OdDb::vAC12 || entries[i].until != OdDb::kDHL_CURRENT;
      copies = copies || entries[i].copiesPrevious;
      planePoints = planePoints || entries[i].kind == kOcsPoint;
      if (entries[i].kind == kNormal) normal = i;
      if (entries[i].kind == kFlags) flags = i;
      if (entries[i].kind != kMarker) continue;
      table[i].end = static_cast<std::uint8_t>(end);
      end = i;
    }
    table[0].versioned = versioned;
    table[0].copies = copies;
    table[0].planeNormal = static_cast<std::uint8_t>(planePoints ? normal : 0);
    table[0].flagsField = static_cast<std::uint8_t>(flags);
    return table;
  }

  // No fields: the kind files itself by hand.
  FieldTable() = default;
  // A compiled table bound to the object its offsets are taken from.
  template <std::size_t N>
  FieldTable(const std::array<Field, N>& fields, const void* object) {
    then(fields, object);
  }
  // More fields, bound to another object (a part of the entity that other kinds share).
  template <std::size_t N>
  FieldTable& then(const std::array<Field, N>& fields, const void* object) {
    if (m_partCount == kMaxParts) tooManyParts();
    m_parts[m_partCount++] = {fields.data(), N, object};
    return *this;
  }

  // The subclasses after the entity's own, into the bound objects. A missing marker raises
  // eBadDxfSequence naming owner and the position.
  OdResult dxfIn(OdDbDxfFiler* filer, const OdDbObject* owner) const;
  void dxfOut(OdDbDxfFiler* filer) const;
  void dwgIn(OdDbDwgFiler* filer) const { dwgFile(filer, true); }
  void dwgOut(OdDbDwgFiler* filer) const { dwgFile(filer, false); }

 private:
  struct Part {
    const Field* fields;
    std::size_t count;
    // The table of an object being read is taken from the object itself, bound const because
    // writing needs it too.
    const void* object;
  };

  [[noreturn]] static void tooManyParts();
  // Binary filing: one walk that reads (in) or writes each value.
  void dwgFile(OdDbDwgFiler* filer, bool in) const;
  // The fields of fields[first, end) up to the next marker (or, last, the end of the record);
  // answers the bits of those read.
  static std::uint64_t readSubclass(OdDbDxfFiler* filer, const Part& part, std::size_t first,
                                    std::size_t end, bool last);
  // After a part is read: fields left out that copy the one before, and points in the plane of
  // the normal to world coordinates.
  static void finishRead(const Part& part, std::uint64_t read);

  static constexpr std::size_t kMaxParts = 2;
  // Only the first m_partCount are set: a table is made for every entity filed.
  Part m_parts[kMaxParts];
  std::size_t m_partCount = 0;
};
