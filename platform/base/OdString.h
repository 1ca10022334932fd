// Text of the platform. Stored as UTF-8: DXF files from 2007 on are UTF-8, the standard library and
// the file system speak it, and the conversion to QString happens only at the UI boundary.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

class OdString {
 public:
  OdString() = default;
  OdString(const char* text) : m_text(text ? text : "") {}  // NOLINT: implicit on purpose
  OdString(std::string text) : m_text(std::move(text)) {}   // NOLINT
  OdString(std::string_view text) : m_text(text) {}         // NOLINT
  OdString(const char* text, std::size_t length) : m_text(text, length) {}

  static const OdString kEmpty;

  const char* c_str() const noexcept { return m_text.c_str(); }
  const std::string& str() const noexcept { return m_text; }
  std::string_view view() const noexcept { return m_text; }
  operator std::string_view() const noexcept { return m_text; }  // NOLINT

  // Length in bytes of the UTF-8 form.
  int getLength() const noexcept { return static_cast<int>(m_text.size()); }
  bool isEmpty() const noexcept { return m_text.empty(); }
  void empty() { m_text.clear(); }

  char getAt(int index) const { return m_text.at(static_cast<std::size_t>(index)); }
  int compare(const OdString& other) const noexcept { return m_text.compare(other.m_text); }
  // Case-insensitive comparison; folds ASCII letters only, which is what table and dictionary
  // keys need (other code points compare by value).
  int iCompare(const OdString& other) const noexcept;
  bool iEquals(const OdString& other) const noexcept { return iCompare(other) == 0; }

  OdString& makeUpper();
  OdString& makeLower();
  OdString upper() const { return OdString(*this).makeUpper(); }
  OdString lower() const { return OdString(*this).makeLower(); }
  OdString& trimLeft();
  OdString& trimRight();

  // Byte offset of the first occurrence, or -1.
  int find(char ch, int start = 0) const noexcept;
  int find(const OdString& sub, int start = 0) const noexcept;
  OdString left(int count) const;
  OdString right(int count) const;
  OdString mid(int start, int count = -1) const;
  bool startsWith(const OdString& prefix) const noexcept;

  // printf-style formatting.
  static OdString format(const char* fmt, ...)
#if defined(__GNUC__)
      __attribute__((format(printf, 1, 2)))
#endif
      ;

  OdString& operator+=(const OdString& other) {
    m_text += other.m_text;
    return *this;
  }
  OdString& operator+=(char ch) {
    m_text += ch;
    return *this;
  }
  friend OdString operator+(OdString a, const OdString& b) {
    return a += b;
  }
  friend bool operator==(const OdString& a, const OdString& b) noexcept {
    return a.m_text == b.m_text;
  }
  friend bool operator!=(const OdString& a, const OdString& b) noexcept {
    return !(a == b);
  }
  friend bool operator<(const OdString& a, const OdString& b) noexcept {
    return a.m_text < b.m_text;
  }
  // Through a view: the length of a literal is known where this is inlined.
  friend bool operator==(const OdString& a, const char* b) noexcept {
    return a.view() == std::string_view(b);
  }
  friend bool operator!=(const OdString& a, const char* b) noexcept {
    return !(a == b);
  }

 private:
  std::string m_text;
};

// Orders keys the way the drawing's tables and dictionaries do: case-insensitively.
struct OdStringILess {
  bool operator()(const OdString& a, const OdString& b) const noexcept { return a.iCompare(b) < 0; }
};

template <>
struct std::hash<OdString> {
  std::size_t operator()(const OdString& s) const noexcept {
    return std::hash<std::string>()(s.str());
  }
};
