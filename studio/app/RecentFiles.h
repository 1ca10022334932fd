// The drawings opened last, newest first, kept in the user's settings and offered in a menu.
#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

class RecentFiles : public QObject {
  Q_OBJECT

 public:
  static constexpr int kMax = 8;

  RecentFiles(QMenu* menu, QObject* parent);
  // Puts a drawing first, dropping it from further down and the oldest beyond kMax.
  void add(const QString& path);
  QStringList files() const;

 signals:
  void openRequested(const QString& path);

 private:
  void fillMenu();

  QMenu* m_menu;
};
