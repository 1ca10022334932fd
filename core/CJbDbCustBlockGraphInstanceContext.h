// What every instance save and load hook receives: how the state is to be exchanged and the
// database it belongs to.
#pragma once

#include "platform/rx/OdRxObject.h"

class OdDbDatabase;

class CJbDbCustBlockGraphInstanceContext : public OdRxObject {
 public:
  enum Mode {
    kNoObjectIds = 1,
    kForEvaluate = 2,
    kComposingRequired = 4,
  };

  CJbDbCustBlockGraphInstanceContext(int mode, OdDbDatabase* database)
      : m_mode(mode), m_database(database) {}

  int GetMode() const { return m_mode; }
  // Object references are saved as object ids unless the mode says otherwise.
  bool IsObjectIdRequired() const { return (m_mode & kNoObjectIds) == 0; }
  // The state is saved or loaded around an evaluation.
  bool IsForEvaluate() const { return (m_mode & kForEvaluate) != 0; }
  // Elements compose their instance data on load and decompose it on save.
  bool IsComposingRequired() const { return (m_mode & kComposingRequired) != 0; }
  OdDbDatabase* GetDatabase() const { return m_database; }

 private:
  int m_mode;
  OdDbDatabase* m_database;
};

using CJbDbCustBlockGraphInstanceContextPtr = OdSmartPtr<CJbDbCustBlockGraphInstanceContext>;
