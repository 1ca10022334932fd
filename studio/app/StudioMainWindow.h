// The studio's main window: a tab per open drawing, and docks for the properties palette, the
// layers and the command line that follow the drawing of the current tab. Messages of the module
// and the platform go to the command line while the window lives.
#pragma once

#include <QMainWindow>

#include "platform/host/CJbScopedService.h"
#include "studio/document/HostMessages.h"

class CommandLinePanel;
class DrawingTab;
class LayerPanel;
class PropertyPalette;
class QLabel;
class QMenu;
class QTabWidget;
class RecentFiles;

class StudioMainWindow : public QMainWindow {
  Q_OBJECT

 public:
  StudioMainWindow();
  ~StudioMainWindow() override;

  // Opens a drawing in a new tab and makes it current. False when it cannot be read, with the
  // reason in `error` when given, shown to the person otherwise.
  bool openFile(const QString& path, QString* error = nullptr);
  // Selects the entity of a hexadecimal handle in the current drawing, showing its space. False
  // with the reason in `error` when the handle names no entity of a space.
  bool selectHandle(const QString& handle, QString& error);
  DrawingTab* currentTab() const;
  PropertyPalette* palette() const { return m_palette; }
  LayerPanel* layers() const { return m_layers; }
  CommandLinePanel* commandLine() const { return m_commandLine; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void createMenus();
  void createDocks();
  void open();
  // Saves the tab's drawing (asking for a file when it has none); false when it was not saved.
  bool save(DrawingTab* tab);
  bool saveAs(DrawingTab* tab);
  // Closes a tab, offering to save a modified drawing first; false when it stays open.
  bool closeTab(int index);
  void showCurrent();
  void updateTitle();

  HostMessages m_messages;
  CJbScopedService<CJbSystemServices> m_messagesInstalled;
  QTabWidget* m_tabs;
  PropertyPalette* m_palette;
  LayerPanel* m_layers;
  CommandLinePanel* m_commandLine;
  RecentFiles* m_recent = nullptr;
  QMenu* m_viewMenu = nullptr;
  QLabel* m_coordinates;
};
