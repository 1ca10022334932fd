// A result buffer: one value tagged with a result type (a group code), linked into a chain. Chains
// carry extended data, extension records and the saved state of block references.
#pragma once

#include <cstdint>
#include <variant>

#include "platform/base/OdBinaryData.h"
#include "platform/db/OdDbHandle.h"
#include "platform/db/OdDbObjectId.h"
#include "platform/ge/OdGePoint2d.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector3d.h"
#include "platform/resbuf/OdDxfCode.h"
#include "platform/rx/OdRxObject.h"

class OdResBuf;
using OdResBufPtr = OdSmartPtr<OdResBuf>;

class OdResBuf : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdResBuf);

 public:
  // Result types of values exchanged in memory (group codes cover the rest).
  enum ValueType {
    kRtNone = 5000,
    kRtDouble = 5001,
    kRtPoint2d = 5002,
    kRtInt16 = 5003,
    kRtAngle = 5004,
    kRtString = 5005,
    kRtEntName = 5006,
    kRtOrient = 5008,
    kRtPoint3d = 5009,
    kRtInt32 = 5010,
    kDxfBool = 290,
    kDxfSoftPointerId = 330,
  };

  OdResBuf() = default;
  ~OdResBuf() override;

  // A buffer of the given type holding that type's empty value (0, "", origin, null id).
  static OdResBufPtr newRb(int restype = kRtNone);
  // A buffer holding a value; eInvalidResBuf when the type does not hold that kind of value.
  static OdResBufPtr newRb(int restype, double value);
  static OdResBufPtr newRb(int restype, int value);
  static OdResBufPtr newRb(int restype, bool value);
  static OdResBufPtr newRb(int restype, const OdString& value);
  static OdResBufPtr newRb(int restype, const char* value);
  static OdResBufPtr newRb(int restype, const OdGePoint3d& value);
  static OdResBufPtr newRb(int restype, const OdGeVector3d& value);
  static OdResBufPtr newRb(int restype, const OdDbObjectId& value);

  int restype() const noexcept { return m_restype; }
  // Retypes the buffer. A value of the same kind is kept; otherwise it becomes the new kind's
  // empty value.
  void setRestype(int restype);

  // The chain. setNext replaces everything after this buffer and returns its argument, so that
  // chains can be built as a->setNext(b)->setNext(c); a link that would close a loop is refused.
  OdResBufPtr next() const { return m_next; }
  OdResBufPtr setNext(const OdResBufPtr& next);
  // The last buffer of the chain that starts here (this buffer when it has no next).
  OdResBufPtr last() const;
  // Splices the chain that starts at items in right after this buffer; returns items.
  OdResBufPtr insert(const OdResBufPtr& items);

  // Reading a value of another kind, or an integer that does not fit the requested width, raises
  // eInvalidResBuf. Integers of any width read as any wider integer.
  double getDouble() const;
  bool getBool() const;
  std::int8_t getInt8() const;
  std::int16_t getInt16() const;
  std::int32_t getInt32() const;
  std::int64_t getInt64() const;
  const OdString& getString() const;
  const OdGePoint3d& getPoint3d() const;
  OdGePoint2d getPoint2d() const;
  OdGeVector3d getVector3d() const;
  OdDbObjectId getObjectId() const;
  OdDbHandle getHandle() const;
  const OdBinaryData& getBinaryChunk() const;

  // Writing follows the same rule: the value must be of the buffer's kind and fit its width.
  void setDouble(double value);
  void setBool(bool value);
  void setInt8(std::int8_t value);
  void setInt16(std::int16_t value);
  void setInt32(std::int32_t value);
  void setInt64(std::int64_t value);
  void setString(const OdString& value);
  void setPoint3d(const OdGePoint3d& value);
  void setPoint2d(const OdGePoint2d& value);
  void setVector3d(const OdGeVector3d& value);
  void setObjectId(const OdDbObjectId& value);
  void setHandle(const OdDbHandle& value);
  void setBinaryChunk(const OdBinaryData& value);

  // Copies the type and value of another buffer; the chain links of neither change.
  void copyFrom(const OdRxObject* source) override;
  // A deep copy of the chain that starts here.
  OdResBufPtr copyChain() const;
  // Same type and same value: reals within 1e-10, points within the global point tolerance. The
  // rest of the chain is not compared.
  bool isEqualTo(const OdResBuf* other) const;

 private:
  using Value = std::variant<std::monostate, OdString, bool, std::int64_t, double, OdGePoint3d,
                             OdBinaryData, OdDbHandle, OdDbObjectId>;

  static Value emptyValue(OdDxfCode::Type type);
  OdDxfCode::Type type() const noexcept { return OdDxfCode::_getType(m_restype); }
  template <class T>
  const T& held(OdDxfCode::Type wanted) const;
  template <class T>
  void store(OdDxfCode::Type wanted, T value);
  std::int64_t getInteger(int bits) const;
  void setInteger(std::int64_t value);
  [[noreturn]] void throwWrongKind(const char* wanted) const;

  int m_restype = kRtNone;
  Value m_value;
  OdResBufPtr m_next;
};
