// Messages to the user. The embedded services write one line per message to a stream (standard
// error by default); a host installs its own to show them in its user interface.
#pragma once

#include <iosfwd>

#include "platform/base/OdString.h"

class CJbSystemServices {
 public:
  enum class MessageKind { kMessage, kWarning, kError };

  CJbSystemServices();
  explicit CJbSystemServices(std::ostream& out);
  CJbSystemServices(const CJbSystemServices&) = delete;
  CJbSystemServices& operator=(const CJbSystemServices&) = delete;
  virtual ~CJbSystemServices();

  void ShowMessage(const OdString& text) { Show(MessageKind::kMessage, text); }
  void ShowWarning(const OdString& text) { Show(MessageKind::kWarning, text); }
  void ShowError(const OdString& text) { Show(MessageKind::kError, text); }

  // The installed services, or the embedded ones.
  static CJbSystemServices* Get();
  // Installs services the caller keeps alive (null goes back to the embedded ones); returns those
  // installed before, null when they were the embedded ones.
  static CJbSystemServices* Set(CJbSystemServices* services);

 protected:
  // Shows one message. Warnings and errors are prefixed with their translated kind.
  virtual void Show(MessageKind kind, const OdString& text);

 private:
  std::ostream* m_out;
};
