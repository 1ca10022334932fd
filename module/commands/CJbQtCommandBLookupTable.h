// CBVALUETABLE: the table of a lookup element: its columns, rows and cells, each added or set one
// answer at a time.
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"
#include "parameters/CJbCustBlockLookupParameter.h"

class CJbQtCommandBLookupTable : public CJbCustBlockEditorCommand {
 public:
  CJbQtCommandBLookupTable() : CJbCustBlockEditorCommand("CBVALUETABLE") {}

 protected:
  void Run() override;

 private:
  void ShowTable(const CJbDbCustBlockGraph* graph, const CJbCustBlockLookupParameter* table) const;
  // "Element[value]": a column for value `value` (0 when left out) of that parameter.
  void AddColumn(const CJbDbCustBlockGraph* graph, CJbCustBlockLookupParameter* table,
                 const OdString& answer) const;
  // "row,column=value", positions from 1, the value typed as its column's parameter gives it.
  void SetCell(const CJbDbCustBlockGraph* graph, CJbCustBlockLookupParameter* table,
               const OdString& answer) const;
};
