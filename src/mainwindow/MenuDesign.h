#pragma once

#include <span>

class frmMain;

// One entry of the main window's menus as designed: its name, the top entry it drops from
// (empty for a top entry), its caption ("-" a separator), its click (for a top entry the
// set-up that runs before it drops down), its shortcut key, whether the design hides it,
// whether it starts checked, and whether the form-text table has a row for its caption.
struct MenuDesign
{
    using Handler = void (frmMain::*)();

    const char* name;
    const char* parent;
    const char* caption;
    Handler click = nullptr;
    const char* shortcut = "";
    bool hidden = false;
    bool checked = false;
    bool formText = true;
};

// The menu bar in order, followed by the hidden popup of the tree and the list.
std::span<const MenuDesign> MenuDesigns();
