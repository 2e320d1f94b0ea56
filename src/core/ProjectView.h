#pragma once

#include <optional>

#include <QString>

#include "VBArray.h"

// A node's Tag parsed into its fields: Items(1) the kind word, Items(2) the record's name
// or number. Every caller declares its own.
using NodeTagItems = VBArray<QString, 1, 4>;

// What the project operations need of the main window. The window's model implements
// it; tests use a recording fake. Declared here so that the operations never reach up
// into the window's library.
class ProjectView
{
public:
    virtual ~ProjectView() = default;

    // Brings the window into line with the open project (caption, tree, list, panels).
    virtual void RefreshFormObj() = 0;
    // Sets the four recent-file entries from the shared list.
    virtual void mkRecentFilePathMenu() = 0;
    // Text of a status bar panel, by key ("Status", "ProjName", "ConnectStatus").
    virtual void setStatusText(const QString& panelKey, const QString& text) = 0;
    // The picture of a status bar panel, by the image's key ("Connect", "DisConnect").
    virtual void setStatusPicture(const QString&, const QString&) { }
    // The main window's mouse pointer (Pointer::Default, Pointer::Hourglass).
    virtual void setMousePointer(int pointer) = 0;

    // Where the window stands, in twips, for the settings store at exit.
    struct WindowPlacement
    {
        double Left = 0;
        double Top = 0;
        double Width = 0;
        double Height = 0;
        int WindowState = 0; // 0 normal, 1 minimised, 2 maximised
        int View = 0;        // the content list's view mode
    };
    // Nothing when there is no window whose place is worth keeping.
    virtual std::optional<WindowPlacement> windowPlacement() const = 0;

    // The pause between two attempts of a device command: startSleep sets the window's
    // delay flag and starts its sleep timer, whose event clears the flag. A view without
    // the timer has no pause.
    virtual void startSleep() { }
    virtual bool isInDelay() const { return false; }

    // The tree tvProjectContent. A node is known by its index in collection order, from 0;
    // -1 stands for no node.
    virtual int nodeCount() const = 0;
    virtual QString nodeTag(int node) const = 0;
    // Adds a node as the last child of parent; returns its index.
    virtual int addNode(
        int parent, const QString& key, const QString& text, const QString& image, const QString& tag)
        = 0;
    // Removes the node and its children; -1 does nothing.
    virtual void removeNode(int node) = 0;
    // Makes the node the tree's selected item.
    virtual void selectNode(int node) = 0;
    // A node's text, Tag and colour (SystemColor::GrayText, or an RGB colour); -1 does
    // nothing, and so does a view without a tree.
    virtual void setNodeText(int, const QString&) { }
    virtual void setNodeTag(int, const QString&) { }
    virtual void setNodeForeColor(int, quint32) { }
    // Repaints the tree after nodes were added, removed or selected.
    virtual void refreshTree() = 0;
    // Fills the content list for the tree's selected node.
    virtual void mklvNodeContent() = 0;
    // Makes the record that the parsed Tag names the current row of its shared recordset.
    virtual void LocateCurRecord(NodeTagItems& Items, qint16 count, bool& found) = 0;
};

// The view of a program without a window (vorna-cli) and of a program whose window is not
// made yet: every call does nothing.
class NullProjectView : public ProjectView
{
public:
    static NullProjectView& instance()
    {
        static NullProjectView view;
        return view;
    }
    void RefreshFormObj() override { }
    void mkRecentFilePathMenu() override { }
    void setStatusText(const QString&, const QString&) override { }
    void setMousePointer(int) override { }
    std::optional<WindowPlacement> windowPlacement() const override { return std::nullopt; }
    int nodeCount() const override { return 0; }
    QString nodeTag(int) const override { return {}; }
    int addNode(int, const QString&, const QString&, const QString&, const QString&) override { return -1; }
    void removeNode(int) override { }
    void selectNode(int) override { }
    void refreshTree() override { }
    void mklvNodeContent() override { }
    void LocateCurRecord(NodeTagItems&, qint16, bool& found) override { found = false; }
};
