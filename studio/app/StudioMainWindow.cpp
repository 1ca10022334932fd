#include "studio/app/StudioMainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>

#include "platform/base/OdError.h"
#include "platform/db/OdDbEntity.h"
#include "studio/app/DrawingTab.h"
#include "studio/app/RecentFiles.h"
#include "studio/panels/CommandLinePanel.h"
#include "studio/panels/LayerPanel.h"
#include "studio/panels/PropertyPalette.h"
#include "studio/view/DrawingView.h"

namespace {
// How long a status message stays.
constexpr int kMessageMilliseconds = 6000;
}  // namespace

StudioMainWindow::StudioMainWindow()
    : m_messagesInstalled(&m_messages),
      m_tabs(new QTabWidget(this)),
      m_palette(new PropertyPalette(this)),
      m_layers(new LayerPanel(this)),
      m_commandLine(new CommandLinePanel(this)),
      m_coordinates(new QLabel(this)) {
  setWindowTitle(tr("jbcb-studio"));
  m_tabs->setTabsClosable(true);
  m_tabs->setDocumentMode(true);
  setCentralWidget(m_tabs);
  statusBar()->addPermanentWidget(m_coordinates);
  createMenus();
  createDocks();
  connect(m_tabs, &QTabWidget::currentChanged, this, &StudioMainWindow::showCurrent);
  connect(m_tabs, &QTabWidget::tabCloseRequested, this, &StudioMainWindow::closeTab);
  connect(&m_messages, &HostMessages::message, m_commandLine, &CommandLinePanel::appendMessage);
  connect(m_palette, &PropertyPalette::message, this,
          [this](const QString& text) { statusBar()->showMessage(text, kMessageMilliseconds); });
  showCurrent();
}

StudioMainWindow::~StudioMainWindow() {
  // Drawings close before the message services go back to the platform's own.
  while (m_tabs->count() > 0)
    delete m_tabs->widget(0);
}

void StudioMainWindow::createMenus() {
  QMenu* file = menuBar()->addMenu(tr("&File"));
  file->addAction(tr("&Open..."), this, &StudioMainWindow::open, QKeySequence::Open);
  QMenu* recent = file->addMenu(tr("Open &Recent"));
  m_recent = new RecentFiles(recent, this);
  connect(m_recent, &RecentFiles::openRequested, this,
          [this](const QString& path) { openFile(path); });
  file->addAction(
      tr("&Save"), this, [this]() { save(currentTab()); }, QKeySequence::Save);
  file->addAction(
      tr("Save &As..."), this, [this]() { saveAs(currentTab()); }, QKeySequence::SaveAs);
  file->addAction(
      tr("&Close"), this, [this]() { closeTab(m_tabs->currentIndex()); }, QKeySequence::Close);
  file->addSeparator();
  file->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);

  m_viewMenu = menuBar()->addMenu(tr("&View"));
  m_viewMenu->addAction(tr("Zoom &Extents"), this, [this]() {
    if (DrawingTab* tab = currentTab()) tab->view()->zoomExtents();
  });
  m_viewMenu->addSeparator();
}

void StudioMainWindow::createDocks() {
  const auto dock = [&](QWidget* panel, const QString& title, const char* name,
                        Qt::DockWidgetArea area) {
    auto* widget = new QDockWidget(title, this);
    widget->setObjectName(QLatin1String(name));
    widget->setWidget(panel);
    addDockWidget(area, widget);
    m_viewMenu->addAction(widget->toggleViewAction());
    return widget;
  };
  QDockWidget* properties =
      dock(m_palette, tr("Properties"), "propertiesDock", Qt::RightDockWidgetArea);
  QDockWidget* layers = dock(m_layers, tr("Layers"), "layersDock", Qt::RightDockWidgetArea);
  QDockWidget* commands =
      dock(m_commandLine, tr("Command Line"), "commandLineDock", Qt::BottomDockWidgetArea);
  // The drawing gets the room: a palette column, a few lines of commands.
  resizeDocks({properties}, {340}, Qt::Horizontal);
  resizeDocks({properties, layers}, {600, 200}, Qt::Vertical);
  resizeDocks({commands}, {150}, Qt::Vertical);
}

DrawingTab* StudioMainWindow::currentTab() const {
  return qobject_cast<DrawingTab*>(m_tabs->currentWidget());
}

bool StudioMainWindow::openFile(const QString& path, QString* error) {
  std::unique_ptr<DrawingDocument> document;
  try {
    document = DrawingDocument::open(path);
  } catch (const OdError& failure) {
    const QString reason = tr("%1: %2").arg(path, QString::fromStdString(failure.description()));
    if (error)
      *error = reason;
    else
      QMessageBox::warning(this, tr("Open"), reason);
    return false;
  }
  auto* tab = new DrawingTab(std::move(document), m_tabs);
  DrawingDocument* opened = tab->document();
  connect(opened, &DrawingDocument::modifiedChanged, this, &StudioMainWindow::updateTitle);
  connect(tab->view(), &DrawingView::message, this,
          [this](const QString& text) { statusBar()->showMessage(text, kMessageMilliseconds); });
  connect(tab->view(), &DrawingView::cursorMoved, this, [this](const OdGePoint3d& at) {
    m_coordinates->setText(tr("%1, %2").arg(at.x, 0, 'f', 2).arg(at.y, 0, 'f', 2));
  });
  m_tabs->setCurrentIndex(m_tabs->addTab(tab, opened->title()));
  if (!opened->keepsForm())
    statusBar()->showMessage(tr("%1 is of a version that cannot be written; saving writes %2.")
                                 .arg(opened->title(), opened->formName()),
                             kMessageMilliseconds);
  m_recent->add(path);
  return true;
}

bool StudioMainWindow::selectHandle(const QString& handle, QString& error) {
  DrawingTab* tab = currentTab();
  if (!tab) {
    error = tr("no drawing is open to select %1 in").arg(handle);
    return false;
  }
  DrawingDocument* document = tab->document();
  try {
    const OdDbObjectId entity = document->entityOf(handle);
    document->setSpace(OdDbEntityPtr(entity.safeOpenObject())->ownerId());
    document->select({entity});
  } catch (const OdError& failure) {
    error = tr("%1: %2").arg(document->path(), QString::fromStdString(failure.description()));
    return false;
  }
  return true;
}

void StudioMainWindow::open() {
  const QStringList paths = QFileDialog::getOpenFileNames(this, tr("Open Drawing"), QString(),
                                                          tr("Drawings (*.dxf);;All files (*)"));
  for (const QString& path : paths)
    openFile(path);
}

bool StudioMainWindow::save(DrawingTab* tab) {
  if (!tab) return false;
  if (tab->document()->path().isEmpty()) return saveAs(tab);
  try {
    tab->document()->save();
  } catch (const OdError& failure) {
    QMessageBox::warning(this, tr("Save"), QString::fromStdString(failure.description()));
    return false;
  }
  statusBar()->showMessage(
      tr("Saved %1 as %2.").arg(tab->document()->title(), tab->document()->formName()),
      kMessageMilliseconds);
  return true;
}

bool StudioMainWindow::saveAs(DrawingTab* tab) {
  if (!tab) return false;
  const QString path = QFileDialog::getSaveFileName(
      this, tr("Save Drawing As"), tab->document()->path(), tr("Drawings (*.dxf)"));
  if (path.isEmpty()) return false;
  try {
    tab->document()->saveAs(path);
  } catch (const OdError& failure) {
    QMessageBox::warning(this, tr("Save As"), QString::fromStdString(failure.description()));
    return false;
  }
  m_tabs->setTabText(m_tabs->indexOf(tab), tab->document()->title());
  m_recent->add(path);
  updateTitle();
  return true;
}

bool StudioMainWindow::closeTab(int index) {
  auto* tab = qobject_cast<DrawingTab*>(m_tabs->widget(index));
  if (!tab) return false;
  if (tab->session()->isRunning()) {
    // The command waits in an event loop of its own: it ends first, the tab closes after.
    tab->session()->cancel();
    QTimer::singleShot(0, this, [this, tab]() { closeTab(m_tabs->indexOf(tab)); });
    return false;
  }
  if (tab->document()->isModified()) {
    const QMessageBox::StandardButton answer = QMessageBox::question(
        this, tr("Close"), tr("Save the changes to %1?").arg(tab->document()->title()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    if (answer == QMessageBox::Cancel || (answer == QMessageBox::Save && !save(tab))) return false;
  }
  m_tabs->removeTab(index);
  delete tab;
  return true;
}

void StudioMainWindow::closeEvent(QCloseEvent* event) {
  while (m_tabs->count() > 0) {
    if (!closeTab(0)) {
      event->ignore();
      return;
    }
  }
  event->accept();
}

void StudioMainWindow::showCurrent() {
  DrawingTab* tab = currentTab();
  m_palette->setDocument(tab ? tab->document() : nullptr);
  m_layers->setDocument(tab ? tab->document() : nullptr);
  m_commandLine->setSession(tab ? tab->session() : nullptr);
  updateTitle();
}

void StudioMainWindow::updateTitle() {
  const DrawingTab* tab = currentTab();
  if (!tab) {
    setWindowTitle(tr("jbcb-studio"));
    return;
  }
  const DrawingDocument* document = tab->document();
  setWindowTitle(
      tr("%1%2 - jbcb-studio")
          .arg(document->title(), document->isModified() ? tr(" (modified)") : QString()));
}
