#include "studio/app/RecentFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace {
const char* const kKey = "recentFiles";
}

RecentFiles::RecentFiles(QMenu* menu, QObject* parent) : QObject(parent), m_menu(menu) {
  fillMenu();
}

QStringList RecentFiles::files() const {
  return QSettings().value(kKey).toStringList();
}

void RecentFiles::add(const QString& path) {
  const QString absolute = QFileInfo(path).absoluteFilePath();
  QStringList list = files();
  list.removeAll(absolute);
  list.prepend(absolute);
  while (list.size() > kMax)
    list.removeLast();
  QSettings().setValue(kKey, list);
  fillMenu();
}

void RecentFiles::fillMenu() {
  m_menu->clear();
  const QStringList list = files();
  m_menu->setEnabled(!list.isEmpty());
  for (int i = 0; i < list.size(); ++i) {
    const QString path = list[i];
    QAction* action =
        m_menu->addAction(tr("&%1 %2").arg(i + 1).arg(QDir::toNativeSeparators(path)));
    connect(action, &QAction::triggered, this, [this, path]() { emit openRequested(path); });
  }
}
