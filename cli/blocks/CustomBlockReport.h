// What the customizable blocks of a drawing hold, for people and scripts: per master block its
// parameters, properties with value sets, actions and grips; per reference its block, its
// anonymous instance block, its current property values and its extents. Another program's
// parametric blocks are listed too, marked as outside, with what they hold and the values their
// references record. As text, or as JSON of a fixed schema (documented in docs/cli.md).
#pragma once

#include <QJsonObject>
#include <string>

class OdDbDatabase;

class CustomBlockReport {
 public:
  // Version of the JSON schema; raised whenever a field changes meaning or goes away.
  static constexpr int kSchemaVersion = 1;

  static CustomBlockReport of(OdDbDatabase* database, const std::string& file);

  const QJsonObject& toJson() const { return m_json; }
  std::string toText() const;

 private:
  QJsonObject m_json;
};
