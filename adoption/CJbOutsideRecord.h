// The items of one object of another program's parametric blocks, read in their order. Each step
// names the group code it expects; an item of another code fails with an error that names the
// object, the item's position and what was expected and found, so that data the reader does not
// know is never taken for something else.
#pragma once

#include <string>

#include "platform/base/OdError.h"
#include "platform/db/OdDbObjectId.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector3d.h"
#include "platform/resbuf/OdResBuf.h"

class CJbOutsideRecord {
 public:
  // The items of an object kept unknown (after its common data) or of an extension record;
  // eNotThatKindOfClass when the id opens as neither.
  static CJbOutsideRecord Of(const OdDbObjectId& id);
  // `what` names the object in messages: "BLOCKLINEARPARAMETER 25D".
  CJbOutsideRecord(const OdString& what, const OdResBufPtr& items);

  const OdString& What() const { return m_what; }
  bool AtEnd() const { return m_item.isNull(); }
  bool At(int code) const { return !AtEnd() && m_item->restype() == code; }
  // The next item is the subclass marker `marker` (group code 100).
  void Subclass(const char* marker);
  // Steps past everything up to the subclass marker `marker`, which must come.
  void SkipTo(const char* marker);
  void Skip(int code);

  int Int(int code);
  double Real(int code);
  OdString Text(int code);
  OdGePoint3d Point(int code);
  OdDbObjectId Id(int code);
  // Three reals under consecutive codes from `xCode`, as one vector.
  OdGeVector3d Vector(int xCode);
  // An integer that must be `expected`; anything else is data this reader does not know.
  void Expect(int code, int expected, const char* meaning);
  // A count of at most `limit` items to follow.
  int Count(int code, int limit);

  // OdError (eInvalidInput) naming the object and the current item.
  [[noreturn]] void Fail(const std::string& problem) const;
  // What an error says, without the name of its code, as a reason shown to users reads.
  static OdString Reason(const OdError& error);

 private:
  // The next item, which must have `code`; the cursor moves past it.
  OdResBufPtr Take(int code);
  // The next item's value as `get` reads it; a value of another kind fails, naming `kind`.
  template <class Get>
  auto Read(int code, const char* kind, Get get) {
    const OdResBufPtr item = Take(code);
    try {
      return get(*item);
    } catch (const OdError&) {
      --m_position;
      Fail("group code " + std::to_string(code) + " holds no " + kind);
    }
  }

  OdString m_what;
  OdResBufPtr m_item;
  int m_position = 1;
};
