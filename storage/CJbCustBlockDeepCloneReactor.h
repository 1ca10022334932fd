// Keeps customization with blocks that a clone operation copies: once the operation has cloned
// everything, every cloned master becomes a master of the destination with a copy of its graph,
// and every cloned instance block is registered as an instance with its state, ids translated.
// The module owns one and attaches it while it is loaded; the storage's own copies of blocks are
// not clone operations of the user and are left alone.
#pragma once

#include "platform/db/cloning/OdDbIdMapping.h"
#include "platform/db/cloning/OdRxEventReactor.h"

class CJbCustBlockDeepCloneReactor : public OdRxEventReactor {
  ODRX_DECLARE_MEMBERS(CJbCustBlockDeepCloneReactor);

 public:
  // While one lives on the thread, clone operations pass unobserved.
  class Suspension {
   public:
    Suspension();
    ~Suspension();
    Suspension(const Suspension&) = delete;
    Suspension& operator=(const Suspension&) = delete;
  };

  // Registers with the system event hub; does nothing when attached already.
  void Attach();
  void Detach();
  bool IsAttached() const;

  // The graphs of cloned masters are cloned here, so that the operation translates their ids.
  void beginDeepCloneXlation(OdDbIdMapping& mapping) override;
  void endDeepClone(OdDbIdMapping& mapping) override;

 private:
  static bool IsSuspended();
};
