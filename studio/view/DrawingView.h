// The view of one drawing's current space. The middle button pans and a double click with it
// shows everything, the wheel zooms about the cursor; the left button selects by click and by
// window, drags grips with a live preview of the reshaped block and the distance beside the
// cursor, and clicks flip and state grips (the latter offer their states in a menu). While a
// command waits for an answer, a left click answers with the point under the cursor.
#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

#include "platform/ge/OdGePoint3d.h"
#include "render/DrawingRenderer.h"
#include "studio/document/EntityIndex.h"
#include "studio/document/GripDrag.h"
#include "studio/view/DrawingPicture.h"
#include "studio/view/EntityHighlight.h"
#include "studio/view/EntityPicker.h"

class CommandSession;
class DrawingDocument;

class DrawingView : public QWidget {
  Q_OBJECT

 public:
  DrawingView(DrawingDocument* document, CommandSession* session, QWidget* parent = nullptr);
  ~DrawingView() override;

  DrawingDocument* document() const { return m_document; }
  // World XY to the view's pixels, y up.
  const QTransform& viewTransform() const { return m_view; }
  void setViewTransform(const QTransform& view);
  void zoomExtents();
  OdGePoint3d toWorld(const QPointF& device) const;
  QPointF toDevice(const OdGePoint3d& world) const;
  // The grips of the selection as drawn now.
  const std::vector<EntityGrip>& grips() const { return m_grips; }

  static QColor background() { return Qt::black; }
  // Pixels from a grip's centre that still take it.
  static constexpr int kGripReach = 7;
  // The pause after the last turn of the wheel before the picture is drawn at the new scale.
  static constexpr int kZoomSettleMilliseconds = 150;

 signals:
  void cursorMoved(const OdGePoint3d& world);
  // Something for the status line, such as a refused grip edit.
  void message(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  enum class Mode { kIdle, kPressed, kPanning, kWindow, kGripDrag };

  void onChanged(const std::vector<OdDbObjectId>& entities);
  void onSelectionChanged();
  void onSpaceChanged();

  const EntityGrip* gripAt(const QPointF& device) const;
  void beginGripDrag(const EntityGrip& grip);
  void endGripDrag(bool keep);
  void clickGrip(const EntityGrip& grip, const QPoint& globalPosition);
  void selectAt(const QPointF& device, bool add);
  void selectWindow(const QRect& band, bool add);

  void drawSelection(QPainter& painter);
  void drawPreview(QPainter& painter);
  void drawBand(QPainter& painter) const;
  void drawLabel(QPainter& painter) const;
  // The part of the view that a world box reaches, bleed included.
  QRect deviceArea(const QRectF& world) const;

  DrawingDocument* m_document;
  CommandSession* m_session;
  DrawingRenderer m_renderer;
  EntityIndex m_index;
  DrawingPicture m_picture;
  EntityPicker m_picker;
  EntityHighlight m_selectionHighlight;
  // Whether the selection's layer shows the selection now, under this view at this size.
  bool m_selectionShown = false;
  QTransform m_selectionView;
  QSize m_selectionSize;
  EntityHighlight m_previewHighlight;
  QTransform m_view;
  bool m_fitted = false;  // shown whole once it had a size
  // While the wheel turns, the last picture is shown scaled; it is drawn afresh once it stops.
  bool m_zooming = false;
  QTimer m_zoomSettle;

  std::vector<EntityGrip> m_grips;
  Mode m_mode = Mode::kIdle;
  QPoint m_pressed;
  QPoint m_cursor;
  std::optional<EntityGrip> m_pressedGrip;
  std::unique_ptr<GripDrag> m_drag;
  bool m_dragMoved = false;
};
