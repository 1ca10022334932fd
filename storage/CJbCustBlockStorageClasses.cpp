// Registration of the storage's run-time classes.
#include "storage/CJbCustBlockStorageClasses.h"

#include "storage/CJbBlockInstanceGripPoints.h"
#include "storage/CJbCustBlockDeepCloneReactor.h"
#include "storage/CJbDbCustBlockStorage.h"

void CJbCustBlockStorageClasses::RxInit() {
  CJbDbCustBlockStorage::rxInit();
  CJbCustBlockDeepCloneReactor::rxInit();
  CJbBlockInstanceGripPoints::rxInit();
}

void CJbCustBlockStorageClasses::RxUninit() {
  CJbBlockInstanceGripPoints::rxUninit();
  CJbCustBlockDeepCloneReactor::rxUninit();
  CJbDbCustBlockStorage::rxUninit();
}
