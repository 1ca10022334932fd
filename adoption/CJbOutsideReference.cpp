#include "adoption/CJbOutsideReference.h"

#include <cerrno>
#include <cstdlib>

#include "adoption/CJbOutsideBlockReader.h"
#include "adoption/CJbOutsideRecord.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbDictionaryIterator.h"
#include "platform/db/OdDbUnknownObject.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"

namespace {
const char kRepresentationKey[] = "AcDbBlockRepresentation";
const char kDefinitionLinkKey[] = "AcDbRepData";
const char kCacheKey[] = "AppDataCache";
const char kStatesKey[] = "ACAD_ENHANCEDBLOCKDATA";
// The extended data an anonymous block of the other program names its definition with.
const char kBlockTagApplication[] = "AcDbBlockRepBTag";
constexpr int kDefinitionLinkCode = 340;
constexpr int kHandleCode = 1005;

OdDbDictionaryPtr dictionaryAt(const OdDbObjectId& id) {
  return OdDbDictionary::cast(id.openObjectShared(OdDb::kForRead).get());
}

// The dictionary `key` inside the dictionary `id`; null when either is missing.
OdDbDictionaryPtr subDictionary(const OdDbObjectId& id, const char* key) {
  const OdDbDictionaryPtr dictionary = dictionaryAt(id);
  return dictionary.isNull() ? OdDbDictionaryPtr() : dictionaryAt(dictionary->getAt(key));
}

OdDbDictionaryPtr representationOf(const OdDbObjectId& referenceId) {
  const OdDbObjectPtr reference = referenceId.openObjectShared(OdDb::kForRead);
  if (reference.isNull()) return OdDbDictionaryPtr();
  return subDictionary(reference->extensionDictionary(), kRepresentationKey);
}

bool isBlock(const OdDbObjectId& id) {
  return !OdDbBlockTableRecord::cast(id.openObjectShared(OdDb::kForRead).get()).isNull();
}

// The definition the reference's record names.
OdDbObjectId recordedDefinition(const OdDbObjectId& referenceId) {
  const OdDbDictionaryPtr representation = representationOf(referenceId);
  if (representation.isNull()) return OdDbObjectId();
  const OdDbUnknownObjectPtr link = OdDbUnknownObject::cast(
      representation->getAt(kDefinitionLinkKey).openObjectShared(OdDb::kForRead).get());
  if (link.isNull()) return OdDbObjectId();
  for (OdResBufPtr item = link->items(); !item.isNull(); item = item->next())
    if (item->restype() == kDefinitionLinkCode && isBlock(item->getObjectId()))
      return item->getObjectId();
  return OdDbObjectId();
}

// The definition an anonymous block of the other program names in its extended data.
OdDbObjectId taggedDefinition(const OdDbObjectId& blockId) {
  const OdDbObjectPtr block = blockId.openObjectShared(OdDb::kForRead);
  if (block.isNull()) return OdDbObjectId();
  for (OdResBufPtr item = block->xData(kBlockTagApplication); !item.isNull(); item = item->next()) {
    if (item->restype() != kHandleCode) continue;
    const OdDbObjectId id = block->database()->getOdDbObjectId(item->getHandle());
    return isBlock(id) ? id : OdDbObjectId();
  }
  return OdDbObjectId();
}
}  // namespace

const char* CJbOutsideReference::RecordKey() {
  return kRepresentationKey;
}

OdDbObjectId CJbOutsideReference::DefinitionOf(const OdDbObjectId& referenceId) {
  const OdDbBlockReferencePtr reference =
      OdDbBlockReference::cast(referenceId.openObjectShared(OdDb::kForRead).get());
  if (reference.isNull()) return OdDbObjectId();
  if (const OdDbObjectId recorded = recordedDefinition(referenceId); !recorded.isNull())
    return recorded;
  const OdDbObjectId block = reference->blockTableRecord();
  if (const OdDbObjectId tagged = taggedDefinition(block); !tagged.isNull()) return tagged;
  return CJbOutsideBlockReader::IsOutsideBlock(block) ? block : OdDbObjectId();
}

CJbOutsideReference CJbOutsideReference::Read(const OdDbObjectId& referenceId) {
  CJbOutsideReference reference;
  reference.m_referenceId = referenceId;
  reference.m_definitionId = DefinitionOf(referenceId);
  const OdDbDictionaryPtr representation = representationOf(referenceId);
  if (representation.isNull()) return reference;
  const OdDbDictionaryPtr cache = dictionaryAt(representation->getAt(kCacheKey));
  const OdDbDictionaryPtr states =
      cache.isNull() ? OdDbDictionaryPtr() : dictionaryAt(cache->getAt(kStatesKey));
  if (states.isNull()) return reference;
  for (OdDbDictionaryIteratorPtr it = states->newIterator(); !it->done(); it->next()) {
    const std::string key = it->name().str();
    char* end = nullptr;
    errno = 0;
    const long node = std::strtol(key.c_str(), &end, 10);
    if (errno == 0 && end != key.c_str() && *end == '\0' && node > 0 && node <= INT32_MAX)
      reference.m_states[static_cast<int>(node)] = it->objectId();
  }
  return reference;
}

CJbOutsideReference::ParameterState CJbOutsideReference::StateOf(
    const CJbOutsideBlock::Parameter& parameter) const {
  ParameterState state;
  const auto found = m_states.find(parameter.node);
  if (found == m_states.end()) {
    state.points = parameter.points;
    if (!parameter.states.empty()) state.visibilityState = parameter.states.front().name;
    return state;
  }
  CJbOutsideRecord record = CJbOutsideRecord::Of(found->second);
  record.Int(1071);
  record.Int(1071);
  record.Int(70);  // the release that recorded it, major
  record.Int(70);  // and minor
  if (parameter.kind == CJbOutsideBlock::ParameterKind::kVisibility) {
    state.points = {record.Point(10)};
    state.visibilityState = record.Text(1);
  } else {
    state.points = {record.Point(10), record.Point(10)};
    record.Point(10);  // the parameter's normal
    if (parameter.kind == CJbOutsideBlock::ParameterKind::kFlip)
      state.flipped = record.Int(70) != 0;
  }
  if (!record.AtEnd()) record.Fail("it holds more data than is understood");
  return state;
}
