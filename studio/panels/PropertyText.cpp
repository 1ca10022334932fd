#include "studio/panels/PropertyText.h"

#include <QRegularExpression>
#include <QStringList>
#include <cmath>

#include "platform/ge/OdGeConstants.h"
#include "platform/host/OdQStringConversion.h"

namespace {
constexpr double kDegreesPerRadian = OdGeConstants::kDegreesPerRadian;
}

QString PropertyText::number(double value) {
  return QString::number(value, 'g', 12);
}

QString PropertyText::of(const OdResBuf* value) {
  if (!value) return QString();
  switch (value->restype()) {
    case OdResBuf::kRtDouble:
      return number(value->getDouble());
    case OdResBuf::kRtAngle:
      return number(value->getDouble() * kDegreesPerRadian) + QChar(0x00B0);
    case OdResBuf::kRtInt16:
    case OdResBuf::kRtInt32:
      return QString::number(value->getInt32());
    case OdResBuf::kDxfBool:
      return value->getBool() ? tr("Yes") : tr("No");
    case OdResBuf::kRtPoint3d: {
      const OdGePoint3d& point = value->getPoint3d();
      return QStringLiteral("%1, %2, %3").arg(number(point.x), number(point.y), number(point.z));
    }
    case OdResBuf::kRtString:
      return toQString(value->getString());
    default:
      return QString();
  }
}

QString PropertyText::pointPattern() {
  const QString real = QStringLiteral("\\s*[-+]?(\\d+\\.?\\d*|\\.\\d+)([eE][-+]?\\d+)?\\s*");
  return QStringLiteral("%1,%1(,%1)?").arg(real);
}

bool PropertyText::parsePoint(const QString& text, OdGePoint3d& point) {
  static const QRegularExpression pattern(QStringLiteral("^(%1)$").arg(pointPattern()));
  if (!pattern.match(text).hasMatch()) return false;
  const QStringList parts = text.split(QLatin1Char(','));
  double coordinates[3] = {0.0, 0.0, 0.0};
  for (int i = 0; i < parts.size(); ++i) {
    bool ok = false;
    coordinates[i] = parts[i].trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(coordinates[i])) return false;
  }
  point.set(coordinates[0], coordinates[1], coordinates[2]);
  return true;
}
