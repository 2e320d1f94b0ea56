#pragma once

#include <span>

// One entry of the main window's menus as designed: its name, the top entry it drops from
// (empty for a top entry), its caption ("-" a separator), its shortcut key, whether the
// design hides it, and whether it starts checked.
struct MenuDesign
{
    const char* name;
    const char* parent;
    const char* caption;
    const char* shortcut = "";
    bool hidden = false;
    bool checked = false;
};

// The menu bar in order, followed by the hidden popup of the tree and the list.
std::span<const MenuDesign> MenuDesigns();
