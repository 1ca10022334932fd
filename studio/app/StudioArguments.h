// What jbcb-studio is started with: drawings to open, or a screenshot to take of one:
//   jbcb-studio [FILE...]
//   jbcb-studio --screenshot OUT.png FILE [--select HANDLE] [--size WxH]
#pragma once

#include <QCoreApplication>
#include <QSize>
#include <QStringList>

class StudioArguments {
  Q_DECLARE_TR_FUNCTIONS(StudioArguments)

 public:
  // The arguments of `arguments` (the program's name first); false with `error` saying what is
  // wrong and how the program is used.
  bool parse(const QStringList& arguments, QString& error);

  QStringList files;
  QString screenshot;  // the picture to write; empty to start the window
  QString select;      // a handle to select in the first drawing
  QSize size{1600, 1000};

  // Each side of a window from 100 to 8192 pixels.
  static constexpr int kMinSide = 100;
  static constexpr int kMaxSide = 8192;
};
