// The host's dragging preview: decides what is drawn while an entity is dragged. Modules lend it
// override factories between their start and end; the newest factory that claims an entity wins.
#pragma once

#include <vector>

#include "platform/host/CJbDraggingPreviewFactory.h"

class CJbDraggingPreview {
 public:
  CJbDraggingPreview() = default;
  CJbDraggingPreview(const CJbDraggingPreview&) = delete;
  CJbDraggingPreview& operator=(const CJbDraggingPreview&) = delete;

  // Fails with eNullPtr for no factory and eDuplicateKey for one already added.
  void AddFactory(CJbDraggingPreviewFactory* factory);
  // Fails with eKeyNotFound for a factory that was not added.
  void RemoveFactory(CJbDraggingPreviewFactory* factory);
  const std::vector<CJbDraggingPreviewFactoryPtr>& Factories() const { return m_factories; }

  // What to draw for `dragged`: the entities of the newest factory that claims it, otherwise the
  // entity itself.
  OdArray<OdDbObjectId> GetPreviewEntities(const OdDbEntity* dragged) const;

  // The host's dragging preview, shared by the whole process.
  static CJbDraggingPreview* Get();

 private:
  std::vector<CJbDraggingPreviewFactoryPtr> m_factories;
};
