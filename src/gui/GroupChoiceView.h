#pragma once

#include <QComboBox>
#include <QLabel>
#include <QVBoxLayout>

#include "FormView.h"

// A dialog that names a group and asks for one choice from a combo box that takes typing,
// with OK and Cancel: the dialogs that add a contact to a group and that move its members.
template<class Model> class GroupChoiceView : public DialogView
{
public:
    GroupChoiceView(Model& model, ComboBox& choice, QWidget* parent)
        : DialogView(model, parent)
    {
        QLabel* lblGroupName = nameLabel(model.lblGroupName);
        auto* combo = new QComboBox(this);
        combo->setEditable(true);
        m_binder.bind(combo, choice);
        setFirstFocus(combo);

        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(16, 16, 16, 12);
        layout->addWidget(lblGroupName);
        layout->addSpacing(8);
        layout->addWidget(label(model.Label1, combo));
        layout->addWidget(combo);
        layout->addSpacing(12);
        layout->addLayout(okCancelRow(
            model.cmdOK, [&model] { model.cmdOK_Click(); }, model.cmdCancel,
            [&model] { model.cmdCancel_Click(); }));
        setMinimumWidth(360);
        refresh();
    }
};
