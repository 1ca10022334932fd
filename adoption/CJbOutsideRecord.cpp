#include "adoption/CJbOutsideRecord.h"

#include "platform/base/OdError.h"
#include "platform/db/OdDbUnknownObject.h"
#include "platform/db/OdDbXrecord.h"

CJbOutsideRecord CJbOutsideRecord::Of(const OdDbObjectId& id) {
  const OdDbObjectPtr object = id.openObjectShared(OdDb::kForRead);
  const OdString handle = id.getHandle().ascii();
  if (const OdDbUnknownObjectPtr unknown = OdDbUnknownObject::cast(object.get()))
    return CJbOutsideRecord(unknown->dxfRecordName() + " " + handle, unknown->items());
  if (const OdDbXrecordPtr record = OdDbXrecord::cast(object.get()))
    return CJbOutsideRecord("XRECORD " + handle, record->rbChain());
  throw OdError(eNotThatKindOfClass,
                "object " + handle.str() + " is no object of another program's parametric blocks");
}

CJbOutsideRecord::CJbOutsideRecord(const OdString& what, const OdResBufPtr& items)
    : m_what(what), m_item(items) {}

void CJbOutsideRecord::Fail(const std::string& problem) const {
  throw OdError(eInvalidInput,
                m_what.str() + ", item " + std::to_string(m_position) + ": " + problem);
}

OdString CJbOutsideRecord::Reason(const OdError& error) {
  const std::string& text = error.description();
  const std::size_t colon = text.find(": ");
  return colon == std::string::npos ? text : text.substr(colon + 2);
}

OdResBufPtr CJbOutsideRecord::Take(int code) {
  if (AtEnd())
    Fail("expected group code " + std::to_string(code) + ", found the end of the object");
  if (m_item->restype() != code)
    Fail("expected group code " + std::to_string(code) + ", found " +
         std::to_string(m_item->restype()));
  const OdResBufPtr item = m_item;
  m_item = m_item->next();
  ++m_position;
  return item;
}

void CJbOutsideRecord::Subclass(const char* marker) {
  const OdString found = Text(100);
  if (found != marker) {
    --m_position;
    Fail("expected subclass " + std::string(marker) + ", found " + found.str());
  }
}

void CJbOutsideRecord::SkipTo(const char* marker) {
  while (!AtEnd() && !(m_item->restype() == 100 && m_item->getString() == marker)) {
    m_item = m_item->next();
    ++m_position;
  }
  Subclass(marker);
}

void CJbOutsideRecord::Skip(int code) {
  Take(code);
}

int CJbOutsideRecord::Int(int code) {
  return Read(code, "integer", [](const OdResBuf& item) { return int(item.getInt32()); });
}

double CJbOutsideRecord::Real(int code) {
  return Read(code, "real", [](const OdResBuf& item) { return item.getDouble(); });
}

OdString CJbOutsideRecord::Text(int code) {
  return Read(code, "text", [](const OdResBuf& item) { return item.getString(); });
}

OdGePoint3d CJbOutsideRecord::Point(int code) {
  return Read(code, "point", [](const OdResBuf& item) { return item.getPoint3d(); });
}

OdDbObjectId CJbOutsideRecord::Id(int code) {
  return Read(code, "object id", [](const OdResBuf& item) { return item.getObjectId(); });
}

OdGeVector3d CJbOutsideRecord::Vector(int xCode) {
  const double x = Real(xCode);
  const double y = Real(xCode + 1);
  return OdGeVector3d(x, y, Real(xCode + 2));
}

void CJbOutsideRecord::Expect(int code, int expected, const char* meaning) {
  const int found = Int(code);
  if (found != expected) {
    --m_position;
    Fail(std::string(meaning) + " " + std::to_string(found) + " is not understood (only " +
         std::to_string(expected) + " is)");
  }
}

int CJbOutsideRecord::Count(int code, int limit) {
  const int count = Int(code);
  if (count < 0 || count > limit) {
    --m_position;
    Fail("count " + std::to_string(count) + " under group code " + std::to_string(code) +
         " is out of range");
  }
  return count;
}
