// jbcb: the command-line host. Starts Qt without a display when there is none (rendering needs
// fonts and painters, never a window) and the drawing platform, then runs the command line.
#include <QGuiApplication>

#include "actions/CJbCustBlockActionClasses.h"
#include "cli/CommandLine.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "platform/OdPlatform.h"
#include "storage/CJbCustBlockStorageClasses.h"

namespace {
// Qt's own notes (missing runtime folders, font fallbacks) are not the user's concern; jbcb
// reports its problems itself.
void quietQtMessages(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtCriticalMsg || type == QtFatalMsg)
    fprintf(stderr, "jbcb: %s\n", message.toLocal8Bit().constData());
}
}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(quietQtMessages);
  QGuiApplication application(argc, argv);
  odInitialize();
  CJbCustBlockCoreClasses::RxInit();
  CJbCustBlockParameterClasses::RxInit();
  CJbCustBlockActionClasses::RxInit();
  CJbCustBlockStorageClasses::RxInit();
  const int code = CommandLine().run(argc, argv);
  CJbCustBlockStorageClasses::RxUninit();
  CJbCustBlockActionClasses::RxUninit();
  CJbCustBlockParameterClasses::RxUninit();
  CJbCustBlockCoreClasses::RxUninit();
  odUninitialize();
  return code;
}
