#include "platform/host/CJbDraggingPreview.h"

#include <algorithm>

#include "platform/db/OdDbEntity.h"

void CJbDraggingPreview::AddFactory(CJbDraggingPreviewFactory* factory) {
  if (!factory) throw OdError(eNullPtr, "AddFactory was given no factory");
  if (std::find(m_factories.begin(), m_factories.end(), factory) != m_factories.end())
    throw OdError(eDuplicateKey, "the dragging-preview factory is already added");
  m_factories.emplace_back(factory);
}

void CJbDraggingPreview::RemoveFactory(CJbDraggingPreviewFactory* factory) {
  const auto it = std::find(m_factories.begin(), m_factories.end(), factory);
  if (it == m_factories.end())
    throw OdError(eKeyNotFound, "RemoveFactory was given a factory that was never added");
  m_factories.erase(it);
}

OdArray<OdDbObjectId> CJbDraggingPreview::GetPreviewEntities(const OdDbEntity* dragged) const {
  OdArray<OdDbObjectId> entities;
  if (!dragged) return entities;
  for (auto it = m_factories.rbegin(); it != m_factories.rend(); ++it) {
    if ((*it)->GetPreviewEntities(dragged, entities)) return entities;
    entities.clear();
  }
  entities.append(dragged->objectId());
  return entities;
}

CJbDraggingPreview* CJbDraggingPreview::Get() {
  static CJbDraggingPreview preview;
  return &preview;
}
