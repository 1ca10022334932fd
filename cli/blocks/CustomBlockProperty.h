// One property of a customizable block as users see it: a named value of one parameter, shown
// and typed as text (lengths as numbers, angles in degrees, mirror states as "flipped" or
// "not-flipped", list states by name) and checked against the author's limits.
#pragma once

#include <QJsonValue>
#include <string>
#include <vector>

#include "core/CJbDbCustBlockGraph.h"
#include "parameters/CJbCustBlockParameter.h"
#include "parameters/CJbCustBlockParameterValueInfo.h"

class CustomBlockProperty {
 public:
  using ValueType = CJbCustBlockParameterValueInfo::ValueType;

  // A mirror state as users read and type it: "flipped" or "not-flipped".
  static std::string flipText(bool flipped);

  // The named properties of the graph's parameters, by element id and value index.
  static std::vector<CustomBlockProperty> of(const CJbDbCustBlockGraph* graph);

  const std::string& name() const { return m_name; }
  int parameterId() const { return m_parameterId; }
  unsigned index() const { return m_index; }
  ValueType type() const { return m_type; }
  // "distance", "angle", "flip", "visibility", "lookup", "position".
  std::string typeName() const;
  // Whether `jbcb set` can change it (positions cannot).
  bool isSettable() const;

  // The parameter's updated value, as text and as JSON (numbers for lengths and angles).
  std::string text(const CJbCustBlockParameter* parameter) const;
  QJsonValue json(const CJbCustBlockParameter* parameter) const;
  // The value set and, for list states, the state names; null when unconstrained.
  QJsonValue valueSetJson(const CJbCustBlockParameter* parameter) const;
  // What the property accepts, for error messages: "a length from 600 to 1200 in steps of 100".
  std::string allowed(const CJbCustBlockParameter* parameter) const;
  // The value typed as `text`, ready for SetValue; false with `error` saying what is allowed
  // when the text is not of this kind or outside the author's limits.
  bool parse(const CJbCustBlockParameter* parameter, const std::string& text, OdResBufPtr& value,
             std::string& error) const;

 private:
  CustomBlockProperty(const std::string& name, int parameterId, unsigned index, ValueType type)
      : m_name(name), m_parameterId(parameterId), m_index(index), m_type(type) {}

  bool isLength() const;
  const CJbCustBlockParameterValueInfo* info(const CJbCustBlockParameter* parameter) const;
  bool isState() const;
  // The state names of a visibility or lookup parameter, by index.
  std::vector<std::string> states(const CJbCustBlockParameter* parameter) const;

  std::string m_name;
  int m_parameterId;
  unsigned m_index;
  ValueType m_type;
};
