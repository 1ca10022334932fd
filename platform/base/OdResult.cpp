#include "platform/base/OdResult.h"

const char* odResultName(OdResult res) {
  switch (res) {
#define JB_RESULT_NAME(code) \
  case code:                 \
    return #code;
    JB_RESULT_NAME(eOk)
    JB_RESULT_NAME(eNotImplementedYet)
    JB_RESULT_NAME(eNotApplicable)
    JB_RESULT_NAME(eInvalidInput)
    JB_RESULT_NAME(eInvalidIndex)
    JB_RESULT_NAME(eOutOfMemory)
    JB_RESULT_NAME(eNullPtr)
    JB_RESULT_NAME(eNullObjectId)
    JB_RESULT_NAME(eKeyNotFound)
    JB_RESULT_NAME(eDuplicateKey)
    JB_RESULT_NAME(eNotThatKindOfClass)
    JB_RESULT_NAME(eNotInitializedYet)
    JB_RESULT_NAME(eAlreadyInitialized)
    JB_RESULT_NAME(eHasDependents)
    JB_RESULT_NAME(eWrongDatabase)
    JB_RESULT_NAME(eWrongObjectType)
    JB_RESULT_NAME(eInvalidOwnerObject)
    JB_RESULT_NAME(eWasErased)
    JB_RESULT_NAME(eWasNotErased)
    JB_RESULT_NAME(ePermanentlyErased)
    JB_RESULT_NAME(eWasOpenForRead)
    JB_RESULT_NAME(eWasOpenForWrite)
    JB_RESULT_NAME(eWasOpenForNotify)
    JB_RESULT_NAME(eWasNotOpenForWrite)
    JB_RESULT_NAME(eNotOpenForRead)
    JB_RESULT_NAME(eNotOpenForWrite)
    JB_RESULT_NAME(eNotOpenForNotify)
    JB_RESULT_NAME(eAtMaxReaders)
    JB_RESULT_NAME(eSelfReference)
    JB_RESULT_NAME(eDuplicateRecordName)
    JB_RESULT_NAME(eInvalidExtents)
    JB_RESULT_NAME(eDegenerateGeometry)
    JB_RESULT_NAME(eCantOpenFile)
    JB_RESULT_NAME(eFileAccessErr)
    JB_RESULT_NAME(eFileWriteError)
    JB_RESULT_NAME(eEndOfFile)
    JB_RESULT_NAME(eIncompatibleVersion)
    JB_RESULT_NAME(eDLLLoadFailed)
    JB_RESULT_NAME(eMissingSymbol)
    JB_RESULT_NAME(eInvalidDxfCode)
    JB_RESULT_NAME(eMakeMeProxy)
    JB_RESULT_NAME(eDwgObjectImproperlyRead)
    JB_RESULT_NAME(eUnknownClass)
    JB_RESULT_NAME(eBadDxfSequence)
    JB_RESULT_NAME(eInvalidDxfFile)
    JB_RESULT_NAME(eInvalidResBuf)
    JB_RESULT_NAME(eAuditErrors)
#undef JB_RESULT_NAME
  }
  return "unknown result";
}
