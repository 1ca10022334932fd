#include "platform/base/OdString.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <vector>

const OdString OdString::kEmpty;

namespace {
char foldAscii(char c) {
  return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}
bool isSpace(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
}  // namespace

int OdString::iCompare(const OdString& other) const noexcept {
  const std::size_t n = std::min(m_text.size(), other.m_text.size());
  for (std::size_t i = 0; i < n; ++i) {
    const auto a = static_cast<unsigned char>(foldAscii(m_text[i]));
    const auto b = static_cast<unsigned char>(foldAscii(other.m_text[i]));
    if (a != b) return a < b ? -1 : 1;
  }
  if (m_text.size() == other.m_text.size()) return 0;
  return m_text.size() < other.m_text.size() ? -1 : 1;
}

OdString& OdString::makeUpper() {
  for (char& c : m_text)
    c = foldAscii(c);
  return *this;
}

OdString& OdString::makeLower() {
  for (char& c : m_text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return *this;
}

OdString& OdString::trimLeft() {
  const auto first = std::find_if_not(m_text.begin(), m_text.end(), isSpace);
  m_text.erase(m_text.begin(), first);
  return *this;
}

OdString& OdString::trimRight() {
  while (!m_text.empty() && isSpace(m_text.back()))
    m_text.pop_back();
  return *this;
}

int OdString::find(char ch, int start) const noexcept {
  if (start < 0) start = 0;
  const auto pos = m_text.find(ch, static_cast<std::size_t>(start));
  return pos == std::string::npos ? -1 : static_cast<int>(pos);
}

int OdString::find(const OdString& sub, int start) const noexcept {
  if (start < 0) start = 0;
  const auto pos = m_text.find(sub.m_text, static_cast<std::size_t>(start));
  return pos == std::string::npos ? -1 : static_cast<int>(pos);
}

OdString OdString::left(int count) const {
  if (count <= 0) return OdString();
  return OdString(m_text.substr(0, static_cast<std::size_t>(count)));
}

OdString OdString::right(int count) const {
  if (count <= 0) return OdString();
  const auto n = std::min(m_text.size(), static_cast<std::size_t>(count));
  return OdString(m_text.substr(m_text.size() - n));
}

OdString OdString::mid(int start, int count) const {
  if (start < 0) start = 0;
  if (static_cast<std::size_t>(start) >= m_text.size()) return OdString();
  return OdString(m_text.substr(static_cast<std::size_t>(start),
                                count < 0 ? std::string::npos : static_cast<std::size_t>(count)));
}

bool OdString::startsWith(const OdString& prefix) const noexcept {
  return m_text.compare(0, prefix.m_text.size(), prefix.m_text) == 0;
}

OdString OdString::format(const char* fmt, ...) {
  va_list args;
  va_start(args, fmt);
  va_list copy;
  va_copy(copy, args);
  const int needed = std::vsnprintf(nullptr, 0, fmt, copy);
  va_end(copy);
  std::string out;
  if (needed > 0) {
    std::vector<char> buffer(static_cast<std::size_t>(needed) + 1);
    std::vsnprintf(buffer.data(), buffer.size(), fmt, args);
    out.assign(buffer.data(), static_cast<std::size_t>(needed));
  }
  va_end(args);
  return OdString(std::move(out));
}
