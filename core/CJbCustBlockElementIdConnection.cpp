// A field through which one element refers to another by id.
#include "core/CJbCustBlockElementIdConnection.h"

#include "core/CJbCustBlockElement.h"

CJbCustBlockElementIdConnection::~CJbCustBlockElementIdConnection() = default;

void CJbCustBlockElementIdConnection::Assign(int id, CJbCustBlockElement* owner) {
  const bool in = IsIncoming();
  if (owner && !CJbCustBlockElement::IsNullId(m_id)) owner->RemoveConnection(m_id, in, !in);
  m_id = id;
  if (owner && !CJbCustBlockElement::IsNullId(m_id)) owner->AddConnection(m_id, in, !in);
}
