// A door in plan: a frame below the wall line, a swing and a label; its width stretches the free
// side. By default it is the demonstration's door, in millimetres: its width goes in steps of 100
// from 600 to 1200, its hinge side mirrors across the wall, its leaf turns about the hinge, and it
// shows open or closed. Options make the smaller and plainer doors that tests, fuzz targets and
// benchmarks edit, from the same drawing.
#pragma once

#include "demo/DemoBlock.h"

class DoorDemoBlock : public DemoBlock {
 public:
  struct Options {
    double width = 900;  // the opening, from the hinge at the origin along the wall line
    double frameDepth = 50;
    CJbCustBlockGraphAuthor::ValueSet widths{100, 600, 1200};
    bool hinge = true;     // leaf and swing mirror across the wall line
    bool leaf = true;      // a leaf that turns about the hinge
    bool look = true;      // open or closed
    bool polar = false;    // the width is a polar distance, stretching at any angle
    int paddingLines = 0;  // short lines away from the stretch, for a heavier block
  };
  // What callers edit or look at after authoring.
  struct Parts {
    int width = 0;
    int widthGrip = 0;
    int look = 0;  // the visibility parameter, when the door has looks
    OdDbObjectId frame;
    OdDbObjectId swing;
    OdDbObjectId label;
  };

  // A door with only its width, `width` wide in steps of `step`, its frame 1 deep.
  static Options PlainOptions(double width, double step);

  DoorDemoBlock() = default;
  explicit DoorDemoBlock(const Options& options) : m_options(options) {}

  OdString name() const override { return "Door"; }
  std::string description() const override;
  void author(CJbCustBlockAuthor& author) const override { build(author); }
  Parts build(CJbCustBlockAuthor& author) const;
  std::vector<Edits> references() const override;
  double spacing() const override { return 1600; }

 private:
  Options m_options;
};
