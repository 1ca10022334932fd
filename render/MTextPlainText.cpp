// Removes multiline-text formatting: codes with an argument up to ';', toggles of one letter,
// grouping braces, and the special "%%" characters; stacked fractions read "a/b".
#include "render/MTextPlainText.h"

namespace {
// Codes followed by an argument that runs to the next ';'.
bool takesArgument(QChar code) {
  switch (code.toLatin1()) {
    case 'A':
    case 'C':
    case 'c':
    case 'f':
    case 'F':
    case 'H':
    case 'Q':
    case 'T':
    case 'W':
    case 'p':
      return true;
    default:
      return false;
  }
}

// Switches that carry no argument: underline, overline, strike-through on and off.
bool isToggle(QChar code) {
  return QStringLiteral("LlOoKk").contains(code);
}

}  // namespace

QString MTextPlainText::decodeSpecialCharacters(const QString& text) {
  QString result;
  result.reserve(text.size());
  for (int i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size() && text[i + 1] == '%') {
      const QChar code = text[i + 2].toLower();
      if (code == 'd')
        result += QChar(0x00B0);
      else if (code == 'p')
        result += QChar(0x00B1);
      else if (code == 'c')
        result += QChar(0x2300);
      else if (code == '%')
        result += '%';
      // Underline and overline switches draw nothing.
      else if (code != 'u' && code != 'o')
        result += text.mid(i, 3);
      i += 2;
      continue;
    }
    result += text[i];
  }
  return result;
}

QStringList MTextPlainText::paragraphs(const QString& contents) {
  QStringList result;
  QString current;
  const int n = contents.size();
  for (int i = 0; i < n; ++i) {
    const QChar ch = contents[i];
    if (ch == '{' || ch == '}') continue;
    if (ch == '^' && i + 1 < n) {
      // Caret escapes: ^I a tab, ^J a line feed, ^M nothing; other pairs stay as typed.
      const QChar next = contents[i + 1];
      if (next == 'I')
        current += '\t';
      else if (next == 'J') {
        result << decodeSpecialCharacters(current);
        current.clear();
      } else if (next != 'M') {
        current += ch;
        current += next;
      }
      ++i;
      continue;
    }
    if (ch != '\\' || i + 1 >= n) {
      current += ch;
      continue;
    }
    const QChar code = contents[++i];
    if (code == 'P' || code == 'N' || code == 'X') {
      result << decodeSpecialCharacters(current);
      current.clear();
    } else if (code == '~') {
      current += QChar(0x00A0);
    } else if (code == '\\' || code == '{' || code == '}') {
      current += code;
    } else if (code == 'S') {
      // Stacked text "\Stop^bottom;" (also with '/' or '#') reads as top/bottom.
      const int end = contents.indexOf(';', i + 1);
      const QString stack = contents.mid(i + 1, (end < 0 ? n : end) - i - 1);
      QString flat = stack;
      flat.replace('^', '/').replace('#', '/');
      current += flat.trimmed();
      i = end < 0 ? n : end;
    } else if (takesArgument(code)) {
      const int end = contents.indexOf(';', i + 1);
      i = end < 0 ? n : end;
    } else if (!isToggle(code)) {
      // An unknown code is shown as it stands rather than losing characters.
      current += '\\';
      current += code;
    }
  }
  result << decodeSpecialCharacters(current);
  return result;
}
