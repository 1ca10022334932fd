// Another application's round-trip data on blocks and references.
#include "storage/CJbCustBlockOutsideData.h"

#include "platform/db/OdDbDictionary.h"
#include "platform/host/CJbCustBlockConverterUtils.h"
#include "platform/host/CJbUtils.h"
#include "storage/CJbCustBlockObjectAccess.h"

namespace {
const char kEnhancedBlockKey[] = "ACAD_ENHANCEDBLOCK";
const char kRoundTripPurgePreventerKey[] = "AcDbDynamicBlockRoundTripPurgePreventer";
const char* const kOutsideApplications[] = {"AcDbBlockRepETag", "ACAD", "AcDbDynamicBlockGUID",
                                            "AcDbDynamicBlockTrueName",
                                            "AcDbDynamicBlockTrueName2"};
const char kBlockRepresentationKey[] = "AcDbBlockRepresentation";
constexpr int kApplicationNameCode = 1001;
}  // namespace

void CJbCustBlockOutsideData::RemoveFromBlock(OdDbBlockTableRecordPtr& block) {
  if (CJbCustBlockConverterUtils* converter = CJbCustBlockConverterUtils::Get()) {
    const OdDbObjectId blockId = block->objectId();
    block.release();
    converter->RemoveOutsideData(blockId);
    return;
  }
  const OdDbObjectId dictionaryId = block->extensionDictionary();
  if (!dictionaryId.isNull()) {
    if (OdDbDictionaryPtr dictionary =
            CJbCustBlockObjectAccess::Open<OdDbDictionary>(dictionaryId, OdDb::kForWrite)) {
      CJbCustBlockObjectAccess::Erase(dictionary->getAt(kEnhancedBlockKey));
      dictionary->remove(kEnhancedBlockKey);
      dictionary->remove(kRoundTripPurgePreventerKey);
    }
    block->releaseExtensionDictionary();
  }
  // Only applications the block carries: clearing one would register its name otherwise.
  for (const char* application : kOutsideApplications) {
    if (block->xData(application).isNull()) continue;
    block->setXData(OdResBuf::newRb(kApplicationNameCode, application).get());
  }
}

void CJbCustBlockOutsideData::RestoreReference(OdDbBlockReference* reference) {
  const OdDbObjectId dynamicBlockId = CJbUtils::GetDynBlockId(reference->objectId());
  if (dynamicBlockId.isValid()) reference->setBlockTableRecord(dynamicBlockId);
  const OdDbObjectId dictionaryId = reference->extensionDictionary();
  if (dictionaryId.isNull()) return;
  if (OdDbDictionaryPtr dictionary =
          CJbCustBlockObjectAccess::Open<OdDbDictionary>(dictionaryId, OdDb::kForWrite))
    dictionary->remove(kBlockRepresentationKey);
  reference->releaseExtensionDictionary();
}
