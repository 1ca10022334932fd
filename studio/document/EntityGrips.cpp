#include "studio/document/EntityGrips.h"

#include "platform/db/OdDbEntity.h"
#include "platform/rx/OdRxClass.h"

CJbGripPointsPEPtr EntityGrips::protocolOf(const OdDbObject* object) {
  return object ? CJbGripPointsPE::cast(object->isA()->getX(CJbGripPointsPE::desc()).get())
                : CJbGripPointsPEPtr();
}

std::vector<EntityGrip> EntityGrips::of(const std::vector<OdDbObjectId>& entities) {
  std::vector<EntityGrip> grips;
  for (const OdDbObjectId& id : entities) {
    OdDbObjectPtr object;
    if (id.openObject(object) != eOk) continue;
    const OdDbEntityPtr entity = OdDbEntity::cast(object.get());
    const CJbGripPointsPEPtr protocol = protocolOf(entity.get());
    if (protocol.isNull()) continue;
    const OdArray<CJbGripPointsPE::Grip> shown = protocol->GetGrips(entity.get());
    for (unsigned index = 0; index < shown.length(); ++index)
      grips.push_back({id, index, shown[index]});
  }
  return grips;
}

bool EntityGrips::positionOf(const OdDbObjectId& entity, unsigned index, OdGePoint3d& position) {
  for (const EntityGrip& grip : of({entity}))
    if (grip.index == index) {
      position = grip.grip.position;
      return true;
    }
  return false;
}

bool EntityGrips::isClicked(int kind) {
  return kind == CJbGripPointsPE::kFlip || kind == CJbGripPointsPE::kState;
}

CJbGripPointsPEPtr EntityGrips::protocolOf(const OdDbObjectId& entity) {
  // The object closes again on return: the protocol's edits open the entity by id themselves.
  OdDbObjectPtr object;
  return entity.openObject(object) == eOk ? protocolOf(object.get()) : CJbGripPointsPEPtr();
}

bool EntityGrips::move(const OdDbObjectId& entity, unsigned index, const OdGeVector3d& offset) {
  const CJbGripPointsPEPtr protocol = protocolOf(entity);
  return !protocol.isNull() && protocol->MoveGrip(entity, index, offset);
}

bool EntityGrips::click(const EntityGrip& grip, int state) {
  const CJbGripPointsPEPtr protocol = protocolOf(grip.entity);
  return !protocol.isNull() && protocol->ClickGrip(grip.entity, grip.index, state);
}

OdArray<OdString> EntityGrips::states(const EntityGrip& grip, int& current) {
  current = -1;
  OdDbObjectPtr object;
  if (grip.entity.openObject(object) != eOk) return OdArray<OdString>();
  const OdDbEntityPtr entity = OdDbEntity::cast(object.get());
  const CJbGripPointsPEPtr protocol = protocolOf(entity.get());
  return protocol.isNull() ? OdArray<OdString>()
                           : protocol->GetGripStates(entity.get(), grip.index, current);
}
