// A field through which one element refers to another by id. Assigning the field keeps the
// owner's connection lists (and the partner's) in step with it.
#pragma once

class CJbCustBlockElement;

class CJbCustBlockElementIdConnection {
 public:
  CJbCustBlockElementIdConnection() = default;
  explicit CJbCustBlockElementIdConnection(int id) : m_id(id) {}
  virtual ~CJbCustBlockElementIdConnection();

  // True when the referenced element is an input of the owner.
  virtual bool IsIncoming() const = 0;

  int GetId() const { return m_id; }
  // Stores `id`; with an owner, the connection to the old id is removed and one to the new id
  // added.
  void Assign(int id, CJbCustBlockElement* owner);
  void Clear(CJbCustBlockElement* owner) { Assign(0, owner); }
  // Stores `id` without touching any connection list (used while filing in).
  void SetId(int id) { m_id = id; }

 protected:
  CJbCustBlockElementIdConnection(const CJbCustBlockElementIdConnection&) = default;
  CJbCustBlockElementIdConnection& operator=(const CJbCustBlockElementIdConnection&) = default;

 private:
  int m_id = 0;
};
