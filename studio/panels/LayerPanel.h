// The drawing's layers with a switch each for on and for frozen. Switching changes the layer
// record and counts as an edit of the drawing, which every view then redraws.
#pragma once

#include <QWidget>

class DrawingDocument;
class QTreeWidget;
class QTreeWidgetItem;

class LayerPanel : public QWidget {
  Q_OBJECT

 public:
  // The columns of a layer's row.
  enum Column { kName = 0, kOn = 1, kFrozen = 2 };

  explicit LayerPanel(QWidget* parent = nullptr);
  // Lists the layers of `document`; none leaves the list empty.
  void setDocument(DrawingDocument* document);

 private:
  void refresh();
  void apply(QTreeWidgetItem* item, int column);

  DrawingDocument* m_document = nullptr;
  QTreeWidget* m_tree;
  bool m_filling = false;
};
