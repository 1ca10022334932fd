// A one-line progress bar on a terminal stream: shown only when the stream is a terminal and the
// work has been running for more than a second, redrawn in place and erased when done.
#pragma once

#include <chrono>
#include <cstdio>
#include <string>

class ProgressBar {
 public:
  // total is the number of steps; the bar stays hidden unless stream is a terminal.
  ProgressBar(std::FILE* stream, int total);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  // Shows done of total steps, with the name of the step under way.
  void update(int done, const std::string& current);
  // Erases the bar (before other output on the same stream); the next update draws it again.
  void clear();

 private:
  std::FILE* m_stream;
  int m_total;
  bool m_terminal;
  bool m_drawn = false;
  std::chrono::steady_clock::time_point m_start;
};
