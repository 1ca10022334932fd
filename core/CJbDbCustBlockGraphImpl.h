// The data of an evaluation graph and the algorithms that only need that data: id allocation and
// the copy of a whole graph. The walks of an evaluation mark the nodes they pass.
#pragma once

#include <map>

#include "core/CJbCustBlockElement.h"
#include "platform/base/OdArray.h"
#include "platform/db/OdDbObjectId.h"

class CJbDbCustBlockGraphImpl {
 public:
  enum ChangeKind { kAppended = 0, kModified = 1, kRemoved = 2 };
  struct ChangeRecord {
    int kind;
    int id;
  };
  // A node and the marks that the walks over the graph leave on it.
  struct Node {
    CJbCustBlockElementPtr element;
    mutable unsigned visitMark = 0;
    mutable unsigned selectMark = 0;
  };
  using NodeMap = std::map<int, Node>;

  static constexpr int kCurrentMajorVersion = 0;
  static constexpr int kCurrentMinorVersion = 7;

  CJbCustBlockElement* NodeAt(int id) const;
  void AllNodeIds(OdArray<int>& ids) const;

  // Empty, at the current version, with no block: what a graph is after a failed read. The
  // identifier stays.
  void ClearContents();
  // Replaces everything with a copy of `source`'s data and nodes; the new nodes belong to `owner`.
  void CopyFrom(const CJbDbCustBlockGraphImpl& source, const CJbDbCustBlockGraph* sourceGraph,
                CJbDbCustBlockGraph* owner);
  // The identifier, made from a fresh UUID the first time a graph without one needs it.
  const OdString& Identifier() const;

  // The next free element id after the last one handed out, which it becomes.
  int AllocateId();
  // A fresh mark value for a walk over the nodes, so that marks need no clearing between walks.
  unsigned NextMark() const { return ++m_mark; }

  void Log(ChangeKind kind, int id) { m_changeLog.append(ChangeRecord{kind, id}); }

  NodeMap m_nodes;
  // Grip ids in the user's cycling order; empty means ascending id order.
  OdArray<int> m_cyclingOrder;
  OdArray<ChangeRecord> m_changeLog;
  int m_lastId = 0;
  OdDbObjectId m_blockDefinitionId;
  int m_majorVersion = kCurrentMajorVersion;
  int m_minorVersion = kCurrentMinorVersion;
  // Empty until first needed, so that graphs that are read or copied never make one.
  mutable OdString m_identifier;

 private:
  // A new node of `element`'s class with the same base fields and, filed through the element
  // filer, the same data. Ids that the data owns are not carried over: a copy never owns what its
  // original owns.
  static CJbCustBlockElementPtr CopyNode(const CJbCustBlockElement* element,
                                         const CJbDbCustBlockGraph* sourceGraph,
                                         CJbDbCustBlockGraph* owner);

  mutable unsigned m_mark = 0;
};
