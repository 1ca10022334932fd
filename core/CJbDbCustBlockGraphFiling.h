// How a graph is filed: the version rules of its record, the header, the node list with every
// node in proxy form, and the identifier, in binary and in DXF form. A read that fails, by an
// error code or a thrown error, leaves the graph empty; reading is no edit, so graph reactors hear
// nothing of it. A newer version read from a file is reported to the host and read all the same.
#pragma once

#include "core/CJbCustBlockElement.h"
#include "core/CJbDbCustBlockGraphImpl.h"

class CJbDbCustBlockGraph;
class OdDbDatabase;
class OdDbDwgFiler;
class OdDbDxfFiler;

class CJbDbCustBlockGraphFiling {
 public:
  static bool IsCurrentVersion(int major, int minor);
  // Graphs before 0.2 carry no identifier.
  static bool FilesIdentifier(int major, int minor);
  // From 0.3 to 0.5 the cycling order was filed in the graph itself.
  static bool FilesOrderInGraph(int major, int minor);

  // The whole record.
  static OdResult DwgIn(CJbDbCustBlockGraph& graph, OdDbDwgFiler* filer);
  static void DwgOut(const CJbDbCustBlockGraph& graph, OdDbDwgFiler* filer);
  static OdResult DxfIn(CJbDbCustBlockGraph& graph, OdDbDxfFiler* filer);
  static void DxfOut(const CJbDbCustBlockGraph& graph, OdDbDxfFiler* filer);

  // The node list, as the graph's node hooks file it.
  static OdResult DwgInNodes(CJbDbCustBlockGraph& graph, OdDbDwgFiler* filer);
  static void DwgOutNodes(const CJbDbCustBlockGraph& graph, OdDbDwgFiler* filer);
  static OdResult DxfInNodes(CJbDbCustBlockGraph& graph, OdDbDxfFiler* filer);
  static void DxfOutNodes(const CJbDbCustBlockGraph& graph, OdDbDxfFiler* filer);

 private:
  using Impl = CJbDbCustBlockGraphImpl;

  // The version read; a newer one is reported to the host for the database of a file read.
  static void SetFiledVersion(Impl& impl, int major, int minor, OdDbDatabase* fileDatabase);
  // Makes the node that `proxy` was read into, or the proxy itself when its class is missing.
  static CJbCustBlockElementPtr NodeFromProxy(CJbDbCustBlockGraph& graph,
                                              const CJbCustBlockElementPtr& proxy);
  static OdResult InsertReadNode(CJbDbCustBlockGraph& graph, const CJbCustBlockElementPtr& proxy);
};
