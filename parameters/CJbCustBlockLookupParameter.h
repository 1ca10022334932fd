// A parameter holding a lookup table. Its columns name values of other parameters of the block;
// its rows ("states") give a name and one value per column. Its value is the first row whose
// cells all equal the current values of those parameters (-1 when none matches); setting it
// requests a row, which the lookup action then writes into the parameters.
#pragma once

#include <utility>

#include "parameters/CJbCustBlockParameter.h"
#include "parameters/CJbCustBlockStateParameter.h"

class CJbCustBlockLookupParameterImpl;

class CJbCustBlockLookupParameter : public CJbCustBlockParameter,
                                    public CJbCustBlockStateParameter {
  ODRX_DECLARE_MEMBERS(CJbCustBlockLookupParameter);

 public:
  // A column: the element id of a parameter and the index of the value it takes there.
  using ParameterId = std::pair<int, unsigned>;

  CJbCustBlockLookupParameter();
  ~CJbCustBlockLookupParameter() override;

  // Values of one kind: the same result type, angles counting as reals.
  static bool IsSameValueKind(const OdResBuf* a, const OdResBuf* b);

  OdString GetBaseName() const override;
  // Takes a row requested through its grip unless the table is read-only; after a redefinition it
  // connects the columns' parameters again.
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  // Ends the row request.
  bool EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  // The grip's point belongs to the definition: the state of a reference is the base item alone.
  bool LoadInstance(OdResBufPtr& cursor, CJbDbCustBlockGraphInstanceContext* context) override;
  OdResBufPtr SaveInstance(CJbDbCustBlockGraphInstanceContext* context) override;
  // A row has been requested and not yet applied, or the grip's point has moved.
  bool NeedEvaluate() const override;
  // An action to write rows, and a table with at least one column and one row.
  bool IsValid() const override;
  // After the base fields: the columns, the row names, the unmatched name, the cells row by row
  // (each row preceded by its cell count) and the read-only flag.
  OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) override;
  void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const override;
  // Reports columns naming no parameter of the block and cells of another kind than their
  // column's value; a fix drops such columns and empties such cells.
  void Audit(OdDbAuditInfo* auditInfo) override;
  // Index 0: the matched row as a 32-bit integer.
  OdResBufPtr GetValue(unsigned index) const override;
  // Index 0 takes a row index (32-bit integer) and requests that row. Refused for a row out of
  // range, another kind of value, and while the table is read-only.
  bool SetValue(unsigned index, const OdResBufPtr& value) override;
  // Index 0: the first row matching the definition values of the columns' parameters; -1 when
  // none.
  OdResBufPtr GetDefinitionValue(unsigned index) override;
  // Index 0 takes a row index (32-bit integer) and writes the row's cells into the definition
  // values of the columns' parameters, all or none: refused for a row out of range, a row with an
  // empty cell or a column without parameter, and when a parameter does not take its cell.
  bool SetDefinitionValue(unsigned index, const OdResBufPtr& value) override;
  // The requested row while one is pending, else the matched row; -1 when none.
  int GetUpdatedState() const override;

  // Columns. Indices out of range raise eInvalidIndex.
  unsigned GetParameterCount() const;
  ParameterId GetParameterId(unsigned column) const;
  // Adds a column for value `valueIndex` of the parameter `id` of the same graph, with empty
  // cells. False when there is no such parameter or value, or the column exists already.
  bool AddParameterId(int id, unsigned valueIndex);
  bool HasParameterId(int id, unsigned valueIndex) const;
  // Drops the column and its cells; false when there is no such column.
  bool RemoveParameterId(int id, unsigned valueIndex);
  void RemoveParameter(unsigned column);
  // Moves a column, its cells with it.
  void MoveParameterId(unsigned from, unsigned to);

  // Rows. Indices out of range raise eInvalidIndex.
  unsigned GetStateCount() const;
  OdString GetStateName(unsigned state) const;
  void SetStateName(unsigned state, const OdString& name);
  // A copy of the cell; empty when the cell has no value.
  OdResBufPtr GetParameterValue(unsigned column, unsigned state) const;
  // Stores a copy of `value`, or empties the cell for an empty pointer. False when the column's
  // parameter is not in the graph or gives another kind of value.
  bool SetParameterValue(unsigned column, unsigned state, const OdResBufPtr& value);
  // Appends a row with a generated name and empty cells; returns its index.
  unsigned AddState();
  void RemoveState(unsigned state);
  void MoveState(unsigned from, unsigned to);
  // The base state name followed by the first counter from 1 that no row uses (ignoring case).
  OdString GenerateStateName() const;
  static OdString GetBaseStateName();

  const OdString& GetUnmatchedStateName() const;
  void SetUnmatchedStateName(const OdString& name);
  // A read-only table shows its row but cannot be set.
  bool IsReadOnly() const;
  void SetReadOnly(bool readOnly);
  // The first row matching the current values of the columns' parameters; -1 when none.
  int GetCurrentState() const;
  // What a block reference shows: the matched row's name, else the unmatched state name.
  OdString GetCurrentStateName() const;

  // Feeds the parameters the columns name, after this parameter's actions, so that a row the
  // action writes reaches them and their own actions in the same evaluation. Column edits and row
  // requests call it.
  void UpdateColumnConnections();

 private:
  CJbCustBlockLookupParameterImpl* LookupImpl() const;
  void CheckColumn(unsigned column) const;
  void CheckState(unsigned state) const;
  // The parameter a column names, or null when the graph holds none under that id.
  CJbCustBlockParameterPtr ColumnParameter(unsigned column) const;
  void SetUpdatedState(int state);
  // The first row whose cells equal the columns' current values, or their definition values;
  // -1 when none.
  int MatchRow(bool definition) const;
  // Takes the state the grip of point 0 requests and ends the request.
  void TakeGripRequest();
};

using CJbCustBlockLookupParameterPtr = OdSmartPtr<CJbCustBlockLookupParameter>;
