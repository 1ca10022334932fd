#include "studio/view/DrawingView.h"

#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>

#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/host/CJbDraggingPreview.h"
#include "platform/host/OdQStringConversion.h"
#include "studio/document/CommandSession.h"
#include "studio/document/DrawingDocument.h"

namespace {
const QColor kSelectionColor(90, 170, 255);
const QColor kPreviewColor(255, 170, 40);
// A press that moves further than this before its release opens a window.
constexpr int kClickSlack = 4;
// Zoom per wheel notch.
constexpr double kZoomStep = 1.2;

std::vector<OdDbObjectId> toVector(const OdArray<OdDbObjectId>& ids) {
  return std::vector<OdDbObjectId>(ids.begin(), ids.end());
}
}  // namespace

DrawingView::DrawingView(DrawingDocument* document, CommandSession* session, QWidget* parent)
    : QWidget(parent),
      m_document(document),
      m_session(session),
      m_renderer(document->database(), background()),
      m_picture(m_renderer, m_index, background()),
      m_picker(m_renderer, m_index),
      m_selectionHighlight(kSelectionColor),
      m_previewHighlight(kPreviewColor) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMinimumSize(200, 150);
  m_zoomSettle.setSingleShot(true);
  m_zoomSettle.setInterval(kZoomSettleMilliseconds);
  connect(&m_zoomSettle, &QTimer::timeout, this, [this]() {
    m_zooming = false;
    update();
  });
  m_index.build(document->space());
  connect(document, &DrawingDocument::changed, this, &DrawingView::onChanged);
  connect(document, &DrawingDocument::edited, this, &DrawingView::onChanged);
  connect(document, &DrawingDocument::selectionChanged, this, &DrawingView::onSelectionChanged);
  connect(document, &DrawingDocument::spaceChanged, this, &DrawingView::onSpaceChanged);
}

DrawingView::~DrawingView() = default;

void DrawingView::setViewTransform(const QTransform& view) {
  m_view = view;
  m_fitted = true;
  m_zooming = false;
  m_zoomSettle.stop();
  update();
}

void DrawingView::zoomExtents() {
  QRectF box;
  OdGeExtents3d extents;
  if (m_index.extents(box))
    extents.set(OdGePoint3d(box.left(), box.top(), 0), OdGePoint3d(box.right(), box.bottom(), 0));
  setViewTransform(DrawingRenderer::fitTransform(extents, QSizeF(size())));
}

OdGePoint3d DrawingView::toWorld(const QPointF& device) const {
  const QPointF world = m_view.inverted().map(device);
  return OdGePoint3d(world.x(), world.y(), 0.0);
}

QPointF DrawingView::toDevice(const OdGePoint3d& world) const {
  return m_view.map(QPointF(world.x, world.y));
}

QRect DrawingView::deviceArea(const QRectF& world) const {
  constexpr int kBleed = DrawingPicture::kBleed;
  return m_view.mapRect(world).toAlignedRect().adjusted(-kBleed, -kBleed, kBleed, kBleed) & rect();
}

void DrawingView::onChanged(const std::vector<OdDbObjectId>& entities) {
  if (entities.empty()) {
    m_index.build(m_document->space());
    m_picture.invalidate();
  }
  for (const OdDbObjectId& id : entities) {
    QRectF before;
    if (m_index.extentsOf(id, before)) m_picture.invalidate(before);
    m_index.update(id);
    QRectF after;
    if (m_index.extentsOf(id, after)) m_picture.invalidate(after);
  }
  m_grips = EntityGrips::of(m_document->selection());
  m_selectionShown = false;
  update();
}

void DrawingView::onSelectionChanged() {
  m_grips = EntityGrips::of(m_document->selection());
  m_selectionShown = false;
  update();
}

void DrawingView::onSpaceChanged() {
  m_index.build(m_document->space());
  m_picture.invalidate();
  zoomExtents();
}

void DrawingView::resizeEvent(QResizeEvent*) {
  if (!m_fitted) zoomExtents();
}

void DrawingView::paintEvent(QPaintEvent*) {
  if (!m_fitted) zoomExtents();
  QPainter painter(this);
  painter.drawImage(
      0, 0, m_zooming ? m_picture.preview(m_view, size()) : m_picture.update(m_view, size()));
  drawSelection(painter);
  drawPreview(painter);
  std::vector<DrawingRenderer::Marker> markers;
  for (const EntityGrip& grip : m_grips)
    markers.push_back({grip.grip.position, DrawingRenderer::gripShape(grip.grip.kind)});
  m_renderer.setMarkers(std::move(markers));
  m_renderer.drawMarkers(painter, m_view);
  drawBand(painter);
  drawLabel(painter);
}

void DrawingView::drawSelection(QPainter& painter) {
  // The layer is kept while the selection, the drawing and the view stay as they were.
  if (m_selectionShown && m_selectionView == m_view && m_selectionSize == size()) {
    m_selectionHighlight.drawOn(painter);
    return;
  }
  m_selectionShown = true;
  m_selectionView = m_view;
  m_selectionSize = size();
  std::vector<OdDbObjectId> shown;
  QRectF area;
  bool bounded = true;
  for (const OdDbObjectId& id : m_document->selection()) {
    if (m_drag && id == m_drag->grip().entity) continue;  // its preview stands in for it
    QRectF box;
    if (!m_index.extentsOf(id, box))
      bounded = false;
    else
      area = shown.empty() ? box : EntityIndex::united(area, box);
    shown.push_back(id);
  }
  m_selectionHighlight.paint(shown.empty() ? QRect()
                             : bounded     ? deviceArea(area)
                                           : rect(),
                             m_view, [&](QPainter& layer, const QTransform& view) {
                               m_renderer.drawEntities(layer, shown, view);
                             });
  m_selectionHighlight.drawOn(painter);
}

void DrawingView::drawPreview(QPainter& painter) {
  if (!m_drag) return;
  OdDbObjectPtr object;
  if (m_drag->grip().entity.openObject(object) != eOk) return;
  const OdDbEntityPtr entity = OdDbEntity::cast(object.get());
  if (entity.isNull()) return;
  // What the module's dragging preview chooses to show of the entity, or the entity itself.
  const std::vector<OdDbObjectId> preview =
      toVector(CJbDraggingPreview::Get()->GetPreviewEntities(entity.get()));
  const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(entity.get());
  const bool throughReference =
      !reference.isNull() && !(preview.size() == 1 && preview.front() == entity->objectId());
  QRectF box;
  const QRect area = EntityIndex::extentsOf(entity.get(), box) ? deviceArea(box) : rect();
  m_previewHighlight.paint(area, m_view, [&](QPainter& layer, const QTransform& view) {
    if (throughReference)
      m_renderer.drawThroughReference(layer, reference.get(), preview, view);
    else
      m_renderer.drawEntities(layer, preview, view);
  });
  m_previewHighlight.drawOn(painter);
}

void DrawingView::drawBand(QPainter& painter) const {
  if (m_mode != Mode::kWindow) return;
  const QRect band = QRect(m_pressed, m_cursor).normalized();
  // Right to left crosses: dashed and green, as users of CAD programs know it.
  const bool crossing = m_cursor.x() < m_pressed.x();
  const QColor color = crossing ? QColor(80, 200, 120) : QColor(80, 140, 255);
  painter.setPen(QPen(color, 1.0, crossing ? Qt::DashLine : Qt::SolidLine));
  QColor fill = color;
  fill.setAlpha(40);
  painter.setBrush(fill);
  painter.drawRect(band);
}

void DrawingView::drawLabel(QPainter& painter) const {
  if (!m_drag || !m_dragMoved) return;
  const QString text = tr("%1: %2").arg(toQString(m_drag->grip().grip.name),
                                        QString::number(m_drag->displacement().length(), 'g', 8));
  const QFontMetrics metrics(font());
  QRect box = metrics.boundingRect(text).adjusted(-4, -2, 4, 2);
  box.moveTopLeft(m_cursor + QPoint(16, 16));
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(40, 40, 40, 220));
  painter.drawRoundedRect(box, 3, 3);
  painter.setPen(Qt::white);
  painter.drawText(box, Qt::AlignCenter, text);
}

const EntityGrip* DrawingView::gripAt(const QPointF& device) const {
  const EntityGrip* nearest = nullptr;
  double best = kGripReach;
  for (const EntityGrip& grip : m_grips) {
    const QPointF at = toDevice(grip.grip.position);
    const double distance = std::hypot(at.x() - device.x(), at.y() - device.y());
    if (distance <= best) {
      best = distance;
      nearest = &grip;
    }
  }
  return nearest;
}

void DrawingView::mousePressEvent(QMouseEvent* event) {
  m_cursor = event->pos();
  if (event->button() == Qt::MiddleButton) {
    m_mode = Mode::kPanning;
    m_pressed = event->pos();
    setCursor(Qt::ClosedHandCursor);
    return;
  }
  if (event->button() != Qt::LeftButton || m_mode != Mode::kIdle) return;
  if (m_session && m_session->isWaiting()) {
    const OdGePoint3d point = toWorld(event->localPos());
    m_session->submit(QStringLiteral("%1,%2").arg(point.x, 0, 'g', 12).arg(point.y, 0, 'g', 12));
    return;
  }
  m_pressed = event->pos();
  m_pressedGrip.reset();
  if (const EntityGrip* grip = gripAt(event->localPos())) {
    if (!EntityGrips::isClicked(grip->grip.kind)) {
      beginGripDrag(*grip);
      return;
    }
    m_pressedGrip = *grip;
  }
  m_mode = Mode::kPressed;
}

void DrawingView::mouseMoveEvent(QMouseEvent* event) {
  const QPoint moved = event->pos() - m_cursor;
  m_cursor = event->pos();
  emit cursorMoved(toWorld(event->localPos()));
  switch (m_mode) {
    case Mode::kPanning:
      setViewTransform(m_view * QTransform::fromTranslate(moved.x(), moved.y()));
      break;
    case Mode::kPressed:
      if (!m_pressedGrip && (event->pos() - m_pressed).manhattanLength() > kClickSlack) {
        m_mode = Mode::kWindow;
        update();
      }
      break;
    case Mode::kWindow:
      update();
      break;
    case Mode::kGripDrag:
      if (m_drag->moveTo(toWorld(event->localPos()))) {
        m_dragMoved = true;
        m_document->notifyChanged({m_drag->grip().entity});
      }
      update();
      break;
    case Mode::kIdle:
      break;
  }
}

void DrawingView::mouseReleaseEvent(QMouseEvent* event) {
  m_cursor = event->pos();
  if (event->button() == Qt::MiddleButton && m_mode == Mode::kPanning) {
    m_mode = Mode::kIdle;
    unsetCursor();
    return;
  }
  if (event->button() != Qt::LeftButton) return;
  const bool add = event->modifiers() & Qt::ShiftModifier;
  const Mode mode = m_mode;
  m_mode = Mode::kIdle;
  switch (mode) {
    case Mode::kGripDrag:
      endGripDrag(true);
      break;
    case Mode::kWindow:
      selectWindow(QRect(m_pressed, m_cursor).normalized(), add);
      update();
      break;
    case Mode::kPressed:
      if (m_pressedGrip)
        clickGrip(*m_pressedGrip, event->globalPos());
      else
        selectAt(event->localPos(), add);
      break;
    default:
      break;
  }
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton)
    zoomExtents();
  else
    QWidget::mouseDoubleClickEvent(event);
}

void DrawingView::wheelEvent(QWheelEvent* event) {
  const double notches = event->angleDelta().y() / 120.0;
  if (notches == 0.0) return;
  const double factor = std::pow(kZoomStep, notches);
  const QPointF at = event->position();
  // The world point under the cursor stays under it.
  setViewTransform(m_view * QTransform::fromTranslate(-at.x(), -at.y()) *
                   QTransform::fromScale(factor, factor) *
                   QTransform::fromTranslate(at.x(), at.y()));
  m_zooming = true;
  m_zoomSettle.start();
}

void DrawingView::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) {
    QWidget::keyPressEvent(event);
    return;
  }
  if (m_mode == Mode::kGripDrag) {
    m_mode = Mode::kIdle;
    endGripDrag(false);
  } else if (m_session && m_session->isRunning()) {
    m_session->cancel();
  } else {
    m_document->clearSelection();
  }
}

void DrawingView::beginGripDrag(const EntityGrip& grip) {
  m_drag = std::make_unique<GripDrag>(grip);
  m_dragMoved = false;
  m_mode = Mode::kGripDrag;
  // The entity leaves the picture and its highlight; its preview is drawn at every step.
  m_picture.setExcluded({grip.entity});
  m_selectionShown = false;
  update();
}

void DrawingView::endGripDrag(bool keep) {
  const OdDbObjectId entity = m_drag->grip().entity;
  if (!keep && m_dragMoved) m_drag->cancel();
  const bool moved = m_dragMoved;
  m_drag.reset();
  m_picture.setExcluded({});
  m_selectionShown = false;
  // Even a cancelled drag may have given a reference a block of its own.
  if (moved) m_document->notifyEdited({entity});
  update();
}

void DrawingView::clickGrip(const EntityGrip& grip, const QPoint& globalPosition) {
  int state = 0;
  if (grip.grip.kind == CJbGripPointsPE::kState) {
    int current = -1;
    const OdArray<OdString> states = EntityGrips::states(grip, current);
    if (states.isEmpty()) return;
    QMenu menu(this);
    for (unsigned i = 0; i < states.length(); ++i) {
      QAction* action = menu.addAction(toQString(states[i]));
      action->setCheckable(true);
      action->setChecked(static_cast<int>(i) == current);
      action->setData(static_cast<int>(i));
    }
    const QAction* chosen = menu.exec(globalPosition);
    if (!chosen) return;
    state = chosen->data().toInt();
  }
  if (!EntityGrips::click(grip, state)) {
    emit message(tr("The grip %1 refused the change.").arg(toQString(grip.grip.name)));
    return;
  }
  m_document->notifyEdited({grip.entity});
}

void DrawingView::selectAt(const QPointF& device, bool add) {
  const OdDbObjectId picked = m_picker.at(device, m_view);
  std::vector<OdDbObjectId> selection = add ? m_document->selection() : std::vector<OdDbObjectId>();
  if (!picked.isNull()) {
    const auto found = std::find(selection.begin(), selection.end(), picked);
    if (found == selection.end())
      selection.push_back(picked);
    else
      selection.erase(found);  // a second click with Shift takes it out again
  }
  m_document->select(std::move(selection));
}

void DrawingView::selectWindow(const QRect& band, bool add) {
  const bool crossing = m_cursor.x() < m_pressed.x();
  std::vector<OdDbObjectId> selection = add ? m_document->selection() : std::vector<OdDbObjectId>();
  for (const OdDbObjectId& id : m_picker.inWindow(QRectF(band), crossing, m_view))
    if (std::find(selection.begin(), selection.end(), id) == selection.end())
      selection.push_back(id);
  m_document->select(std::move(selection));
}
