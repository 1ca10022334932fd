// One row of the module's class tables: a run-time class of the customizable blocks, where it
// stands in the module's registration order, and what the module attaches to it: the editing
// utilities of a kind that users add (its name, command keyword, main value type and the grip it
// puts on its points) and the properties it adds to its parent's in the properties palette. Each
// layer exports one table of these rows, so a new kind is one class pair and one row.
#pragma once

#include "core/CJbCustBlockProperty.h"
#include "platform/base/OdArray.h"
#include "platform/host/CJbCustBlockElementUtilsPE.h"
#include "platform/rx/OdRxClassTable.h"

struct CJbCustBlockKindRow {
  using Family = CJbCustBlockElementUtilsPE::Family;
  using ClassGetter = OdRxClass* (*)();
  using Properties = OdArray<CJbCustBlockProperty>;
  using PropertyList = Properties (*)();

  // Where a class stands among the module's classes: the bases, then the element kinds, then the
  // database objects, the reactors and the protocol-extension classes. Within a stage, classes
  // of no family come first, then parameters, actions and grips, each in table order.
  enum class Stage { kBase, kKind, kObject, kReactor, kExtension };

  OdRxClassRow cls;
  Stage stage = Stage::kBase;
  Family family = Family::kOther;
  // Editing utilities of a kind; a row without a display name has none.
  const char* displayName = nullptr;
  const char* keyword = nullptr;
  int valueType = 0;
  ClassGetter gripKind = nullptr;
  // The properties the class adds to its parent's; a row without a list gets no palette
  // extension of its own.
  PropertyList properties = nullptr;

  // A base of the element kinds.
  template <class T>
  static CJbCustBlockKindRow Base(Family family, PropertyList properties = nullptr) {
    CJbCustBlockKindRow row = Of<T>(Stage::kBase);
    row.family = family;
    row.properties = properties;
    return row;
  }
  // A parameter kind: the result type of its main value (0 for none) and the grip it puts on its
  // points.
  template <class T>
  static CJbCustBlockKindRow Parameter(const char* displayName, const char* keyword, int valueType,
                                       ClassGetter gripKind,
                                       PropertyList properties = &NoMoreProperties) {
    CJbCustBlockKindRow row = Kind<T>(Family::kParameter, displayName, keyword, properties);
    row.valueType = valueType;
    row.gripKind = gripKind;
    return row;
  }
  template <class T>
  static CJbCustBlockKindRow Action(const char* displayName, const char* keyword,
                                    PropertyList properties = &NoMoreProperties) {
    return Kind<T>(Family::kAction, displayName, keyword, properties);
  }
  template <class T>
  static CJbCustBlockKindRow Grip(const char* displayName, const char* keyword,
                                  PropertyList properties = &NoMoreProperties) {
    return Kind<T>(Family::kGrip, displayName, keyword, properties);
  }
  // A class that is no element: the graph, the storage, reactors, protocol extensions.
  template <class T>
  static CJbCustBlockKindRow Of(Stage stage) {
    CJbCustBlockKindRow row;
    row.cls = odrxClassRow<T>();
    row.stage = stage;
    return row;
  }

  // The place of a row in the module's registration order: its stage, then its family.
  static int Rank(const CJbCustBlockKindRow& row);
  // The list of a class that shows its parent's properties and no more.
  static Properties NoMoreProperties();

 private:
  template <class T>
  static CJbCustBlockKindRow Kind(Family family, const char* displayName, const char* keyword,
                                  PropertyList properties) {
    CJbCustBlockKindRow row = Of<T>(Stage::kKind);
    row.family = family;
    row.displayName = displayName;
    row.keyword = keyword;
    row.properties = properties;
    return row;
  }
};

// The class table of one layer, or the module's merged one.
using CJbCustBlockKindTable = OdRxClassTable<CJbCustBlockKindRow>;
