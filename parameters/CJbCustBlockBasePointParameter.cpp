// The parameter that marks a block's base point.
#include "parameters/CJbCustBlockBasePointParameter.h"

#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "parameters/CJbCustBlockBasePointParameterImpl.h"
#include "platform/db/OdDbEntity.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockBasePointParameter, "JbCustBlockBasePointParameter",
                               CJbCustBlockParameter)

namespace {
// The edit that evaluates a reference may hold it open for write; its steps share that opening.
OdDbObjectPtr openShared(const OdDbObjectId& id, OdDb::OpenMode mode) {
  OdDbObjectPtr object = id.openObjectShared(mode);
  return object.isNull() ? id.safeOpenObject(mode) : object;
}

// Moves the block's entities by `translate` and, when asked, the references the other way, so
// that the drawing looks the same with the new base point. `blockId` names the reference being
// evaluated or a block definition.
void relocate(const OdGeVector3d& translate, const CJbDbCustBlockGraphEvaluationContext& context) {
  const OdDbObjectId blockId = context.GetCurrentBlockId();
  OdDbObjectId recordId;
  OdDbObjectIdArray references;
  {
    const OdDbObjectPtr object = openShared(blockId, OdDb::kForRead);
    if (OdSmartPtr<OdDbBlockReference> reference = OdDbBlockReference::cast(object.get())) {
      references.append(blockId);
      recordId = reference->blockTableRecord();
    } else if (OdSmartPtr<OdDbBlockTableRecord> record = OdDbBlockTableRecord::cast(object.get())) {
      record->getBlockReferenceIds(references);
      recordId = blockId;
    } else {
      return;
    }
  }
  const OdSmartPtr<OdDbBlockTableRecord> record =
      OdDbBlockTableRecord::cast(recordId.safeOpenObject().get());
  if (!context.IgnoreBlockEntities()) {
    const OdGeMatrix3d shift = OdGeMatrix3d::translation(translate);
    for (OdDbObjectIteratorPtr it = record->newIterator(); !it->done(); it->step()) {
      OdSmartPtr<OdDbEntity> entity =
          OdDbEntity::cast(it->objectId().safeOpenObject(OdDb::kForWrite).get());
      if (!entity.isNull()) entity->transformBy(shift);
    }
  }
  if (!context.ModifyBlockReferences()) return;
  for (const OdDbObjectId& id : references) {
    OdSmartPtr<OdDbBlockReference> reference =
        OdDbBlockReference::cast(openShared(id, OdDb::kForWrite).get());
    const OdGeVector3d back = reference->blockTransform() * translate;
    reference->setPosition(reference->position() - back);
  }
}
}  // namespace

CJbCustBlockBasePointParameter::CJbCustBlockBasePointParameter()
    : CJbCustBlockParameter(new CJbCustBlockBasePointParameterImpl) {}

CJbCustBlockBasePointParameter::~CJbCustBlockBasePointParameter() = default;

CJbCustBlockBasePointParameterImpl* CJbCustBlockBasePointParameter::BasePointImpl() const {
  return static_cast<CJbCustBlockBasePointParameterImpl*>(ParameterImpl());
}

OdString CJbCustBlockBasePointParameter::GetBaseName() const {
  return odTranslate("custblock_element", "BasePoint");
}

bool CJbCustBlockBasePointParameter::EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  CJbCustBlockBasePointParameterImpl& impl = *BasePointImpl();
  const OdGeVector3d translate = OdGePoint3d::kOrigin - impl.m_points[0].updated;
  // A reset evaluates for no block and relocates nothing.
  if (!translate.isZeroLength() && impl.m_relocationEnabled && context &&
      !context->GetCurrentBlockId().isNull()) {
    relocate(translate, *context);
    impl.m_currentTranslate += translate;
    // The point is the block's origin now, so evaluating again relocates nothing more.
    impl.m_points[0].updated = OdGePoint3d::kOrigin;
  }
  return CJbCustBlockParameter::EndEvaluate(context);
}

bool CJbCustBlockBasePointParameter::Transform(const OdGeMatrix3d& matrix, bool) {
  if (matrix.isEqualTo(OdGeMatrix3d::kIdentity)) return true;
  AssertWriteEnabled();
  auto& point = BasePointImpl()->m_points[0];
  point.updated.transformBy(matrix);
  point.current.transformBy(matrix);
  return true;
}

bool CJbCustBlockBasePointParameter::LoadInstance(OdResBufPtr& cursor,
                                                  CJbDbCustBlockGraphInstanceContext* context) {
  if (!CJbCustBlockParameter::LoadInstance(cursor, context)) return false;
  if (cursor.isNull() || cursor->restype() != OdResBuf::kRtPoint3d) return false;
  BasePointImpl()->m_currentTranslate = cursor->getVector3d();
  cursor = cursor->next();
  return true;
}

OdResBufPtr CJbCustBlockBasePointParameter::SaveInstance(
    CJbDbCustBlockGraphInstanceContext* context) {
  OdResBufPtr chain = CJbCustBlockParameter::SaveInstance(context);
  chain->last()->setNext(
      OdResBuf::newRb(OdResBuf::kRtPoint3d, BasePointImpl()->m_currentTranslate));
  return chain;
}

bool CJbCustBlockBasePointParameter::IsValid() const {
  return true;
}

bool CJbCustBlockBasePointParameter::IsUnique() const {
  return true;
}

bool CJbCustBlockBasePointParameter::IsAlwaysVisible() const {
  return true;
}

CJbCustBlockElement::Priority CJbCustBlockBasePointParameter::GetPriority() const {
  return kPriorityHighest;
}

bool CJbCustBlockBasePointParameter::IsChain() const {
  return true;
}

unsigned CJbCustBlockBasePointParameter::GetMaxPointCount() const {
  return 0;
}

OdResult CJbCustBlockBasePointParameter::dwgInFields(OdDbDwgFiler* filer,
                                                     CJbDbCustBlockGraph* graph) {
  const OdResult result = CJbCustBlockParameter::dwgInFields(filer, graph);
  if (result != eOk) return result;
  try {
    BasePointImpl()->m_relocationEnabled = filer->rdBool();
  } catch (const OdError& error) {
    return error.code();
  }
  return eOk;
}

void CJbCustBlockBasePointParameter::dwgOutFields(OdDbDwgFiler* filer,
                                                  const CJbDbCustBlockGraph* graph) const {
  CJbCustBlockParameter::dwgOutFields(filer, graph);
  filer->wrBool(BasePointImpl()->m_relocationEnabled);
}

OdGeVector3d CJbCustBlockBasePointParameter::GetCurrentTranslate() const {
  AssertReadEnabled();
  return BasePointImpl()->m_currentTranslate;
}

void CJbCustBlockBasePointParameter::SetCurrentTranslate(const OdGeVector3d& translate) {
  AssertReadEnabled();
  BasePointImpl()->m_currentTranslate = translate;
}

bool CJbCustBlockBasePointParameter::IsRelocationEnabled() const {
  AssertReadEnabled();
  return BasePointImpl()->m_relocationEnabled;
}

void CJbCustBlockBasePointParameter::SetRelocationEnabled(bool enabled) {
  if (BasePointImpl()->m_relocationEnabled == enabled) return;
  AssertWriteEnabled();
  BasePointImpl()->m_relocationEnabled = enabled;
}
