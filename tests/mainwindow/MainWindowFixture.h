#pragma once

#include "CoreFixture.h"
#include "frmMain.h"

// The window model on the installation of the core tests, not started.
class MainWindowTest : public InstallationTest
{
protected:
    MainWindowTest() { g.setView(&main); }

    frmMain main {g};
};

// The same, started.
class ProjectWindowTest : public MainWindowTest
{
protected:
    ProjectWindowTest() { start(); }
};
