#include "ToolsOptionsView.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include "frmToolsOptions.h"

ToolsOptionsView::ToolsOptionsView(frmToolsOptions& model, QWidget* parent)
    : DialogView(model, parent)
{
    auto* sstToolsOptions = new QTabWidget(this);
    auto* page = new QWidget;
    sstToolsOptions->addTab(page, QString());
    m_binder.bind(sstToolsOptions, model.sstToolsOptions);
    auto* Frame1 = new QGroupBox(page);
    m_binder.bind(Frame1, model.Frame1);

    auto* txtRetry = new QLineEdit(Frame1);
    txtRetry->setMaximumWidth(80);
    m_binder.bind(txtRetry, model.txtRetry);
    auto* txtTimeOut = new QLineEdit(Frame1);
    txtTimeOut->setMaximumWidth(80);
    m_binder.bind(txtTimeOut, model.txtTimeOut);

    auto* frame = new QGridLayout(Frame1);
    frame->addWidget(label(model.Label1, txtRetry), 0, 0);
    frame->addWidget(txtRetry, 0, 1);
    frame->addWidget(label(model.Label2, txtTimeOut), 1, 0);
    frame->addWidget(txtTimeOut, 1, 1);
    frame->addWidget(label(model.Label3), 1, 2);
    frame->setColumnStretch(3, 1);

    auto* cmdSetDefault = new QPushButton(page);
    m_binder.bind(cmdSetDefault, model.cmdSetDefault, [&model] { model.cmdSetDefault_Click(); });

    auto* tab = new QGridLayout(page);
    tab->addWidget(Frame1, 0, 0, 1, 2);
    tab->addWidget(cmdSetDefault, 1, 1);
    tab->setColumnStretch(0, 1);
    tab->setRowStretch(2, 1);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->addWidget(sstToolsOptions, 0, 0);
    grid->addLayout(okCancelRow(
                        model.CmdOK, [&model] { model.CmdOK_Click(); }, model.cmdExit,
                        [&model] { model.cmdExit_Click(); }),
        1, 0);
    setFirstFocus(txtRetry);
    setMinimumWidth(360);
    refresh();
}
