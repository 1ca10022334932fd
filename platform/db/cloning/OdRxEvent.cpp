// System event hub.
#include "platform/db/cloning/OdRxEvent.h"

#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdRxEvent, OdRxObject)

OdRxEvent::OdRxEvent() = default;

OdRxEvent* odrxEvent() {
  static OdStaticRxObject<OdRxEvent> hub;
  return &hub;
}

void OdRxEvent::addReactor(OdRxEventReactor* reactor) {
  if (!reactor) throw OdError(eNullPtr, "addReactor on the event hub without a reactor");
  if (!hasReactor(reactor)) m_reactors.append(OdRxEventReactorPtr(reactor));
}

void OdRxEvent::removeReactor(OdRxEventReactor* reactor) {
  m_reactors.remove(OdRxEventReactorPtr(reactor));
}

bool OdRxEvent::hasReactor(const OdRxEventReactor* reactor) const {
  for (const auto& registered : m_reactors)
    if (registered.get() == reactor) return true;
  return false;
}

// Each notice goes to the reactors registered when it started, so a reactor may unregister itself.
void OdRxEvent::fireBeginDeepClone(OdDbDatabase* to, OdDbIdMapping& mapping) {
  const OdArray<OdRxEventReactorPtr> reactors = m_reactors;
  for (const auto& reactor : reactors)
    reactor->beginDeepClone(to, mapping);
}
void OdRxEvent::fireBeginDeepCloneXlation(OdDbIdMapping& mapping) {
  const OdArray<OdRxEventReactorPtr> reactors = m_reactors;
  for (const auto& reactor : reactors)
    reactor->beginDeepCloneXlation(mapping);
}
void OdRxEvent::fireEndDeepClone(OdDbIdMapping& mapping) {
  const OdArray<OdRxEventReactorPtr> reactors = m_reactors;
  for (const auto& reactor : reactors)
    reactor->endDeepClone(mapping);
}
void OdRxEvent::fireAbortDeepClone(OdDbIdMapping& mapping) {
  const OdArray<OdRxEventReactorPtr> reactors = m_reactors;
  for (const auto& reactor : reactors)
    reactor->abortDeepClone(mapping);
}
