// The studio without a screen: the window with one drawing (and a selection, with its grips and
// palette) laid out at a given size, drawn into a PNG file, and the program ends. It needs no
// display: Qt's offscreen platform draws it as well as a virtual one.
#pragma once

class StudioArguments;

class Screenshot {
 public:
  // Exit codes as jbcb has them: 0 written; 1 when the drawing cannot be read, the handle selects
  // nothing or the picture cannot be written, with a message on standard error.
  static int take(const StudioArguments& arguments);
};
