#pragma once

#include "VornaApplication.h"

// The one application object of the GUI tests, made on first use.
inline VornaApplication& guiApp()
{
    static int argc = 1;
    static char name[] = "gui_tests";
    static char* argv[] = {name, nullptr};
    // Never destroyed: the SQL driver's own clean-up at exit must not run after it.
    static VornaApplication* instance = new VornaApplication(argc, argv);
    return *instance;
}
