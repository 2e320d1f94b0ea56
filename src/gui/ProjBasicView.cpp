#include "ProjBasicView.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>

#include "frmProjBasic.h"

ProjBasicView::ProjBasicView(frmProjBasic& model, QWidget* parent)
    : DialogView(model, parent)
{
    auto* SSTab1 = new QTabWidget(this);
    auto* page = new QWidget;
    SSTab1->addTab(page, QString());
    m_binder.bind(SSTab1, model.SSTab1);
    auto* Frame1 = new QGroupBox(page);
    m_binder.bind(Frame1, model.Frame1);

    auto* txtPorjName = new QLineEdit(Frame1);
    m_binder.bind(txtPorjName, model.txtPorjName);
    auto* txtProjDsc = new QPlainTextEdit(Frame1);
    m_binder.bind(txtProjDsc, model.txtProjDsc);
    auto* chkIsUnicode = new QCheckBox(Frame1);
    m_binder.bind(chkIsUnicode, model.chkIsUnicode);

    auto* frame = new QGridLayout(Frame1);
    frame->addWidget(label(model.Label2), 0, 0);
    frame->addWidget(nameLabel(model.lblCreatedDate), 0, 1);
    frame->addWidget(label(model.Label3), 1, 0);
    frame->addWidget(nameLabel(model.lblModifiedDate), 1, 1);
    frame->addWidget(label(model.Label1, txtPorjName), 2, 0);
    frame->addWidget(txtPorjName, 2, 1);
    frame->addWidget(label(model.Label4, txtProjDsc), 3, 0, Qt::AlignTop);
    frame->addWidget(txtProjDsc, 3, 1);
    frame->addWidget(chkIsUnicode, 4, 1);
    frame->setColumnStretch(1, 1);
    frame->setRowStretch(3, 1);
    (new QGridLayout(page))->addWidget(Frame1, 0, 0);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->addWidget(SSTab1, 0, 0);
    grid->addLayout(okCancelRow(
                        model.CmdOK, [&model] { model.CmdOK_Click(); }, model.CmdCancel,
                        [&model] { model.CmdCancel_Click(); }),
        1, 0);
    grid->setRowStretch(0, 1);
    setFirstFocus(txtPorjName);
    resize(480, 380);
    refresh();
}
