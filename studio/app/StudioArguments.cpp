#include "studio/app/StudioArguments.h"

#include <QCommandLineParser>
#include <QRegularExpression>

bool StudioArguments::parse(const QStringList& arguments, QString& error) {
  QCommandLineParser parser;
  parser.setApplicationDescription(tr("Views and edits drawings of customizable blocks."));
  const QCommandLineOption screenshotOption(
      QStringLiteral("screenshot"), tr("Write a picture of the window with FILE to OUT and end."),
      tr("OUT.png"));
  const QCommandLineOption selectOption(
      QStringLiteral("select"), tr("Select the entity of this handle in the first drawing."),
      tr("HANDLE"));
  const QCommandLineOption sizeOption(QStringLiteral("size"),
                                      tr("The window's size in pixels, WIDTHxHEIGHT."), tr("WxH"),
                                      QStringLiteral("1600x1000"));
  parser.addOptions({screenshotOption, selectOption, sizeOption});
  parser.addPositionalArgument(QStringLiteral("FILE"), tr("Drawings to open."), tr("[FILE...]"));
  const QString usage =
      tr("usage: jbcb-studio [FILE...]\n"
         "       jbcb-studio --screenshot OUT.png FILE [--select HANDLE] "
         "[--size WxH]");
  if (!parser.parse(arguments)) {
    error = parser.errorText() + QLatin1Char('\n') + usage;
    return false;
  }
  files = parser.positionalArguments();
  screenshot = parser.value(screenshotOption);
  select = parser.value(selectOption);
  const QRegularExpressionMatch side =
      QRegularExpression(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$")).match(parser.value(sizeOption));
  if (side.hasMatch()) size = QSize(side.captured(1).toInt(), side.captured(2).toInt());
  if (!side.hasMatch() || size.width() < kMinSide || size.height() < kMinSide ||
      size.width() > kMaxSide || size.height() > kMaxSide) {
    error = tr("--size takes WIDTHxHEIGHT from %1 to %2 pixels, not \"%3\"\n%4")
                .arg(kMinSide)
                .arg(kMaxSide)
                .arg(parser.value(sizeOption), usage);
    return false;
  }
  if (!screenshot.isEmpty() && files.size() != 1) {
    error = tr("--screenshot takes exactly one drawing\n%1").arg(usage);
    return false;
  }
  return true;
}
