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
  explicit LayerPanel(QWidget* parent = nullptr);
  void setDocument(DrawingDocument* document);

  // The columns of a layer's row.
  enum Column { kName = 0, kOn = 1, kFrozen = 2 };

 private:
  void refresh();
  void apply(QTreeWidgetItem* item, int column);

  DrawingDocument* m_document = nullptr;
  QTreeWidget* m_tree;
  bool m_filling = false;
};
