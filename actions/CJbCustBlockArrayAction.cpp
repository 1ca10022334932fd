// An action that fills its parameter's span with copies of its selection.
#include "actions/CJbCustBlockArrayAction.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "actions/CJbCustBlockArrayActionImpl.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "parameters/CJbCustBlockXYParameter.h"
#include "platform/base/OdError.h"
#include "platform/db/OdDbEntity.h"
#include "platform/db/OdDbWriteGuard.h"
#include "platform/db/cloning/OdDbIdMapping.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbMemoryDwgFiler.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/ge/OdGeConstants.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/host/CJbSystemServices.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockArrayAction, "JbCustBlockArrayAction",
                               CJbCustBlockAction)

namespace {

// One direction of the array: where it runs, how far apart the copies are, and how many places
// (the source's own included) it fills.
struct ArrayPass {
  OdGeVector3d direction;
  double spacing = 1.0;
  unsigned count = 0;
};

bool isValidSpacing(double spacing) {
  return std::isfinite(spacing) && spacing > 0.0;
}

// Stores a spacing of `action`, refusing one that is not positive and finite; a change below the
// value tolerance is none.
void storeDistance(const CJbCustBlockArrayAction& action, double& stored, double distance) {
  if (!isValidSpacing(distance)) {
    std::ostringstream text;
    text << "array distance must be a positive number, got " << distance;
    throw OdError(eInvalidInput, text.str());
  }
  if (std::fabs(distance - stored) <= OdGeConstants::kTolerance) return;
  action.AssertWriteEnabled();
  stored = distance;
}

void report(const std::string& text) {
  CJbSystemServices::Get()->ShowError(OdString(text.c_str()));
}

// The entities of the evaluated block that are copied: all but attribute definitions.
OdDbObjectIdArray copySources(const OdArray<OdDbObjectId>& currentEntities) {
  OdDbObjectIdArray sources;
  for (const OdDbObjectId& id : currentEntities) {
    OdDbObjectPtr object;
    if (id.openObject(object) != eOk || object->isKindOf(OdDbAttributeDefinition::desc())) continue;
    sources.append(id);
  }
  return sources;
}

// Counts the places of each pass; false, with a message, for a bad spacing or too many copies.
bool planPasses(ArrayPass (&passes)[2], unsigned sourceCount) {
  constexpr unsigned kMaxCopies = CJbCustBlockArrayAction::kMaxCopies;
  if (sourceCount == 0) return true;
  double places = 1.0;
  for (ArrayPass& pass : passes) {
    if (pass.direction.isZeroLength()) continue;
    if (!isValidSpacing(pass.spacing)) {
      std::ostringstream text;
      text << "array not made: its " << (&pass == passes ? "column" : "row")
           << " distance must be a positive number, got " << pass.spacing;
      report(text.str());
      return false;
    }
    // The tolerance keeps a span of exactly n spacings from truncating to n - 1.
    const double count =
        std::floor(pass.direction.length() / pass.spacing + OdGeContext::gTol.equalPoint());
    places *= std::max(count, 1.0);
    pass.count = count <= kMaxCopies + 1.0 ? static_cast<unsigned>(count) : 0;
  }
  const double copies = (places - 1.0) * sourceCount;
  if (copies <= kMaxCopies) return true;
  std::ostringstream text;
  text.precision(15);
  text << "array not made: it would create " << copies << " copies, more than the limit of "
       << kMaxCopies;
  report(text.str());
  return false;
}

// Copies the sources and the copies made so far to every further place of `pass`.
void copyAlong(const ArrayPass& pass, const OdDbObjectIdArray& sources,
               OdArray<OdDbObjectId>& copies) {
  if (pass.count <= 1) return;
  // The row pass copies the column copies too, which makes the grid.
  OdDbObjectIdArray originals(sources);
  originals.append(copies);
  OdDbObjectId owner;
  OdDbDatabase* database = nullptr;
  {
    const OdDbObjectPtr first = originals[0].safeOpenObject();
    owner = first->ownerId();
    database = first->database();
  }
  const OdGeVector3d unit = pass.direction.normal();
  copies.reserve(copies.length() + originals.length() * (pass.count - 1));
  // The first place goes through a deep clone; when that cloned nothing the originals own, the
  // other places are plain copies, which spares each of them the clone's id translation.
  bool plain = false;
  for (unsigned i = 1; i < pass.count && !plain; ++i) {
    OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
    database->deepCloneObjects(originals, owner, *mapping);
    const OdGeMatrix3d shift = OdGeMatrix3d::translation(unit * (pass.spacing * i));
    for (const OdDbObjectId& original : originals) {
      OdDbIdPair pair(original);
      if (!mapping->compute(pair) || !pair.isCloned() || !pair.isPrimary()) continue;
      copies.append(pair.value());
      const OdDbEntityPtr copy =
          OdDbEntity::cast(pair.value().safeOpenObject(OdDb::kForWrite).get());
      if (!copy.isNull()) copy->transformBy(shift);
    }
    plain = mapping->numPairs() == originals.length();
  }
  if (!plain || pass.count <= 2) return;
  // Each original is filed once; every further place reads its copies from that record.
  OdSmartPtr<OdDbMemoryDwgFiler> record =
      OdDbMemoryDwgFiler::createObject(database, OdDb::kCopyFiler);
  OdArray<OdRxClass*> classes;
  for (const OdDbObjectId& original : originals) {
    const OdDbObjectPtr object = original.safeOpenObject();
    object->dwgOutFields(record.get());
    classes.append(object->isA());
  }
  // Taken for write the way the deep clone takes it, whatever mode the caller holds it in.
  const OdDbWriteGuard ownerAccess(owner);
  const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(ownerAccess.get());
  for (unsigned i = 2; i < pass.count; ++i) {
    const OdGeMatrix3d shift = OdGeMatrix3d::translation(unit * (pass.spacing * i));
    record->seek(0, OdDb::kSeekFromStart);
    for (OdRxClass* cls : classes) {
      const OdDbEntityPtr copy = OdDbEntity::cast(cls->create().get());
      copy->dwgInFields(record.get());
      copy->transformBy(shift);
      copies.append(block->appendOdDbEntity(copy.get()));
    }
  }
}
}  // namespace

CJbCustBlockArrayAction::CJbCustBlockArrayAction()
    : CJbCustBlockAction(new CJbCustBlockArrayActionImpl) {}

CJbCustBlockArrayAction::~CJbCustBlockArrayAction() = default;

CJbCustBlockArrayActionImpl* CJbCustBlockArrayAction::ArrayImpl() const {
  return static_cast<CJbCustBlockArrayActionImpl*>(ActionImpl());
}

OdString CJbCustBlockArrayAction::GetBaseName() const {
  return odTranslate("custblock_element", "Pattern");
}

void CJbCustBlockArrayAction::ClearCopies() {
  CJbCustBlockArrayActionImpl& impl = *ArrayImpl();
  for (const OdDbObjectId& id : impl.m_copies) {
    // A copy already gone with its block needs no erasing.
    OdDbObjectPtr copy;
    if (id.openObject(copy, OdDb::kForWrite) == eOk) copy->erase();
  }
  impl.m_copies.clear();
}

bool CJbCustBlockArrayAction::BeginEvaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockAction::BeginEvaluate(context)) return false;
  ClearCopies();
  return true;
}

bool CJbCustBlockArrayAction::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockAction::Evaluate(context)) return false;
  ArrayImpl()->m_evaluated = true;
  return true;
}

bool CJbCustBlockArrayAction::EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  CJbCustBlockArrayActionImpl& impl = *ArrayImpl();
  const bool evaluated = impl.m_evaluated;
  impl.m_evaluated = false;
  if (!CJbCustBlockAction::EndEvaluate(context) || !evaluated) return false;
  const CJbCustBlockParameterPtr parameter = CJbCustBlockParameter::cast(ParameterNode().get());
  if (parameter.isNull()) return false;

  ArrayPass passes[2];
  passes[0].spacing = impl.m_columnDistance;
  passes[1].spacing = impl.m_rowDistance;
  const OdGePoint3d base = parameter->GetUpdatedPosition(0);
  if (parameter->isKindOf(CJbCustBlockXYParameter::desc())) {
    passes[0].direction = parameter->GetUpdatedPosition(2) - base;
    passes[1].direction = parameter->GetUpdatedPosition(3) - base;
  } else {
    passes[0].direction = parameter->GetUpdatedPosition(1) - base;
  }
  const bool makeCopies = !context || !context->IgnoreBlockEntities();
  const OdDbObjectIdArray sources =
      makeCopies ? copySources(impl.m_sets[0].currentEntities) : OdDbObjectIdArray();
  // Planned before anything moves, so a refused array leaves the block as it was.
  if (makeCopies && !planPasses(passes, sources.length())) return false;

  const OdGeVector3d displacement = base - parameter->GetCurrentPosition(0);
  if (!displacement.isZeroLength() &&
      !TransformSelection(context, 0, OdGeMatrix3d::translation(displacement)))
    return false;
  if (!makeCopies || sources.isEmpty()) return true;
  for (const ArrayPass& pass : passes)
    copyAlong(pass, sources, impl.m_copies);
  return true;
}

bool CJbCustBlockArrayAction::Reset(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockAction::Reset(context)) return false;
  ClearCopies();
  return true;
}

bool CJbCustBlockArrayAction::LoadInstance(OdResBufPtr& cursor,
                                           CJbDbCustBlockGraphInstanceContext* context) {
  if (!CJbCustBlockAction::LoadInstance(cursor, context)) return false;
  if (context && !context->IsObjectIdRequired()) return true;
  if (cursor.isNull() || cursor->restype() != OdResBuf::kRtInt32 || cursor->getInt32() < 0)
    return false;
  const int count = cursor->getInt32();
  cursor = cursor->next();
  OdArray<OdDbObjectId> copies;
  for (int i = 0; i < count; ++i) {
    if (cursor.isNull() || cursor->restype() != OdResBuf::kDxfSoftPointerId) return false;
    copies.append(cursor->getObjectId());
    cursor = cursor->next();
  }
  ArrayImpl()->m_copies = copies;
  return true;
}

OdResBufPtr CJbCustBlockArrayAction::SaveInstance(CJbDbCustBlockGraphInstanceContext* context) {
  OdResBufPtr chain = CJbCustBlockAction::SaveInstance(context);
  if (context && !context->IsObjectIdRequired()) return chain;
  const OdArray<OdDbObjectId>& copies = ArrayImpl()->m_copies;
  OdResBufPtr tail = chain->last();
  tail = tail->setNext(OdResBuf::newRb(OdResBuf::kRtInt32, static_cast<int>(copies.length())));
  for (const OdDbObjectId& id : copies)
    tail = tail->setNext(OdResBuf::newRb(OdResBuf::kDxfSoftPointerId, id));
  return chain;
}

bool CJbCustBlockArrayAction::NeedEvaluate() const {
  return true;
}

CJbCustBlockElement::Priority CJbCustBlockArrayAction::GetPriority() const {
  return kPriorityHigh;
}

OdResult CJbCustBlockArrayAction::dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) {
  const OdResult result = CJbCustBlockAction::dwgInFields(filer, graph);
  if (result != eOk) return result;
  try {
    const double column = filer->rdDouble();
    const double row = filer->rdDouble();
    ArrayImpl()->m_columnDistance = column;
    ArrayImpl()->m_rowDistance = row;
  } catch (const OdError& error) {
    return error.code();
  }
  return filer->filerStatus();
}

void CJbCustBlockArrayAction::dwgOutFields(OdDbDwgFiler* filer,
                                           const CJbDbCustBlockGraph* graph) const {
  CJbCustBlockAction::dwgOutFields(filer, graph);
  filer->wrDouble(ArrayImpl()->m_columnDistance);
  filer->wrDouble(ArrayImpl()->m_rowDistance);
}

bool CJbCustBlockArrayAction::HasParameterPointIndex() const {
  return false;
}

OdArray<OdRxClass*> CJbCustBlockArrayAction::GetAcceptableParameters() const {
  return OdArray<OdRxClass*>{CJbCustBlockLinearParameter::desc(),
                             CJbCustBlockPolarParameter::desc(), CJbCustBlockXYParameter::desc()};
}

double CJbCustBlockArrayAction::GetColumnDistance() const {
  AssertReadEnabled();
  return ArrayImpl()->m_columnDistance;
}

void CJbCustBlockArrayAction::SetColumnDistance(double distance) {
  storeDistance(*this, ArrayImpl()->m_columnDistance, distance);
}

double CJbCustBlockArrayAction::GetRowDistance() const {
  AssertReadEnabled();
  return ArrayImpl()->m_rowDistance;
}

void CJbCustBlockArrayAction::SetRowDistance(double distance) {
  storeDistance(*this, ArrayImpl()->m_rowDistance, distance);
}

OdArray<OdDbObjectId> CJbCustBlockArrayAction::GetCopies() const {
  AssertReadEnabled();
  return ArrayImpl()->m_copies;
}
