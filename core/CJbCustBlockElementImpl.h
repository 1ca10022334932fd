// State shared by every element: identity, connections, owning graph, proxy, visibility and name.
#pragma once

#include "platform/base/OdArray.h"
#include "platform/base/OdString.h"
#include "platform/rx/OdSmartPtr.h"

class CJbCustBlockElement;
class CJbDbCustBlockGraph;

class CJbCustBlockElementImpl {
 public:
  CJbCustBlockElementImpl();
  virtual ~CJbCustBlockElementImpl();
  CJbCustBlockElementImpl(const CJbCustBlockElementImpl&) = delete;
  CJbCustBlockElementImpl& operator=(const CJbCustBlockElementImpl&) = delete;

  // Partner `id` has left the graph: forget every connection to it. Kinds that keep the id in
  // further fields override this, drop those too and call the base.
  virtual void OnConnectionRemoved(int id);

  // Copies the fields that the base element files (id, visibility, name, connections).
  void CopyBaseFieldsFrom(const CJbCustBlockElementImpl& source);

  // Sets the suppress-base-filing flag for its lifetime, so that only a class's own data is filed.
  class BaseFilingSuppressor {
   public:
    explicit BaseFilingSuppressor(CJbCustBlockElementImpl& impl)
        : m_impl(impl), m_previous(impl.m_suppressBaseFiling) {
      impl.m_suppressBaseFiling = true;
    }
    ~BaseFilingSuppressor() { m_impl.m_suppressBaseFiling = m_previous; }
    BaseFilingSuppressor(const BaseFilingSuppressor&) = delete;
    BaseFilingSuppressor& operator=(const BaseFilingSuppressor&) = delete;

   private:
    CJbCustBlockElementImpl& m_impl;
    bool m_previous;
  };

  // While set, the base element's filing reads and writes nothing.
  bool m_suppressBaseFiling = false;
  int m_elementId = 0;
  OdArray<int> m_inConnections;
  OdArray<int> m_outConnections;
  // The owner; the graph holds the element, never the other way round.
  CJbDbCustBlockGraph* m_graph = nullptr;
  OdSmartPtr<CJbCustBlockElement> m_proxyElement;
  bool m_visible = true;
  OdString m_name;
};
