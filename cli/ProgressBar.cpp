// Progress drawing with a carriage return and an erase-line sequence, so that nothing is left
// behind in the terminal and nothing at all is written to files or pipes.
#include "cli/ProgressBar.h"

#include <unistd.h>

namespace {
// Shorter runs finish before a bar would help.
constexpr std::chrono::milliseconds kDelay{1000};
constexpr int kWidth = 30;
}  // namespace

ProgressBar::ProgressBar(std::FILE* stream, int total)
    : m_stream(stream),
      m_total(total),
      m_terminal(isatty(fileno(stream)) != 0),
      m_start(std::chrono::steady_clock::now()) {}

ProgressBar::~ProgressBar() {
  clear();
}

void ProgressBar::update(int done, const std::string& current) {
  if (!m_terminal || m_total <= 0 || std::chrono::steady_clock::now() - m_start < kDelay) return;
  const int filled = kWidth * done / m_total;
  std::string bar(static_cast<std::size_t>(filled), '=');
  bar.resize(kWidth, ' ');
  std::string name = current;
  if (name.size() > 40) name = "..." + name.substr(name.size() - 37);
  std::fprintf(m_stream, "\r\033[K[%s] %d/%d %s", bar.c_str(), done, m_total, name.c_str());
  std::fflush(m_stream);
  m_drawn = true;
}

void ProgressBar::clear() {
  if (!m_drawn) return;
  std::fprintf(m_stream, "\r\033[K");
  std::fflush(m_stream);
  m_drawn = false;
}
