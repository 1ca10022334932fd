#include "studio/document/HostMessages.h"

#include "platform/host/OdQStringConversion.h"

void HostMessages::Show(MessageKind kind, const OdString& text) {
  switch (kind) {
    case MessageKind::kMessage:
      emit message(toQString(text));
      break;
    case MessageKind::kWarning:
      emit message(tr("Warning: %1").arg(toQString(text)));
      break;
    case MessageKind::kError:
      emit message(tr("Error: %1").arg(toQString(text)));
      break;
  }
}
