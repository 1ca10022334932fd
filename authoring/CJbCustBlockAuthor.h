// Authoring a new customizable block: the block definition and its entities, the elements of its
// evaluation graph (as a graph author), and at the end its registration as a master in the
// drawing's block storage. The graph joins the drawing only then, so nothing is held open while
// the block is being authored.
#pragma once

#include "authoring/CJbCustBlockGraphAuthor.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbEntity.h"

class CJbCustBlockAuthor : public CJbCustBlockGraphAuthor {
 public:
  // A new block of that name in the drawing, with an empty graph; eDuplicateKey when the drawing
  // has a block of that name already.
  CJbCustBlockAuthor(OdDbDatabase* database, const OdString& name);

  OdDbObjectId BlockId() const { return m_blockId; }

  OdDbObjectId AddEntity(OdDbEntity* entity);
  OdDbObjectId AddLine(const OdGePoint3d& from, const OdGePoint3d& to);
  OdDbObjectId AddPolyline(const OdArray<OdGePoint3d>& points, bool closed);
  // A closed polyline from `min` along x first.
  OdDbObjectId AddRectangle(const OdGePoint3d& min, const OdGePoint3d& max);
  // Angles in radians, counter-clockwise.
  OdDbObjectId AddArc(const OdGePoint3d& center, double radius, double start, double end);
  OdDbObjectId AddCircle(const OdGePoint3d& center, double radius);
  OdDbObjectId AddText(const OdGePoint3d& at, double height, const OdString& text);

  // Registers the block as a master owning the graph, and shows it as authored, in the first
  // states of its elements. Returns the block; OdError with the storage's reason when the block
  // cannot become customizable.
  OdDbObjectId Finish();

 private:
  CJbCustBlockAuthor(OdDbDatabase* database, const OdString& name, CJbDbCustBlockGraphPtr graph);

  OdDbDatabase* m_database;
  OdDbObjectId m_blockId;
  CJbDbCustBlockGraphPtr m_graph;
};
