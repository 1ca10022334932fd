#include "studio/document/EntityIndex.h"

#include <algorithm>
#include <cmath>

#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"

namespace {
// About this many entities share a cell of a drawing spread evenly.
constexpr double kEntitiesPerCell = 4.0;
constexpr int kMaxSide = 1024;
// An entity over more cells than this is listed once, for every answer.
constexpr long kMaxCellsPerEntity = 256;

QRectF rectOf(const OdGeExtents3d& box) {
  return QRectF(QPointF(box.minPoint().x, box.minPoint().y),
                QPointF(box.maxPoint().x, box.maxPoint().y));
}

// Rectangles here are y-up boxes whose top is their least y; boxes without area count.
bool meets(const QRectF& a, const QRectF& b) {
  return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() &&
         b.top() <= a.bottom();
}

bool holds(const QRectF& outer, const QRectF& inner) {
  return outer.left() <= inner.left() && inner.right() <= outer.right() &&
         outer.top() <= inner.top() && inner.bottom() <= outer.bottom();
}
}  // namespace

bool EntityIndex::extentsOf(const OdDbEntity* entity, QRectF& extents) {
  OdGeExtents3d all;
  OdGeExtents3d box;
  if (entity->getGeomExtents(box) == eOk && box.isValidExtents()) all.addExt(box);
  if (const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(entity);
      !reference.isNull()) {
    for (OdDbObjectIteratorPtr it = reference->attributeIterator(); !it->done(); it->step()) {
      const OdDbEntityPtr attribute = it->entity();
      if (!attribute.isNull() && attribute->getGeomExtents(box) == eOk && box.isValidExtents())
        all.addExt(box);
    }
  }
  if (!all.isValidExtents()) return false;
  extents = rectOf(all);
  return true;
}

EntityIndex::Entry EntityIndex::entryOf(const OdDbObjectId& id, const OdDbEntity* entity) const {
  Entry entry;
  entry.id = id;
  entry.bounded = extentsOf(entity, entry.box);
  return entry;
}

void EntityIndex::build(const OdDbObjectId& blockId) {
  m_block = blockId;
  m_entries.clear();
  m_slots.clear();
  m_live = 0;
  const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(blockId.openObject().get());
  if (!block.isNull()) {
    for (OdDbObjectIteratorPtr it = block->newIterator(); !it->done(); it->step()) {
      const OdDbEntityPtr entity = it->entity();
      if (entity.isNull()) continue;
      m_slots[it->objectId()] = static_cast<Slot>(m_entries.size());
      m_entries.push_back(entryOf(it->objectId(), entity.get()));
    }
  }
  m_live = m_entries.size();
  layOutGrid();
}

void EntityIndex::layOutGrid() {
  m_cells.clear();
  m_everywhere.clear();
  QRectF area;
  m_columns = m_rows = 0;
  if (extents(area)) {
    m_area = area;
    const double width = std::max(area.width(), 1e-9);
    const double height = std::max(area.height(), 1e-9);
    const double cells = std::max(1.0, static_cast<double>(m_live) / kEntitiesPerCell);
    m_cellSize = std::max(std::sqrt(width * height / cells), std::max(width, height) / kMaxSide);
    m_columns = std::clamp(static_cast<int>(std::ceil(width / m_cellSize)), 1, kMaxSide);
    m_rows = std::clamp(static_cast<int>(std::ceil(height / m_cellSize)), 1, kMaxSide);
    m_cells.resize(static_cast<std::size_t>(m_columns) * m_rows);
  }
  for (Slot slot = 0; slot < m_entries.size(); ++slot)
    if (m_entries[slot].live) place(slot);
}

bool EntityIndex::cellRange(const QRectF& box, int& column0, int& row0, int& column1,
                            int& row1) const {
  if (m_columns == 0 || !holds(m_area, box)) return false;
  const auto cell = [this](double value, double origin, int count) {
    return std::min(static_cast<int>((value - origin) / m_cellSize), count - 1);
  };
  column0 = cell(box.left(), m_area.left(), m_columns);
  column1 = cell(box.right(), m_area.left(), m_columns);
  row0 = cell(box.top(), m_area.top(), m_rows);
  row1 = cell(box.bottom(), m_area.top(), m_rows);
  return static_cast<long>(column1 - column0 + 1) * (row1 - row0 + 1) <= kMaxCellsPerEntity;
}

void EntityIndex::place(Slot slot) {
  Entry& entry = m_entries[slot];
  int column0 = 0, row0 = 0, column1 = 0, row1 = 0;
  entry.inCells = entry.bounded && cellRange(entry.box, column0, row0, column1, row1);
  if (!entry.inCells) {
    m_everywhere.push_back(slot);
    return;
  }
  for (int row = row0; row <= row1; ++row)
    for (int column = column0; column <= column1; ++column)
      m_cells[static_cast<std::size_t>(row) * m_columns + column].push_back(slot);
}

void EntityIndex::unplace(Slot slot) {
  const Entry& entry = m_entries[slot];
  const auto drop = [slot](std::vector<Slot>& list) {
    list.erase(std::remove(list.begin(), list.end(), slot), list.end());
  };
  int column0 = 0, row0 = 0, column1 = 0, row1 = 0;
  if (!entry.inCells || !cellRange(entry.box, column0, row0, column1, row1)) {
    drop(m_everywhere);
    return;
  }
  for (int row = row0; row <= row1; ++row)
    for (int column = column0; column <= column1; ++column)
      drop(m_cells[static_cast<std::size_t>(row) * m_columns + column]);
}

void EntityIndex::update(const OdDbObjectId& id) {
  OdDbObjectPtr object;
  const bool present = id.openObject(object) == eOk;
  const OdDbEntityPtr entity = present ? OdDbEntity::cast(object.get()) : OdDbEntityPtr();
  const bool belongs = !entity.isNull() && entity->ownerId() == m_block;
  const auto found = m_slots.find(id);
  Slot slot = 0;
  if (found == m_slots.end()) {
    if (!belongs) return;
    slot = static_cast<Slot>(m_entries.size());
    m_slots[id] = slot;
    m_entries.emplace_back();
    ++m_live;
  } else {
    slot = found->second;
    unplace(slot);
    if (!belongs) {
      m_entries[slot].live = false;
      m_slots.erase(found);
      --m_live;
      return;
    }
  }
  m_entries[slot] = entryOf(id, entity.get());
  place(slot);
  // Edits that carry entities off the grid make every answer longer: lay it out afresh.
  if (m_everywhere.size() > kMaxCellsPerEntity + m_live / 8) layOutGrid();
}

std::vector<EntityIndex::Slot> EntityIndex::candidates(const QRectF& world) const {
  std::vector<Slot> slots;
  // A region that holds the whole grid asks for everything; no need to visit the cells.
  if (m_columns == 0 || holds(world, m_area)) {
    for (Slot slot = 0; slot < m_entries.size(); ++slot)
      if (m_entries[slot].live) slots.push_back(slot);
    return slots;
  }
  if (m_seen.size() < m_entries.size()) m_seen.resize(m_entries.size(), 0);
  if (++m_round == 0) {
    std::fill(m_seen.begin(), m_seen.end(), 0);
    m_round = 1;
  }
  const auto take = [&](Slot slot) {
    if (m_seen[slot] == m_round) return;
    m_seen[slot] = m_round;
    slots.push_back(slot);
  };
  for (Slot slot : m_everywhere)
    take(slot);
  if (meets(world, m_area)) {
    const auto cell = [this](double value, double origin, int count) {
      return std::clamp(static_cast<int>(std::floor((value - origin) / m_cellSize)), 0, count - 1);
    };
    const int column0 = cell(world.left(), m_area.left(), m_columns);
    const int column1 = cell(world.right(), m_area.left(), m_columns);
    const int row0 = cell(world.top(), m_area.top(), m_rows);
    const int row1 = cell(world.bottom(), m_area.top(), m_rows);
    for (int row = row0; row <= row1; ++row)
      for (int column = column0; column <= column1; ++column)
        for (Slot slot : m_cells[static_cast<std::size_t>(row) * m_columns + column])
          take(slot);
  }
  std::sort(slots.begin(), slots.end());
  return slots;
}

std::vector<OdDbObjectId> EntityIndex::query(const QRectF& world) const {
  std::vector<OdDbObjectId> ids;
  for (Slot slot : candidates(world)) {
    const Entry& entry = m_entries[slot];
    if (!entry.bounded || meets(entry.box, world)) ids.push_back(entry.id);
  }
  return ids;
}

std::vector<OdDbObjectId> EntityIndex::inside(const QRectF& world) const {
  std::vector<OdDbObjectId> ids;
  for (Slot slot : candidates(world)) {
    const Entry& entry = m_entries[slot];
    if (entry.bounded && holds(world, entry.box)) ids.push_back(entry.id);
  }
  return ids;
}

bool EntityIndex::extents(QRectF& all) const {
  bool any = false;
  for (const Entry& entry : m_entries) {
    if (!entry.live || !entry.bounded) continue;
    all = any ? united(all, entry.box) : entry.box;
    any = true;
  }
  return any;
}

QRectF EntityIndex::united(const QRectF& a, const QRectF& b) {
  return QRectF(QPointF(std::min(a.left(), b.left()), std::min(a.top(), b.top())),
                QPointF(std::max(a.right(), b.right()), std::max(a.bottom(), b.bottom())));
}

bool EntityIndex::extentsOf(const OdDbObjectId& entity, QRectF& box) const {
  const auto found = m_slots.find(entity);
  if (found == m_slots.end() || !m_entries[found->second].bounded) return false;
  box = m_entries[found->second].box;
  return true;
}
