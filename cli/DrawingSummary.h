// What a drawing holds, for people and scripts: format version, units, model-space entities by
// kind, blocks with their sizes and uses, layers, extents and the classes kept without being
// understood. As text, or as JSON of a fixed schema (documented in docs/cli.md).
#pragma once

#include <QJsonObject>
#include <map>
#include <string>
#include <vector>

#include "platform/ge/OdGeExtents3d.h"

class OdDbDatabase;

class DrawingSummary {
 public:
  // Version of the JSON schema; raised whenever a field changes meaning or goes away.
  static constexpr int kSchemaVersion = 1;

  struct Block {
    std::string name;
    int entities = 0;
    int references = 0;
    bool anonymous = false;
  };
  struct Layer {
    std::string name;
    int color = 7;
    bool on = true;
    bool frozen = false;
    bool locked = false;
  };

  static DrawingSummary of(OdDbDatabase* database, const std::string& file);

  QJsonObject toJson() const;
  std::string toText() const;

  std::string file;
  std::string version;  // "R2018 (AC1032)", empty for a drawing not read from a file
  int units = 0;        // drawing units code, 0 unitless, 4 millimetres, ...
  std::map<std::string, int> entities;  // model space, by record name
  std::vector<Block> blocks;            // block definitions (model and paper space excluded)
  std::vector<Layer> layers;
  OdGeExtents3d extents;                      // of model space; invalid when empty
  std::map<std::string, int> unknownClasses;  // kept record names, with their count

  // The name of a units code ("millimeters"), or "unknown".
  static std::string unitsName(int code);
};
