// The module's run-time classes in registration order.
#include "module/CJbCustBlockModuleClasses.h"

#include "actions/CJbCustBlockActionClasses.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "storage/CJbBlockInstanceGripPoints.h"
#include "storage/CJbCustBlockDeepCloneReactor.h"
#include "storage/CJbDbCustBlockStorage.h"

const CJbCustBlockKindTable& CJbCustBlockModuleClasses::Table() {
  static const CJbCustBlockKindTable table =
      Merge({&CJbCustBlockCoreClasses::Table(), &CJbCustBlockParameterClasses::Table(),
             &CJbCustBlockActionClasses::Table(), &StorageTable()});
  return table;
}

CJbCustBlockKindTable CJbCustBlockModuleClasses::Merge(
    std::initializer_list<const CJbCustBlockKindTable*> tables) {
  return CJbCustBlockKindTable::merged(tables, &CJbCustBlockKindRow::Rank);
}

const CJbCustBlockKindTable& CJbCustBlockModuleClasses::StorageTable() {
  using Row = CJbCustBlockKindRow;
  static const CJbCustBlockKindTable table = {
      Row::Of<CJbDbCustBlockStorage>(Row::Stage::kObject),
      Row::Of<CJbCustBlockDeepCloneReactor>(Row::Stage::kReactor),
      Row::Of<CJbBlockInstanceGripPoints>(Row::Stage::kExtension),
  };
  return table;
}
