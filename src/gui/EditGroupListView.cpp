#include "EditGroupListView.h"

#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "frmEditGroupList.h"

EditGroupListView::EditGroupListView(frmEditGroupList& model, QWidget* parent)
    : DialogView(model, parent)
{
    QLabel* lblGroupName = nameLabel(model.lblGroupName);
    lblGroupName->setFrameShape(QFrame::StyledPanel);
    auto* txtGroupDsc = new QPlainTextEdit(this);
    m_binder.bind(txtGroupDsc, model.txtGroupDsc);
    auto* cmdRename = new QPushButton(this);
    m_binder.bind(cmdRename, model.cmdRename, [&model] { model.cmdRename_Click(); });

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->addWidget(label(model.Label1), 0, 0);
    grid->addWidget(lblGroupName, 0, 1);
    grid->addWidget(cmdRename, 0, 2);
    grid->addWidget(label(model.Label2, txtGroupDsc), 1, 0, Qt::AlignTop);
    grid->addWidget(txtGroupDsc, 1, 1, 1, 2);
    grid->addWidget(rule(model.Line1), 2, 0, 1, 3);
    grid->addLayout(okCancelRow(
                        model.cmdOK, [&model] { model.cmdOK_Click(); }, model.cmdCancel,
                        [&model] { model.cmdCancel_Click(); }),
        3, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
    // The description takes the keys first: the name changes only through the rename button.
    setFirstFocus(txtGroupDsc);
    resize(440, 260);
    refresh();
}
