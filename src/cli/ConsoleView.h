#pragma once

#include "ProjectView.h"

// What the project operations ask of the main window, for a terminal: there is no tree
// or list to keep up, so only the status texts remain, printed when asked for.
class ConsoleView : public NullProjectView
{
public:
    explicit ConsoleView(bool verbose)
        : m_verbose(verbose)
    { }

    void setStatusText(const QString& panelKey, const QString& text) override;

private:
    bool m_verbose;
};
