// What one parametric block of another program holds, by kind, in this system's words: its
// parameters with their points, grips, value sets and states, its actions and what they act on,
// and every part that was not understood, named by its kind. It is read from the drawing by
// CJbOutsideBlockReader and is all that the listing and the conversion look at.
#pragma once

#include <map>
#include <vector>

#include "platform/base/OdString.h"
#include "platform/db/OdDbObjectId.h"
#include "platform/ge/OdGePoint3d.h"

class CJbOutsideBlock {
 public:
  enum class ParameterKind { kLinear, kFlip, kVisibility };
  enum class ActionKind { kScale, kFlip };

  // A grip drawn at `position` that drags point `point` of its parameter.
  struct Grip {
    int node = 0;
    OdString name;
    unsigned point = 0;
    OdGePoint3d position;
  };
  // A visibility state: the controlled entities and the elements (by node) it shows.
  struct State {
    OdString name;
    std::vector<OdDbObjectId> visibleEntities;
    std::vector<int> visibleNodes;
  };
  struct Parameter {
    int node = 0;
    ParameterKind kind = ParameterKind::kLinear;
    OdString name;         // the element's name
    OdString property;     // the name its value goes by
    OdString description;  // what the author wrote about it
    // Points as defined: start and end of a linear or flip parameter, the one point of a
    // visibility parameter.
    std::vector<OdGePoint3d> points;
    std::vector<Grip> grips;
    OdString notFlippedName, flippedName;
    // The entities a visibility parameter shows or hides; the others are always shown.
    std::vector<OdDbObjectId> controlledEntities;
    std::vector<State> states;
  };
  struct Action {
    int node = 0;
    ActionKind kind = ActionKind::kScale;
    OdString name;
    int parameter = 0;  // the node of the parameter that drives it
    std::vector<OdDbObjectId> entities;
  };
  // A part that is not converted: its kind (the other program's record name), its name when it
  // has one, and why.
  struct Unconverted {
    OdString kind;
    OdString name;
    OdString reason;
  };

  OdDbObjectId blockId;
  // The block's name; for a definition kept under an anonymous name, the name its program
  // shows.
  OdString name;
  std::vector<Parameter> parameters;
  std::vector<Action> actions;
  std::vector<Unconverted> unconverted;

  const Parameter* FindParameter(int node) const;
  // The name of the parameter, grip or action of a node; empty for another node.
  OdString NameOf(int node) const;
  // How many parts of each kind are not converted.
  std::map<OdString, int> UnconvertedByKind() const;
};
