#pragma once

#include "FormView.h"

class QLabel;
class frmEditZoneList;

// The editor of an alarm zone. Beside each message a count shows what it takes of its
// room in the device, in red when OK would refuse it.
class EditZoneListView : public DialogView
{
public:
    explicit EditZoneListView(frmEditZoneList& model, QWidget* parent = nullptr);
    void refresh() override;

private:
    frmEditZoneList& m_model;
    QLabel* m_alarmSize = nullptr;
    QLabel* m_resetSize = nullptr;
};
