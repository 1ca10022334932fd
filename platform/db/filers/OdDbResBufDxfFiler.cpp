// In-memory DXF filer over a result-buffer chain.
#include "platform/db/filers/OdDbResBufDxfFiler.h"

#include <string>

#include "platform/ge/OdGePoint2d.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector2d.h"
#include "platform/ge/OdGeVector3d.h"
#include "platform/resbuf/OdDxfCode.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbResBufDxfFiler, OdDbDxfFiler)

OdDbResBufDxfFiler::OdDbResBufDxfFiler() = default;

OdDbResBufDxfFilerPtr OdDbResBufDxfFiler::createObject(OdDbDatabase* database,
                                                       const OdResBufPtr& items) {
  OdDbResBufDxfFilerPtr filer = createObject();
  filer->m_database = database;
  filer->m_head = items;
  filer->m_tail = items.isNull() ? nullptr : items->last().get();
  filer->rewind();
  return filer;
}

void OdDbResBufDxfFiler::rewind() {
  m_current = nullptr;
  m_next = m_head.get();
  m_index = 0;
  m_status = eOk;
}

OdString OdDbResBufDxfFiler::describePosition() const {
  return OdString("item " + std::to_string(m_index));
}

int OdDbResBufDxfFiler::nextItem() {
  if (!m_next) {
    m_current = nullptr;
    return -1;
  }
  m_current = m_next;
  m_next = m_next->next().get();
  ++m_index;
  return m_current->restype();
}

void OdDbResBufDxfFiler::pushBackItem() {
  if (!m_current) return;
  m_next = m_current;
  m_current = nullptr;
  --m_index;
}

bool OdDbResBufDxfFiler::atEOF() {
  return m_next == nullptr;
}

const OdResBuf& OdDbResBufDxfFiler::current() {
  if (!m_current) {
    m_status = eEndOfFile;
    throw OdError(eEndOfFile, "DXF items: no current item to read at " + describePosition().str());
  }
  return *m_current;
}

OdString OdDbResBufDxfFiler::rdString() {
  return current().getString();
}
bool OdDbResBufDxfFiler::rdBool() {
  return current().getBool();
}
std::int8_t OdDbResBufDxfFiler::rdInt8() {
  return current().getInt8();
}
std::int16_t OdDbResBufDxfFiler::rdInt16() {
  return current().getInt16();
}
std::int32_t OdDbResBufDxfFiler::rdInt32() {
  return current().getInt32();
}
std::int64_t OdDbResBufDxfFiler::rdInt64() {
  return current().getInt64();
}
double OdDbResBufDxfFiler::rdDouble() {
  return current().getDouble();
}
OdGePoint2d OdDbResBufDxfFiler::rdPoint2d() {
  const OdGePoint3d point = current().getPoint3d();
  return OdGePoint2d(point.x, point.y);
}
OdGePoint3d OdDbResBufDxfFiler::rdPoint3d() {
  return current().getPoint3d();
}
OdGeVector2d OdDbResBufDxfFiler::rdVector2d() {
  const OdGePoint3d point = current().getPoint3d();
  return OdGeVector2d(point.x, point.y);
}
OdGeVector3d OdDbResBufDxfFiler::rdVector3d() {
  const OdGePoint3d point = current().getPoint3d();
  return OdGeVector3d(point.x, point.y, point.z);
}
OdDbObjectId OdDbResBufDxfFiler::rdObjectId() {
  return current().getObjectId();
}
OdDbHandle OdDbResBufDxfFiler::rdHandle() {
  const OdResBuf& item = current();
  if (OdDxfCode::_getType(item.restype()) != OdDxfCode::String) return item.getHandle();
  OdDbHandle handle;
  if (!OdDbHandle::fromAscii(item.getString().view(), handle)) {
    m_status = eInvalidInput;
    throw OdError(eInvalidInput, "DXF items: \"" + item.getString().str() + "\" at " +
                                     describePosition().str() + " is not a handle");
  }
  return handle;
}
OdBinaryData OdDbResBufDxfFiler::rdBinaryChunk() {
  return current().getBinaryChunk();
}
void OdDbResBufDxfFiler::nextRb(OdResBufPtr& item) {
  item.release();
  if (nextItem() < 0) return;
  item = OdResBuf::newRb(m_current->restype());
  item->copyFrom(m_current);
  item->setNext(nullptr);
}

void OdDbResBufDxfFiler::append(const OdResBufPtr& item) {
  if (m_tail)
    m_tail->setNext(item.get());
  else
    m_head = item;
  m_tail = item.get();
  if (!m_next && !m_current) m_next = m_head.get();
}

void OdDbResBufDxfFiler::wrString(int groupCode, const OdString& value) {
  append(OdResBuf::newRb(groupCode, value));
}
void OdDbResBufDxfFiler::wrBool(int groupCode, bool value) {
  append(OdResBuf::newRb(groupCode, value));
}
void OdDbResBufDxfFiler::wrInt8(int groupCode, std::int8_t value) {
  OdResBufPtr item = OdResBuf::newRb(groupCode);
  item->setInt8(value);
  append(item);
}
void OdDbResBufDxfFiler::wrInt16(int groupCode, std::int16_t value) {
  append(OdResBuf::newRb(groupCode, value));
}
void OdDbResBufDxfFiler::wrInt32(int groupCode, std::int32_t value) {
  append(OdResBuf::newRb(groupCode, value));
}
void OdDbResBufDxfFiler::wrInt64(int groupCode, std::int64_t value) {
  OdResBufPtr item = OdResBuf::newRb(groupCode);
  item->setInt64(value);
  append(item);
}
void OdDbResBufDxfFiler::wrDouble(int groupCode, double value, int) {
  append(OdResBuf::newRb(groupCode, value));
}
void OdDbResBufDxfFiler::wrPoint2d(int groupCode, const OdGePoint2d& value, int) {
  append(OdResBuf::newRb(groupCode, OdGePoint3d(value.x, value.y, 0.0)));
}
void OdDbResBufDxfFiler::wrPoint3d(int groupCode, const OdGePoint3d& value, int) {
  append(OdResBuf::newRb(groupCode, value));
}
void OdDbResBufDxfFiler::wrVector2d(int groupCode, const OdGeVector2d& value, int) {
  append(OdResBuf::newRb(groupCode, OdGePoint3d(value.x, value.y, 0.0)));
}
void OdDbResBufDxfFiler::wrVector3d(int groupCode, const OdGeVector3d& value, int) {
  append(OdResBuf::newRb(groupCode, OdGePoint3d(value.x, value.y, value.z)));
}
void OdDbResBufDxfFiler::wrObjectId(int groupCode, const OdDbObjectId& id) {
  append(OdResBuf::newRb(groupCode, id));
}
void OdDbResBufDxfFiler::wrHandle(int groupCode, const OdDbHandle& value) {
  // Handle codes of the object's own framing (5, 105) carry text.
  if (OdDxfCode::_getType(groupCode) == OdDxfCode::String) {
    append(OdResBuf::newRb(groupCode, value.ascii()));
    return;
  }
  OdResBufPtr item = OdResBuf::newRb(groupCode);
  item->setHandle(value);
  append(item);
}
void OdDbResBufDxfFiler::wrBinaryChunk(int groupCode, const std::uint8_t* data,
                                       std::uint32_t size) {
  OdResBufPtr item = OdResBuf::newRb(groupCode);
  item->setBinaryChunk(OdBinaryData(std::vector<unsigned char>(data, data + size)));
  append(item);
}
void OdDbResBufDxfFiler::writeRb(const OdResBuf* item) {
  if (!item) return;
  OdResBufPtr copy = OdResBuf::newRb(item->restype());
  copy->copyFrom(item);
  copy->setNext(nullptr);
  append(copy);
}
