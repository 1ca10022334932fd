// Registration of the storage's run-time classes.
#include "storage/CJbCustBlockStorageClasses.h"

#include "storage/CJbCustBlockDeepCloneReactor.h"
#include "storage/CJbDbCustBlockStorage.h"

void CJbCustBlockStorageClasses::RxInit() {
  CJbDbCustBlockStorage::rxInit();
  CJbCustBlockDeepCloneReactor::rxInit();
}

void CJbCustBlockStorageClasses::RxUninit() {
  CJbCustBlockDeepCloneReactor::rxUninit();
  CJbDbCustBlockStorage::rxUninit();
}
