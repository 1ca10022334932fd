#include "module/commands/CJbQtCommandBLookupTable.h"

#include <cstdio>

#include "authoring/CJbCustBlockValueText.h"

void CJbQtCommandBLookupTable::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  const OdSmartPtr<CJbCustBlockLookupParameter> table = CJbCustBlockLookupParameter::cast(
      AskElement(graph.get(), "Lookup element name:", CJbCustBlockLookupParameter::desc()).get());
  ShowTable(graph.get(), table.get());
  const char* prompt =
      "+Element[value] adds a column, a name adds a row, row,column=value sets a "
      "cell (empty ends):";
  for (OdString answer = Ask(prompt); !answer.isEmpty(); answer = Ask(prompt)) {
    if (answer.getAt(0) == '+') {
      AddColumn(graph.get(), table.get(), answer.mid(1));
    } else if (answer.find('=') >= 0) {
      SetCell(graph.get(), table.get(), answer);
    } else {
      table->SetStateName(table->AddState(), answer);
    }
  }
  ShowTable(graph.get(), table.get());
}

void CJbQtCommandBLookupTable::ShowTable(const CJbDbCustBlockGraph* graph,
                                         const CJbCustBlockLookupParameter* table) const {
  OdString header = "Row";
  for (unsigned column = 0; column < table->GetParameterCount(); ++column) {
    const CJbCustBlockLookupParameter::ParameterId id = table->GetParameterId(column);
    const CJbCustBlockElementPtr parameter = graph->GetNode(id.first);
    header += " | " +
              (parameter.isNull() ? OdString::format("#%d", id.first) : parameter->GetName()) +
              OdString::format("[%u]", id.second);
  }
  Tell(header);
  for (unsigned row = 0; row < table->GetStateCount(); ++row) {
    OdString line = table->GetStateName(row);
    for (unsigned column = 0; column < table->GetParameterCount(); ++column)
      line += " | " + CJbCustBlockValueText::Format(table->GetParameterValue(column, row).get());
    Tell(line);
  }
}

void CJbQtCommandBLookupTable::SetCell(const CJbDbCustBlockGraph* graph,
                                       CJbCustBlockLookupParameter* table,
                                       const OdString& answer) const {
  unsigned row = 0, column = 0;
  int valueStart = 0;
  if (std::sscanf(answer.c_str(), "%u,%u=%n", &row, &column, &valueStart) != 2 || valueStart == 0 ||
      row < 1 || column < 1 || row > table->GetStateCount() || column > table->GetParameterCount())
    throw OdError(eInvalidInput, "\"" + answer.str() + "\" names no cell of the table");
  const CJbCustBlockLookupParameter::ParameterId id = table->GetParameterId(column - 1);
  const CJbCustBlockParameterPtr parameter =
      CJbCustBlockParameter::cast(graph->GetNode(id.first).get());
  const OdResBufPtr kind = parameter.isNull() ? OdResBufPtr() : parameter->GetValue(id.second);
  const OdString text(answer.c_str() + valueStart);
  const OdResBufPtr value =
      kind.isNull() ? OdResBufPtr() : CJbCustBlockValueText::Parse(text, kind->restype());
  if (value.isNull() || !table->SetParameterValue(column - 1, row - 1, value))
    throw OdError(eInvalidInput,
                  "\"" + text.str() + "\" is no value for column " + std::to_string(column));
}

void CJbQtCommandBLookupTable::AddColumn(const CJbDbCustBlockGraph* graph,
                                         CJbCustBlockLookupParameter* table,
                                         const OdString& answer) const {
  OdString name = answer;
  unsigned valueIndex = 0;
  const int bracket = answer.find('[');
  if (bracket >= 0) {
    name = answer.left(bracket);
    if (std::sscanf(answer.c_str() + bracket, "[%u]", &valueIndex) != 1)
      throw OdError(eInvalidInput, "\"" + answer.str() + "\" is no column; type +Element[value]");
  }
  for (int id : graph->GetAllNodeIds()) {
    if (!graph->GetNode(id)->GetName().iEquals(name)) continue;
    if (!table->AddParameterId(id, valueIndex))
      throw OdError(eInvalidInput, "\"" + answer.str() + "\" gives the table no new column");
    return;
  }
  throw OdError(eKeyNotFound, "the block has no element \"" + name.str() + "\"");
}
