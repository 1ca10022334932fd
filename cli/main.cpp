// jbcb: the command-line host. Starts Qt without a display when there is none (rendering needs
// fonts and painters, never a window), the drawing platform and the customizable-blocks module,
// then runs the command line.
#include <QGuiApplication>

#include "cli/CommandLine.h"
#include "platform/OdPlatform.h"
#include "platform/host/CJbCustBlocksModuleLoader.h"
#include "platform/host/OdQStringConversion.h"

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
  OdString reason;
  if (!CJbCustBlocksModuleLoader::Load(fromQString(QCoreApplication::applicationDirPath()),
                                       &reason))
    fprintf(stderr, "jbcb: warning: customizable blocks are kept as read: %s\n", reason.c_str());
  const int code = CommandLine().run(argc, argv);
  odUninitialize();
  return code;
}
