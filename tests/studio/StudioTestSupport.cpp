#include "StudioTestSupport.h"

#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMouseEvent>
#include <QProcess>
#include <QSettings>
#include <cstdio>

#include "platform/host/CJbCustBlocksModuleLoader.h"
#include "platform/rx/OdRxDynamicLinker.h"
#include "support/gui/ApplicationEnvironment.h"

namespace {
// Notes of the offscreen platform about what it cannot do are noise in a test log.
void quietQtNotes(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type != QtDebugMsg && type != QtInfoMsg && !message.startsWith("This plugin does not"))
    std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
}

// Widgets on the offscreen platform; settings (recent files) in a folder of the test run, not
// the user's.
class WidgetEnvironment : public ApplicationEnvironment<QApplication> {
 public:
  void SetUp() override {
    ApplicationEnvironment::SetUp();
    qInstallMessageHandler(quietQtNotes);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
  }

 private:
  QTemporaryDir m_settings;
};

::testing::Environment* const kWidgets = ::testing::AddGlobalTestEnvironment(new WidgetEnvironment);

QTemporaryDir* g_demo = nullptr;

QByteArray runJbcb(const QStringList& arguments) {
  QProcess process;
  process.start(JBCB_EXECUTABLE, arguments);
  EXPECT_TRUE(process.waitForFinished(120000)) << "jbcb did not finish";
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  return process.readAllStandardOutput();
}
}  // namespace

const OdGePoint3d StudioTest::kWidthGrip(900, -50, 0);

void StudioTest::SetUpTestSuite() {
  ASSERT_TRUE(CJbCustBlocksModuleLoader::Load(JBCB_BIN_DIR));
  if (!g_demo) {
    g_demo = new QTemporaryDir;
    runJbcb({"demo", "-o", g_demo->path()});
  }
}

void StudioTest::TearDownTestSuite() {
  OdRxDynamicLinker::instance().unloadModule("JbCustomizableBlocks");
}

void StudioTest::TearDown() {
  window.reset();
}

QString StudioTest::demoCopy() {
  if (!folder) folder = std::make_unique<QTemporaryDir>();
  const QString path = folder->filePath("demo.dxf");
  QFile::remove(path);
  EXPECT_TRUE(QFile::copy(g_demo->filePath("demo.dxf"), path));
  return path;
}

void StudioTest::openDemo() {
  window = std::make_unique<StudioMainWindow>();
  window->resize(1400, 900);
  ASSERT_TRUE(window->openFile(demoCopy()));
  window->show();
  QApplication::processEvents();
  tab = window->currentTab();
  view = tab->view();
  document = tab->document();
  view->setViewTransform(QTransform(0.5, 0, 0, -0.5, 100, 400));
}

OdDbObjectId StudioTest::entity(const char* handle) const {
  return document->entityOf(QString::fromLatin1(handle));
}

QPoint StudioTest::deviceOf(const OdGePoint3d& world) const {
  return view->toDevice(world).toPoint();
}

void StudioTest::mouse(QEvent::Type type, const QPoint& at, Qt::MouseButton button,
                       Qt::KeyboardModifiers modifiers) {
  const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
  QMouseEvent event(type, at, view->mapToGlobal(at),
                    type == QEvent::MouseMove ? Qt::NoButton : button, held, modifiers);
  QApplication::sendEvent(view, &event);
}

void StudioTest::click(const OdGePoint3d& world, Qt::KeyboardModifiers modifiers) {
  const QPoint at = deviceOf(world);
  mouse(QEvent::MouseButtonPress, at, Qt::LeftButton, modifiers);
  mouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, modifiers);
  QApplication::processEvents();
}

void StudioTest::drag(const QPoint& from, const QPoint& to, Qt::MouseButton button) {
  constexpr int kSteps = 5;
  mouse(QEvent::MouseButtonPress, from, button);
  for (int step = 1; step <= kSteps; ++step)
    mouse(QEvent::MouseMove, from + (to - from) * step / kSteps, button);
  mouse(QEvent::MouseButtonRelease, to, button);
  QApplication::processEvents();
}

QJsonObject StudioTest::valuesInFile(const QString& path, const char* handle) {
  const QJsonArray files =
      QJsonDocument::fromJson(runJbcb({"info", "--blocks", "--json", path})).array();
  for (const QJsonValue& file : files)
    for (const QJsonValue& reference : file.toObject()["references"].toArray())
      if (reference.toObject()["handle"].toString() == QLatin1String(handle))
        return reference.toObject()["values"].toObject();
  ADD_FAILURE() << "no reference " << handle << " in " << path.toStdString();
  return QJsonObject();
}
