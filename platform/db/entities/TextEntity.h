// What single-line and multiline text share above their own base: the text style, grips that
// are their stretch points, and the rules of the estimates they make without font metrics.
#pragma once

#include <cmath>

#include "platform/db/OdDbEntity.h"
#include "platform/ge/OdGeAngle.h"

template <class Base>
class TextEntity : public Base {
 public:
  OdString styleName() const {
    this->assertReadEnabled();
    return m_style;
  }
  void setStyleName(const OdString& name) {
    this->assertWriteEnabled();
    m_style = name;
  }

  OdResult subGetGripPoints(OdGePoint3dArray& points) const override {
    return this->getStretchPoints(points);
  }
  OdResult subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override {
    return this->moveStretchPointsAt(indices, offset);
  }

 protected:
  // Each character advances this share of the height (times the width factor).
  static constexpr double kCharacterAdvance = 0.8;

  // A reading direction given in the text's plane reads backwards when it points left, or down
  // when it is vertical: mirrored text turns round then.
  static bool readsBackwards(double x, double y) {
    return x < -1e-9 || (std::fabs(x) <= 1e-9 && y < 0.0);
  }
  // The angle, of a direction and its reverse, that reads forwards.
  static double readableAngle(double angle) {
    const bool reverse = readsBackwards(std::cos(angle), std::sin(angle));
    return OdGeAngle::normalize(reverse ? angle + OdGeAngle::kPi : angle);
  }

  OdString m_style = "Standard";
};
