// One row of the module's class tables.
#include "core/CJbCustBlockKindRow.h"

namespace {
int familyRank(CJbCustBlockKindRow::Family family) {
  using Family = CJbCustBlockKindRow::Family;
  switch (family) {
    case Family::kOther:
      return 0;
    case Family::kParameter:
      return 1;
    case Family::kAction:
      return 2;
    case Family::kGrip:
      return 3;
  }
  return 0;
}
}  // namespace

int CJbCustBlockKindRow::Rank(const CJbCustBlockKindRow& row) {
  return static_cast<int>(row.stage) * 4 + familyRank(row.family);
}

CJbCustBlockKindRow::Properties CJbCustBlockKindRow::NoMoreProperties() {
  return {};
}
