// The desktop host's frames, painted as the screen gets them (the whole view rendered into a
// 1600x1000 picture on the offscreen platform): a 100,000-entity drawing drawn whole, panned by
// the middle button, zoomed by the wheel, drawn at a new scale and edited in one place; and the
// grip drag on the demo
// door, each step a real edit of the reference through the module and a repaint with its preview.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QProcess>
#include <QTemporaryDir>
#include <QWheelEvent>
#include <cmath>
#include <memory>
#include <stdexcept>

#include "ModuleBenchmarkMain.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbCircle.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "platform/db/entities/OdDbText.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "studio/document/CommandSession.h"
#include "studio/document/DrawingDocument.h"
#include "studio/view/DrawingView.h"

namespace {
constexpr int kEntities = 100000;
const QSize kFrame(1600, 1000);

template <class T>
void append(OdDbBlockTableRecord* block, OdSmartPtr<T>& entity) {
  block->appendOdDbEntity(entity.get());
  entity.release();
}

// Entity i of the large drawing, in its cell at `at`: half of them lines, then arcs, circles,
// polylines with a bulge, short texts and references of the symbol block.
OdDbEntityPtr sheetEntity(int i, const OdGePoint3d& at, const OdDbObjectId& symbol) {
  const int kind = i % 20;
  const OdGePoint3d middle = at + OdGeVector3d(12, 12, 0);
  if (kind < 10) {
    OdDbLinePtr line = OdDbLine::createObject();
    line->setStartPoint(at);
    line->setEndPoint(at + OdGeVector3d(20, 5 + i % 15, 0));
    return line;
  }
  if (kind < 13) {
    OdDbArcPtr arc = OdDbArc::createObject();
    arc->setCenter(middle);
    arc->setRadius(10);
    arc->setStartAngle(0.3);
    arc->setEndAngle(2.8);
    return arc;
  }
  if (kind < 16) {
    OdDbCirclePtr circle = OdDbCircle::createObject();
    circle->setCenter(middle);
    circle->setRadius(4 + i % 8);
    return circle;
  }
  if (kind < 18) {
    OdDbPolylinePtr polyline = OdDbPolyline::createObject();
    polyline->addVertexAt(0, OdGePoint2d(at.x, at.y));
    polyline->addVertexAt(1, OdGePoint2d(at.x + 20, at.y), 0.4);
    polyline->addVertexAt(2, OdGePoint2d(at.x + 20, at.y + 20));
    polyline->addVertexAt(3, OdGePoint2d(at.x, at.y + 20));
    polyline->setClosed(true);
    return polyline;
  }
  if (kind < 19) {
    OdDbTextPtr text = OdDbText::createObject();
    text->setPosition(at);
    text->setHeight(6);
    text->setTextString("A-12");
    return text;
  }
  OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
  reference->setBlockTableRecord(symbol);
  reference->setPosition(at);
  reference->setRotation(0.1 * (i % 7));
  return reference;
}

// 100,000 entities on a 10 by 10 metre sheet, in cells of 30 units: lines, arcs, circles,
// polylines with a bulge, short texts and references of a five-entity block.
OdDbDatabasePtr largeDrawing() {
  OdDbDatabasePtr database = OdDbDatabase::createObject();
  OdDbObjectId symbol;
  {
    OdSmartPtr<OdDbBlockTable> blocks(database->getBlockTableId().safeOpenObject(OdDb::kForWrite));
    OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::createObject();
    record->setName("Symbol");
    symbol = blocks->add(record.get());
    for (int i = 0; i < 4; ++i) {
      OdDbLinePtr line = OdDbLine::createObject();
      line->setStartPoint(OdGePoint3d(0, 4 * i, 0));
      line->setEndPoint(OdGePoint3d(16, 4 * i, 0));
      append(record.get(), line);
    }
    OdDbCirclePtr circle = OdDbCircle::createObject();
    circle->setCenter(OdGePoint3d(8, 6, 0));
    circle->setRadius(6);
    append(record.get(), circle);
  }
  OdDbBlockTableRecordPtr model(database->getModelSpaceId().safeOpenObject(OdDb::kForWrite));
  constexpr int kPerRow = 316;
  constexpr double kCell = 30;
  for (int i = 0; i < kEntities; ++i) {
    OdDbEntityPtr entity =
        sheetEntity(i, OdGePoint3d(kCell * (i % kPerRow), kCell * (i / kPerRow), 0), symbol);
    append(model.get(), entity);
  }
  return database;
}

// A view of a drawing at the frame's size, painted as a window paints it.
class Frames {
 public:
  explicit Frames(std::unique_ptr<DrawingDocument> document)
      : m_document(std::move(document)),
        m_session(m_document.get()),
        m_view(m_document.get(), &m_session),
        m_frame(kFrame, QImage::Format_ARGB32_Premultiplied) {
    m_view.resize(kFrame);
    m_view.zoomExtents();
  }
  void paint() { m_view.render(&m_frame); }
  void send(QEvent::Type type, const QPoint& at, Qt::MouseButton button) {
    QMouseEvent event(type, at, at, type == QEvent::MouseMove ? Qt::NoButton : button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
    QApplication::sendEvent(&m_view, &event);
  }
  void wheel(const QPoint& at, int delta) {
    QWheelEvent event(at, at, QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&m_view, &event);
  }
  DrawingDocument& document() { return *m_document; }
  DrawingView& view() { return m_view; }

 private:
  std::unique_ptr<DrawingDocument> m_document;
  CommandSession m_session;
  DrawingView m_view;
  QImage m_frame;
};

// Made once, and gone before the platform ends.
std::unique_ptr<Frames> g_large;

Frames& large() {
  if (!g_large)
    g_large = std::make_unique<Frames>(std::make_unique<DrawingDocument>(largeDrawing()));
  return *g_large;
}

// The large drawing shown whole, its picture drawn.
Frames& largeShownWhole() {
  Frames& frames = large();
  frames.view().zoomExtents();
  frames.paint();
  return frames;
}

// What a drawing's first frame costs once it is read: its entities indexed, then drawn whole.
void BM_FirstFrame(benchmark::State& state) {
  Frames& frames = large();
  for (auto _ : state) {
    frames.view().zoomExtents();
    frames.document().notifyChanged({});  // anything may have changed: indexed and drawn afresh
    frames.paint();
  }
}
BENCHMARK(BM_FirstFrame)->Unit(benchmark::kMillisecond)->Iterations(5)->UseRealTime();

// The middle button held and moved a few pixels per frame, back and forth.
void BM_RedrawPan(benchmark::State& state) {
  Frames& frames = largeShownWhole();
  QPoint at(800, 500);
  frames.send(QEvent::MouseButtonPress, at, Qt::MiddleButton);
  int step = 0;
  for (auto _ : state) {
    at += (step++ / 40) % 2 ? QPoint(-9, 5) : QPoint(9, -5);
    frames.send(QEvent::MouseMove, at, Qt::MiddleButton);
    frames.paint();
  }
  frames.send(QEvent::MouseButtonRelease, at, Qt::MiddleButton);
}
BENCHMARK(BM_RedrawPan)->Unit(benchmark::kMillisecond)->Iterations(200)->UseRealTime();

// The wheel turned a notch in, then out, about a point of the drawing: while it turns, each
// frame shows the last picture scaled.
void BM_RedrawWheel(benchmark::State& state) {
  Frames& frames = largeShownWhole();
  int turn = 0;
  for (auto _ : state) {
    frames.wheel(QPoint(600, 400), turn++ % 2 ? -120 : 120);
    frames.paint();
  }
}
BENCHMARK(BM_RedrawWheel)->Unit(benchmark::kMillisecond)->Iterations(100)->UseRealTime();

// A new scale, as the wheel settling or zoom to extents gives: the view drawn whole, every
// entity of the drawing in it every other frame.
void BM_RedrawRescaled(benchmark::State& state) {
  Frames& frames = large();
  frames.view().zoomExtents();
  const QTransform whole = frames.view().viewTransform();
  const QTransform closer = whole * QTransform::fromTranslate(-600, -400) *
                            QTransform::fromScale(1.2, 1.2) * QTransform::fromTranslate(600, 400);
  int turn = 0;
  for (auto _ : state) {
    frames.view().setViewTransform(turn++ % 2 ? whole : closer);
    frames.paint();
  }
}
BENCHMARK(BM_RedrawRescaled)->Unit(benchmark::kMillisecond)->Iterations(10)->UseRealTime();

// A line lengthened and shortened again: the region it covers is drawn again.
void BM_RedrawEdit(benchmark::State& state) {
  Frames& frames = largeShownWhole();
  const OdDbObjectId line =
      OdDbBlockTableRecordPtr(frames.document().database()->getModelSpaceId().safeOpenObject())
          ->newIterator()
          ->objectId();
  int step = 0;
  for (auto _ : state) {
    {
      OdDbLinePtr edited(line.safeOpenObject(OdDb::kForWrite));
      edited->setEndPoint(OdGePoint3d(step++ % 2 ? 600 : 20, 5, 0));
    }
    frames.document().notifyChanged({line});
    frames.paint();
  }
}
BENCHMARK(BM_RedrawEdit)->Unit(benchmark::kMillisecond)->Iterations(50)->UseRealTime();

// The demo's first door selected and its width grip dragged back and forth between widths of
// 1000 and 1100: each frame is one preview update, the edit through the module included.
void BM_GripDrag(benchmark::State& state) {
  QTemporaryDir folder;
  QProcess jbcb;
  jbcb.start(JBCB_EXECUTABLE, {"demo", "-o", folder.path()});
  if (!jbcb.waitForFinished(120000) || jbcb.exitCode() != 0)
    throw std::runtime_error("jbcb demo failed: " + jbcb.readAllStandardError().toStdString());
  Frames frames(DrawingDocument::open(folder.filePath("demo.dxf")));
  frames.view().setViewTransform(QTransform(0.5, 0, 0, -0.5, 100, 400));
  const OdDbObjectId door = frames.document().entityOf("12");
  frames.document().select({door});
  frames.paint();
  const auto device = [&](double x, double y) {
    return frames.view().toDevice(OdGePoint3d(x, y, 0)).toPoint();
  };
  frames.send(QEvent::MouseButtonPress, device(900, -50), Qt::LeftButton);
  int step = 0;
  for (auto _ : state) {
    frames.send(QEvent::MouseMove, device(step++ % 2 ? 1000 : 1100, -50), Qt::LeftButton);
    frames.paint();
  }
  frames.send(QEvent::MouseButtonRelease, device(1000, -50), Qt::LeftButton);
  state.counters["updates_per_second"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_GripDrag)->Unit(benchmark::kMillisecond)->Iterations(300)->UseRealTime();
}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  return runBenchmarksWithModule(argc, argv, []() { g_large.reset(); });
}
