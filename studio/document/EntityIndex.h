// The top-level entities of one block (model space or a layout) by where they lie, so that a view
// draws only what a region shows and finds what lies under the cursor without walking the whole
// drawing: a uniform grid over the drawing's extents lists each entity in every cell its extents
// meet. Entities without extents, far outside the grid or spanning much of it are kept in a list
// that every answer includes. Answers come in drawing order.
#pragma once

#include <QRectF>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/db/OdDbObjectId.h"

class OdDbEntity;

class EntityIndex {
 public:
  // Indexes the entities of the block, forgetting what was indexed before.
  void build(const OdDbObjectId& blockId);
  // Re-reads the extents of an entity after an edit: a new entity of the block joins the end of
  // the drawing order, an erased one leaves.
  void update(const OdDbObjectId& entity);

  // Entities whose extents meet `world` (XY), and those without extents.
  std::vector<OdDbObjectId> query(const QRectF& world) const;
  // Entities whose extents lie wholly inside `world`.
  std::vector<OdDbObjectId> inside(const QRectF& world) const;
  // What the indexed entities cover; false when none has extents.
  bool extents(QRectF& box) const;
  // The extents an entity had when last read; false when it is not indexed or has none.
  bool extentsOf(const OdDbObjectId& entity, QRectF& box) const;
  std::size_t size() const { return m_live; }

  // The XY extents of an entity with the attributes of a block reference, as drawn; false for
  // an entity without extents. A point's box has no area. Boxes have their least y on top.
  static bool extentsOf(const OdDbEntity* entity, QRectF& box);
  // The box around two boxes, those without area included (which QRectF::united drops).
  static QRectF united(const QRectF& a, const QRectF& b);

 private:
  struct Entry {
    OdDbObjectId id;
    QRectF box;
    bool bounded = false;  // the entity has extents
    bool live = true;
    bool inCells = false;
  };
  using Slot = std::uint32_t;

  void layOutGrid();
  void place(Slot slot);
  void unplace(Slot slot);
  Entry entryOf(const OdDbObjectId& id, const OdDbEntity* entity) const;
  // The cells a box covers, as column and row ranges; false when it does not lie inside the grid
  // or covers too many cells to list it in each.
  bool cellRange(const QRectF& box, int& column0, int& row0, int& column1, int& row1) const;
  // Slots whose boxes meet `world`, each once, in drawing order.
  std::vector<Slot> candidates(const QRectF& world) const;

  OdDbObjectId m_block;
  std::vector<Entry> m_entries;  // drawing order
  std::unordered_map<OdDbObjectId, Slot> m_slots;
  std::size_t m_live = 0;

  QRectF m_area;
  double m_cellSize = 1.0;
  int m_columns = 0;
  int m_rows = 0;
  std::vector<std::vector<Slot>> m_cells;
  std::vector<Slot> m_everywhere;
  // Marks against listing a slot twice in one answer.
  mutable std::vector<std::uint32_t> m_seen;
  mutable std::uint32_t m_round = 0;
};
