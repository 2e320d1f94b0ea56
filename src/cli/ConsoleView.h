#pragma once

#include "ProjectView.h"

// What the project operations ask of the main window, for a terminal: there is no tree
// or list to keep up, so only the status texts remain, printed when asked for.
class ConsoleView : public ProjectView
{
public:
    explicit ConsoleView(bool verbose)
        : m_verbose(verbose)
    { }

    void RefreshFormObj() override { }
    void mkRecentFilePathMenu() override { }
    void setStatusText(const QString& panelKey, const QString& text) override;
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

private:
    bool m_verbose;
};
