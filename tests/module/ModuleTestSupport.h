// Shared set-up of the module tests: the module loaded from the build folder through the
// platform's loader, and a drawing whose block graph holds one element of every kind, made with
// this program's own copy of the element classes before the module is loaded.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/db/OdDbObject.h"
#include "platform/rx/OdRxModule.h"

OdString modulePath();
OdRxModulePtr loadModule();
void unloadModule();

// Names of the registered classes, in registration order.
std::vector<std::string> registeredClassNames();

// Registered class names of every element kind the drawing holds, in graph order.
const std::vector<std::string>& elementKindsOfDrawing();
// The drawing as DXF text: a block DOOR made customizable through the drawing's storage.
const std::string& drawingWithEveryElementKind();
// The graph of DOOR in a database read from that text.
OdDbObjectPtr graphOf(OdDbDatabase* database, OdDb::OpenMode mode = OdDb::kForRead);
