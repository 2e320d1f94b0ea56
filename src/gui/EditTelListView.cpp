#include "EditTelListView.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "frmEditTelList.h"

EditTelListView::EditTelListView(frmEditTelList& model, QWidget* parent)
    : DialogView(model, parent)
{
    // Made in their tab order: the number first, the buttons last.
    auto* txtTelNo = new QLineEdit(this);
    m_binder.bind(txtTelNo, model.txtTelNo);
    auto* chkIsDisable = new QCheckBox(this);
    m_binder.bind(chkIsDisable, model.chkIsDisable);
    auto* txtTelDsc = new QPlainTextEdit(this);
    txtTelDsc->setFixedHeight(txtTelDsc->fontMetrics().lineSpacing() * 3 + 12);
    m_binder.bind(txtTelDsc, model.txtTelDsc);
    auto* lvGroupName = new QTreeWidget(this);
    lvGroupName->setMinimumHeight(120);
    m_binder.bind(lvGroupName, model.lvGroupName);
    auto* cmdAdd = new QPushButton(this);
    m_binder.bind(cmdAdd, model.cmdAdd, [&model] { model.cmdAdd_Click(); });
    auto* cmdDelete = new QPushButton(this);
    m_binder.bind(cmdDelete, model.cmdDelete, [&model] { model.cmdDelete_Click(); });
    auto* cmdTelUserRename = new QPushButton(this);
    m_binder.bind(cmdTelUserRename, model.cmdTelUserRename, [&model] { model.cmdTelUserRename_Click(); });
    QBoxLayout* buttons = okCancelRow(
        model.cmdOK, [&model] { model.cmdOK_Click(); }, model.cmdCancel,
        [&model] { model.cmdCancel_Click(); });
    setFirstFocus(txtTelNo);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->addWidget(label(model.Label2), 0, 0);
    grid->addWidget(nameLabel(model.lblTelUser), 0, 1);
    grid->addWidget(cmdTelUserRename, 0, 2);
    grid->addWidget(label(model.Label1, txtTelNo), 1, 0);
    grid->addWidget(txtTelNo, 1, 1);
    grid->addWidget(chkIsDisable, 1, 2);
    grid->addWidget(label(model.Label3, txtTelDsc), 2, 0, Qt::AlignTop);
    grid->addWidget(txtTelDsc, 2, 1, 1, 2);
    grid->addWidget(label(model.Label5, lvGroupName), 3, 0, Qt::AlignTop);
    grid->addWidget(lvGroupName, 3, 1);
    auto* listButtons = new QVBoxLayout;
    listButtons->addWidget(cmdAdd);
    listButtons->addWidget(cmdDelete);
    listButtons->addStretch();
    grid->addLayout(listButtons, 3, 2);
    grid->addWidget(rule(model.Line1), 4, 0, 1, 3);
    grid->addLayout(buttons, 5, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(3, 1);
    setMinimumWidth(520);
    refresh();
}
