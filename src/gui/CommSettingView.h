#pragma once

#include "CommSettingRowsView.h"

class frmCommSetting;

// The device settings dialog: the link settings on one tab, the dialler's identity on the other.
class CommSettingView : public CommSettingRowsView
{
public:
    explicit CommSettingView(frmCommSetting& model, QWidget* parent = nullptr);
};
