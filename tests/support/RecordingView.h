#pragma once

#include <map>
#include <vector>

#include "ProjectView.h"

// A stand-in for the main window that records what the project operations asked of it.
class RecordingView : public ProjectView
{
public:
    int refreshCount = 0;
    int recentMenuCount = 0;
    std::map<QString, QString> panels;
    std::vector<QString> statusHistory; // every "Status" text in order
    std::vector<int> pointerHistory;
    WindowPlacement placement {200, 200, 10800, 6900, 0, 3};

    void RefreshFormObj() override { ++refreshCount; }
    void mkRecentFilePathMenu() override { ++recentMenuCount; }
    void setStatusText(const QString& key, const QString& text) override
    {
        panels[key] = text;
        if (key == QStringLiteral("Status"))
            statusHistory.push_back(text);
    }
    void setMousePointer(int pointer) override { pointerHistory.push_back(pointer); }
    std::optional<WindowPlacement> windowPlacement() const override { return placement; }
};
