#pragma once

#include <array>
#include <iterator>

#include <QString>

#include "ProjectView.h"

class VORNAGlobal;
struct Menu;

// The popup of the tree and the list, its entries in menu order.
inline constexpr const char* ContextMenuEntryNames[]
    = {"mnuProjConentAddGroupList", "mnuProjConentAddTelList", "mnuProjConentBar1",
        "mnuProjConentDeleteTelList", "mnuProjConentDeleteGroupList", "mnuProjConentEditGroupList",
        "mnuProjConentEditTelList", "mnuProjConentEditZoneList", "mnuProjConentBar2", "mnuProjConentAddUser",
        "mnuProjConentAddGroup", "mnuProjConentMoveUser"};
using ContextMenuEntries = std::array<Menu*, std::size(ContextMenuEntryNames)>;

// A right click: where it was, and what the tree and the list had selected at that moment.
struct ContextMenuClick
{
    enum class Source { Tree, List };
    Source source = Source::Tree;
    bool hasNode = false;
    QString nodeTag;
    QString nodeText; // the node's displayed text
    bool hasRow = false;
    QString rowText;
};

// What a right click shows. AsLeft shows the entries as the previous click left them, and
// EditsHidden the same with the edit and delete entries hidden and the first bar shown.
enum class ContextMenuSet {
    NoMenu,
    AddContact,
    AddGroup,
    OneContact,
    OneGroup,
    OneZone,
    AsLeft,
    EditsHidden
};

struct ContextMenuDecision
{
    ContextMenuSet set = ContextMenuSet::NoMenu;
    // The record to make current before the menu shows, as LocateCurRecord takes it; a count
    // below 2 moves none.
    NodeTagItems Items;
    qint16 count = 0;
    bool shows() const { return set != ContextMenuSet::NoMenu; }
};

// Decides the menu of a right click and sets the entries' visibility and captions for it. An
// entry that the situation does not touch keeps what the previous click left it; with no menu
// none is touched.
ContextMenuDecision DecideContextMenu(
    const VORNAGlobal& g, const ContextMenuClick& click, const ContextMenuEntries& entries);
