#include "SelectModelView.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>

#include "frmSelectModel.h"

SelectModelView::SelectModelView(frmSelectModel& model, QWidget* parent)
    : DialogView(model, parent)
{
    auto* Frame1 = new QGroupBox(this);
    m_binder.bind(Frame1, model.Frame1);
    auto* cmbModel = new QComboBox(Frame1);
    m_binder.bind(cmbModel, model.cmbModel);

    auto* frame = new QGridLayout(Frame1);
    frame->addWidget(label(model.Label1, cmbModel), 0, 0);
    frame->addWidget(cmbModel, 0, 1);
    frame->setColumnStretch(1, 1);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->addWidget(Frame1, 0, 0);
    grid->addLayout(okCancelRow(
                        model.CmdOK, [&model] { model.CmdOK_Click(); }, model.cmdExit,
                        [&model] { model.cmdExit_Click(); }),
        1, 0);
    setFirstFocus(cmbModel);
    setMinimumWidth(320);
    refresh();
}
