// Shared set-up of the module tests: the module loaded from the build folder through the
// platform's loader, and a drawing whose block graph holds one element of every kind, made with
// this program's own copy of the element classes before the module is loaded.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/rx/OdRxModule.h"

OdString modulePath();
OdRxModulePtr loadModule();
void unloadModule();

// Registered class names of every element kind the drawing holds, in graph order.
const std::vector<std::string>& elementKindsOfDrawing();
// The drawing as DXF text; its graph sits in the named-objects dictionary under kGraphKey.
const std::string& drawingWithEveryElementKind();
constexpr const char* kGraphKey = "JB_MODULE_TEST_GRAPH";
