#pragma once

#include <functional>
#include <map>
#include <vector>

#include "ProjectView.h"

// A stand-in for the main window that records what the project operations asked of it.
// Its tree is a plain list of nodes that a test seeds and reads back.
class RecordingView : public ProjectView
{
public:
    struct Node
    {
        int Parent = -1;
        QString Key;
        QString Text;
        QString Image;
        QString Tag;
        quint32 ForeColor = 0;
        bool operator==(const Node&) const = default;
    };

    int refreshCount = 0;
    int recentMenuCount = 0;
    std::map<QString, QString> panels;
    std::vector<QString> statusHistory; // every "Status" text in order
    std::vector<int> pointerHistory;

    std::vector<Node> nodes;
    int selectedNode = -1;
    int listFillCount = 0;
    std::vector<QString> locatedTags; // the Items joined by "," of each LocateCurRecord
    // Finds the record that LocateCurRecord names (Items(1), Items(2)); unset, it finds none.
    std::function<bool(const QString& kind, const QString& name)> locate;

    // The three branches of an open project under its root, as the window builds them.
    void seedBranches()
    {
        nodes = {{-1, {}, QStringLiteral("專案(P)"), QStringLiteral("Proj"), QStringLiteral("ProjName")},
            {0, QStringLiteral("Users"), QStringLiteral("連絡人"), QStringLiteral("UserName"),
                QStringLiteral("Users")},
            {0, QStringLiteral("UserGroups"), QStringLiteral("群組"), QStringLiteral("UserGroups"),
                QStringLiteral("UserGroups")},
            {0, QStringLiteral("Zones"), QStringLiteral("警報區"), QStringLiteral("Zones"),
                QStringLiteral("Zones")}};
    }

    void RefreshFormObj() override { ++refreshCount; }
    void mkRecentFilePathMenu() override { ++recentMenuCount; }
    void setStatusText(const QString& key, const QString& text) override
    {
        panels[key] = text;
        if (key == QStringLiteral("Status"))
            statusHistory.push_back(text);
    }
    void setMousePointer(int pointer) override { pointerHistory.push_back(pointer); }
    std::optional<WindowPlacement> windowPlacement() const override { return std::nullopt; }

    int nodeCount() const override { return static_cast<int>(nodes.size()); }
    QString nodeTag(int node) const override { return nodes.at(node).Tag; }
    int addNode(int parent, const QString& key, const QString& text, const QString& image,
        const QString& tag) override
    {
        nodes.push_back({parent, key, text, image, tag});
        return static_cast<int>(nodes.size()) - 1;
    }
    // Leaves only: the operations never remove a branch.
    void removeNode(int node) override
    {
        if (node < 0)
            return;
        nodes.erase(nodes.begin() + node);
        if (selectedNode == node)
            selectedNode = -1;
        else if (selectedNode > node)
            --selectedNode;
    }
    void selectNode(int node) override { selectedNode = node; }
    void setNodeText(int node, const QString& text) override
    {
        if (node >= 0)
            nodes.at(node).Text = text;
    }
    void setNodeTag(int node, const QString& tag) override
    {
        if (node >= 0)
            nodes.at(node).Tag = tag;
    }
    void setNodeForeColor(int node, quint32 color) override
    {
        if (node >= 0)
            nodes.at(node).ForeColor = color;
    }
    void refreshTree() override { }
    void mklvNodeContent() override { ++listFillCount; }
    void LocateCurRecord(NodeTagItems& Items, qint16 count, bool& found) override
    {
        QString tag;
        for (int i = 1; i <= count && i <= 4; ++i)
            tag += (i > 1 ? QStringLiteral(",") : QString()) + Items(i);
        locatedTags.push_back(tag);
        found = locate && count >= 2 && locate(Items(1), Items(2));
    }
};
