// Tests that draw text need a GUI application for fonts: one offscreen application
// for the whole program.
#include <QGuiApplication>

#include "support/gui/ApplicationEnvironment.h"

namespace {
::testing::Environment* const kGui =
    ::testing::AddGlobalTestEnvironment(new ApplicationEnvironment<QGuiApplication>);
}  // namespace
