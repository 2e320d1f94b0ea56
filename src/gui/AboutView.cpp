#include "AboutView.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "Icons.h"
#include "frmAbout.h"

AboutView::AboutView(frmAbout& model, QWidget* parent)
    : DialogView(model, parent)
{
    auto* picIcon = new QLabel(this);
    picIcon->setPixmap(Icons::pixmap(QStringLiteral("VORNA"), 32));
    m_binder.bind(picIcon, model.picIcon);
    m_binder.onMouseDown(
        picIcon, [&model](int Button, int Shift) { model.picIcon_MouseDown(Button, Shift); });

    auto* lblTitle = new QLabel(this);
    QFont title = lblTitle->font();
    title.setPointSize(title.pointSize() + 4);
    title.setBold(true);
    lblTitle->setFont(title);
    m_binder.bind(lblTitle, model.lblTitle);
    auto* Label1 = new QLabel(this);
    m_binder.bind(Label1, model.Label1);
    auto* lblVersion = new QLabel(this);
    m_binder.bind(lblVersion, model.lblVersion);
    auto* cmdOK = new QPushButton(this);
    cmdOK->setDefault(true);
    m_binder.bind(cmdOK, model.cmdOK, [&model] { model.cmdOK_Click(); });
    setCancel([&model] { model.cmdOK_Click(); });

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->setHorizontalSpacing(16);
    grid->addWidget(picIcon, 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(lblTitle, 0, 1);
    grid->addWidget(Label1, 1, 1);
    grid->addWidget(lblVersion, 2, 1);
    grid->setRowMinimumHeight(3, 12);
    grid->addWidget(cmdOK, 4, 1, Qt::AlignRight);
    grid->setColumnStretch(1, 1);
    // Wide enough for the longest caption of each language; the layout grows it if need be.
    setMinimumWidth(380);
    refresh();
}
