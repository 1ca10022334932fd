// Result buffers: typed values and the chains they form.
#include "platform/resbuf/OdResBuf.h"

#include <cmath>
#include <string>
#include <type_traits>

#include "platform/ge/OdGeConstants.h"
#include "platform/ge/OdGeTol.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdResBuf, OdRxObject)

namespace {
constexpr double kRealTolerance = OdGeConstants::kTolerance;

std::string withArticle(const char* kind) {
  const std::string name(kind);
  if (name == "no value") return name;
  const bool vowel = std::string("aeiou").find(name.front()) != std::string::npos;
  return (vowel ? "an " : "a ") + name;
}

int widthOf(OdDxfCode::Type type) {
  switch (type) {
    case OdDxfCode::Integer16:
      return 16;
    case OdDxfCode::Integer32:
      return 32;
    default:
      return 64;
  }
}

bool chainContains(const OdResBuf* start, const OdResBuf* target) {
  for (const OdResBuf* rb = start; rb; rb = rb->next().get()) {
    if (rb == target) return true;
  }
  return false;
}

// A new buffer of restype given its value through one of the typed setters.
template <class Setter, class Value>
OdResBufPtr newRbWith(int restype, Setter setter, const Value& value) {
  OdResBufPtr rb = OdResBuf::newRb(restype);
  (rb.get()->*setter)(value);
  return rb;
}

bool fits(std::int64_t value, int bits) {
  if (bits >= 64) return true;
  const std::int64_t limit = std::int64_t{1} << (bits - 1);
  return value >= -limit && value < limit;
}
}  // namespace

OdResBuf::~OdResBuf() {
  // Unlink the rest of the chain one buffer at a time: letting each buffer release its successor
  // would recurse once per item and overflow the stack on long chains.
  OdResBufPtr next = std::move(m_next);
  while (!next.isNull() && next->numRefs() == 1) {
    OdResBufPtr after = std::move(next->m_next);
    next = std::move(after);
  }
}

OdResBuf::Value OdResBuf::emptyValue(OdDxfCode::Type type) {
  switch (type) {
    case OdDxfCode::Unknown:
      return std::monostate();
    case OdDxfCode::String:
      return OdString();
    case OdDxfCode::Bool:
      return false;
    case OdDxfCode::Integer16:
    case OdDxfCode::Integer32:
    case OdDxfCode::Integer64:
      return std::int64_t{0};
    case OdDxfCode::Double:
      return 0.0;
    case OdDxfCode::Point:
      return OdGePoint3d();
    case OdDxfCode::BinaryChunk:
      return OdBinaryData();
    case OdDxfCode::Handle:
      return OdDbHandle();
    case OdDxfCode::ObjectId:
    case OdDxfCode::SoftPointerId:
    case OdDxfCode::HardPointerId:
    case OdDxfCode::SoftOwnershipId:
    case OdDxfCode::HardOwnershipId:
      return OdDbObjectId();
  }
  return std::monostate();
}

OdResBufPtr OdResBuf::newRb(int restype) {
  OdResBufPtr rb = createObject();
  rb->setRestype(restype);
  return rb;
}

OdResBufPtr OdResBuf::newRb(int restype, double value) {
  return newRbWith(restype, &OdResBuf::setDouble, value);
}
OdResBufPtr OdResBuf::newRb(int restype, int value) {
  return newRbWith(restype, &OdResBuf::setInt32, value);
}
OdResBufPtr OdResBuf::newRb(int restype, bool value) {
  return newRbWith(restype, &OdResBuf::setBool, value);
}
OdResBufPtr OdResBuf::newRb(int restype, const OdString& value) {
  return newRbWith(restype, &OdResBuf::setString, value);
}
OdResBufPtr OdResBuf::newRb(int restype, const char* value) {
  return newRbWith(restype, &OdResBuf::setString, OdString(value));
}
OdResBufPtr OdResBuf::newRb(int restype, const OdGePoint3d& value) {
  return newRbWith(restype, &OdResBuf::setPoint3d, value);
}
OdResBufPtr OdResBuf::newRb(int restype, const OdGeVector3d& value) {
  return newRbWith(restype, &OdResBuf::setVector3d, value);
}
OdResBufPtr OdResBuf::newRb(int restype, const OdDbObjectId& value) {
  return newRbWith(restype, &OdResBuf::setObjectId, value);
}

void OdResBuf::setRestype(int restype) {
  Value empty = emptyValue(OdDxfCode::_getType(restype));
  if (empty.index() != m_value.index()) m_value = std::move(empty);
  m_restype = restype;
}

OdResBufPtr OdResBuf::setNext(const OdResBufPtr& next) {
  if (chainContains(next.get(), this))
    throw OdError(eSelfReference, "linking result buffers would close the chain into a loop");
  m_next = next;
  return next;
}

OdResBufPtr OdResBuf::last() const {
  const OdResBuf* rb = this;
  while (!rb->m_next.isNull())
    rb = rb->m_next.get();
  return OdResBufPtr(rb);
}

OdResBufPtr OdResBuf::insert(const OdResBufPtr& items) {
  if (items.isNull()) return items;
  OdResBufPtr tail = items->last();
  if (chainContains(items.get(), this) || chainContains(m_next.get(), tail.get()))
    throw OdError(eSelfReference, "inserting result buffers would close the chain into a loop");
  tail->m_next = m_next;
  m_next = items;
  return items;
}

void OdResBuf::throwWrongKind(const char* wanted) const {
  throw OdError(eInvalidResBuf, "restype " + std::to_string(m_restype) + " holds " +
                                    withArticle(OdDxfCode::typeName(type())) + ", not " +
                                    withArticle(wanted));
}

template <class T>
const T& OdResBuf::held(OdDxfCode::Type wanted) const {
  const T* value = std::get_if<T>(&m_value);
  if (!value) throwWrongKind(OdDxfCode::typeName(wanted));
  return *value;
}

template <class T>
void OdResBuf::store(OdDxfCode::Type wanted, T value) {
  T* slot = std::get_if<T>(&m_value);
  if (!slot) throwWrongKind(OdDxfCode::typeName(wanted));
  *slot = std::move(value);
}

std::int64_t OdResBuf::getInteger(int bits) const {
  const auto* value = std::get_if<std::int64_t>(&m_value);
  if (!value) throwWrongKind("integer");
  if (!fits(*value, bits)) {
    throw OdError(eInvalidResBuf, "restype " + std::to_string(m_restype) + " holds " +
                                      std::to_string(*value) + ", which does not fit a " +
                                      std::to_string(bits) + "-bit integer");
  }
  return *value;
}

void OdResBuf::setInteger(std::int64_t value) {
  auto* slot = std::get_if<std::int64_t>(&m_value);
  if (!slot) throwWrongKind("integer");
  const int width = widthOf(type());
  if (!fits(value, width)) {
    throw OdError(eInvalidResBuf, "restype " + std::to_string(m_restype) + " holds a " +
                                      std::to_string(width) + "-bit integer; " +
                                      std::to_string(value) + " does not fit");
  }
  *slot = value;
}

double OdResBuf::getDouble() const {
  return held<double>(OdDxfCode::Double);
}
bool OdResBuf::getBool() const {
  return held<bool>(OdDxfCode::Bool);
}
std::int8_t OdResBuf::getInt8() const {
  return static_cast<std::int8_t>(getInteger(8));
}
std::int16_t OdResBuf::getInt16() const {
  return static_cast<std::int16_t>(getInteger(16));
}
std::int32_t OdResBuf::getInt32() const {
  return static_cast<std::int32_t>(getInteger(32));
}
std::int64_t OdResBuf::getInt64() const {
  return getInteger(64);
}
const OdString& OdResBuf::getString() const {
  return held<OdString>(OdDxfCode::String);
}
const OdGePoint3d& OdResBuf::getPoint3d() const {
  return held<OdGePoint3d>(OdDxfCode::Point);
}

OdGePoint2d OdResBuf::getPoint2d() const {
  const OdGePoint3d& p = getPoint3d();
  return OdGePoint2d(p.x, p.y);
}

OdGeVector3d OdResBuf::getVector3d() const {
  const OdGePoint3d& p = getPoint3d();
  return OdGeVector3d(p.x, p.y, p.z);
}

OdDbObjectId OdResBuf::getObjectId() const {
  return held<OdDbObjectId>(OdDxfCode::ObjectId);
}
OdDbHandle OdResBuf::getHandle() const {
  return held<OdDbHandle>(OdDxfCode::Handle);
}
const OdBinaryData& OdResBuf::getBinaryChunk() const {
  return held<OdBinaryData>(OdDxfCode::BinaryChunk);
}

void OdResBuf::setDouble(double value) {
  store(OdDxfCode::Double, value);
}
void OdResBuf::setBool(bool value) {
  store(OdDxfCode::Bool, value);
}
void OdResBuf::setInt8(std::int8_t value) {
  setInteger(value);
}
void OdResBuf::setInt16(std::int16_t value) {
  setInteger(value);
}
void OdResBuf::setInt32(std::int32_t value) {
  setInteger(value);
}
void OdResBuf::setInt64(std::int64_t value) {
  setInteger(value);
}
void OdResBuf::setString(const OdString& value) {
  store(OdDxfCode::String, value);
}
void OdResBuf::setPoint3d(const OdGePoint3d& value) {
  store(OdDxfCode::Point, value);
}
void OdResBuf::setPoint2d(const OdGePoint2d& value) {
  store(OdDxfCode::Point, OdGePoint3d(value.x, value.y, 0.0));
}
void OdResBuf::setVector3d(const OdGeVector3d& value) {
  store(OdDxfCode::Point, OdGePoint3d(value.x, value.y, value.z));
}
void OdResBuf::setObjectId(const OdDbObjectId& value) {
  store(OdDxfCode::ObjectId, value);
}
void OdResBuf::setHandle(const OdDbHandle& value) {
  store(OdDxfCode::Handle, value);
}
void OdResBuf::setBinaryChunk(const OdBinaryData& value) {
  store(OdDxfCode::BinaryChunk, value);
}

void OdResBuf::copyFrom(const OdRxObject* source) {
  OdRxObject::copyFrom(source);
  const auto* other = static_cast<const OdResBuf*>(source);
  m_restype = other->m_restype;
  m_value = other->m_value;
}

OdResBufPtr OdResBuf::copyChain() const {
  OdResBufPtr head = createObject();
  head->copyFrom(this);
  OdResBuf* tail = head.get();
  for (const OdResBuf* rb = m_next.get(); rb; rb = rb->m_next.get()) {
    tail->m_next = createObject();
    tail = tail->m_next.get();
    tail->copyFrom(rb);
  }
  return head;
}

bool OdResBuf::isEqualTo(const OdResBuf* other) const {
  if (!other) return false;
  if (other == this) return true;
  if (m_restype != other->m_restype || m_value.index() != other->m_value.index()) return false;
  return std::visit(
      [other](const auto& mine) -> bool {
        using T = std::decay_t<decltype(mine)>;
        const T& theirs = std::get<T>(other->m_value);
        if constexpr (std::is_same_v<T, std::monostate>) {
          return true;
        } else if constexpr (std::is_same_v<T, double>) {
          return std::fabs(mine - theirs) <= kRealTolerance;
        } else if constexpr (std::is_same_v<T, OdGePoint3d>) {
          return mine.isEqualTo(theirs, OdGeContext::gTol);
        } else {
          return mine == theirs;
        }
      },
      m_value);
}
