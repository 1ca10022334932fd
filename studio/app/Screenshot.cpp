#include "studio/app/Screenshot.h"

#include <QApplication>
#include <QImage>
#include <cstdio>

#include "studio/app/DrawingTab.h"
#include "studio/app/StudioArguments.h"
#include "studio/app/StudioMainWindow.h"
#include "studio/view/DrawingView.h"

namespace {
int fail(const QString& message) {
  std::fprintf(stderr, "jbcb-studio: %s\n", message.toLocal8Bit().constData());
  return 1;
}
}  // namespace

int Screenshot::take(const StudioArguments& arguments) {
  StudioMainWindow window;
  window.resize(arguments.size);
  QString error;
  if (!window.openFile(arguments.files.front(), &error)) return fail(error);
  if (!arguments.select.isEmpty() && !window.selectHandle(arguments.select, error))
    return fail(error);
  window.show();
  // Layout, and the palette's listing, happen in posted events.
  QApplication::processEvents();
  QApplication::processEvents();
  window.currentTab()->view()->zoomExtents();
  const QImage picture = window.grab().toImage();
  if (!picture.save(arguments.screenshot, "PNG"))
    return fail(QApplication::translate("Screenshot", "%1: the picture cannot be written")
                    .arg(arguments.screenshot));
  return 0;
}
