// jbcb-studio: the desktop host. Starts the drawing platform and loads the customizable-blocks
// module from its own folder, as a CAD program loads its extensions; then opens the drawings it
// was given, or takes a screenshot of one without a display.
#include <QApplication>
#include <QMessageBox>
#include <cstdio>

#include "platform/OdPlatform.h"
#include "platform/host/CJbCustBlocksModuleLoader.h"
#include "platform/host/OdQStringConversion.h"
#include "studio/app/Screenshot.h"
#include "studio/app/StudioArguments.h"
#include "studio/app/StudioMainWindow.h"

namespace {
// Qt's own notes (a missing runtime folder, what the offscreen platform cannot do) are not the
// user's concern; the studio reports its problems itself.
void quietQtMessages(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtCriticalMsg || type == QtFatalMsg)
    std::fprintf(stderr, "jbcb-studio: %s\n", message.toLocal8Bit().constData());
}

int runWindow(const StudioArguments& arguments, const OdString& moduleProblem) {
  StudioMainWindow window;
  window.resize(arguments.size);
  window.show();
  if (!moduleProblem.isEmpty())
    QMessageBox::warning(
        &window, QApplication::translate("main", "Customizable blocks"),
        QApplication::translate("main", "Customizable blocks are kept as read, not edited: %1")
            .arg(toQString(moduleProblem)));
  for (const QString& file : arguments.files)
    window.openFile(file);
  QString error;
  if (!arguments.select.isEmpty() && !window.selectHandle(arguments.select, error))
    QMessageBox::warning(&window, QApplication::translate("main", "Select"), error);
  return QApplication::exec();
}
}  // namespace

int main(int argc, char** argv) {
  // A screenshot needs no screen: without a display Qt draws offscreen.
  const bool screenshot = [&]() {
    for (int i = 1; i < argc; ++i)
      if (QByteArray(argv[i]).startsWith("--screenshot")) return true;
    return false;
  }();
  if (screenshot && qEnvironmentVariableIsEmpty("DISPLAY") &&
      qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  if (screenshot) qInstallMessageHandler(quietQtMessages);
  QApplication application(argc, argv);
  QApplication::setOrganizationName(QStringLiteral("JbCustomizableBlocks"));
  QApplication::setApplicationName(QStringLiteral("jbcb-studio"));

  StudioArguments arguments;
  QString error;
  if (!arguments.parse(QApplication::arguments(), error)) {
    std::fprintf(stderr, "jbcb-studio: %s\n", error.toLocal8Bit().constData());
    return 2;
  }
  odInitialize();
  OdString moduleProblem;
  if (!CJbCustBlocksModuleLoader::Load(fromQString(QApplication::applicationDirPath()),
                                       &moduleProblem) &&
      screenshot)
    std::fprintf(stderr, "jbcb-studio: warning: customizable blocks are kept as read: %s\n",
                 moduleProblem.c_str());
  const int code = screenshot ? Screenshot::take(arguments) : runWindow(arguments, moduleProblem);
  odUninitialize();
  return code;
}
