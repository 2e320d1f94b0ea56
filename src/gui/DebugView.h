#pragma once

#include "CommSettingRowsView.h"

class frmDebug;

// The register service window: the settings write on one tab, the register list on the other.
class DebugView : public CommSettingRowsView
{
public:
    explicit DebugView(frmDebug& model, QWidget* parent = nullptr);
};
