#include "EditZoneListView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "frmEditZoneList.h"

namespace {

QLabel* sizeLabel(QWidget* parent, const char* name)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setAlignment(Qt::AlignRight);
    return label;
}

void paintSize(QLabel* label, const frmEditZoneList::MessageSize& size)
{
    label->setText(QStringLiteral("%1/%2").arg(size.used).arg(size.limit));
    label->setStyleSheet(size.fits() ? QString() : QStringLiteral("color: red;"));
}

} // namespace

EditZoneListView::EditZoneListView(frmEditZoneList& model, QWidget* parent)
    : DialogView(model, parent)
    , m_model(model)
{
    auto* txtZoneName = new QLineEdit(this);
    m_binder.bind(txtZoneName, model.txtZoneName);
    auto* txtZoneDsc = new QPlainTextEdit(this);
    txtZoneDsc->setFixedHeight(txtZoneName->sizeHint().height() * 2);
    m_binder.bind(txtZoneDsc, model.txtZoneDsc);
    auto* cmbGroupName = new QComboBox(this);
    m_binder.bind(cmbGroupName, model.cmbGroupName);
    auto* txtAlarmSMS = new QPlainTextEdit(this);
    m_binder.bind(txtAlarmSMS, model.txtAlarmSMS);
    auto* txtResetSMS = new QPlainTextEdit(this);
    m_binder.bind(txtResetSMS, model.txtResetSMS);
    auto* chkIsDisable = new QCheckBox(this);
    m_binder.bind(chkIsDisable, model.chkIsDisable);
    m_alarmSize = sizeLabel(this, "AlarmSMSSize");
    m_resetSize = sizeLabel(this, "ResetSMSSize");

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->addWidget(label(model.Label3), 0, 0);
    grid->addWidget(label(model.lblZoneNo), 0, 1);
    grid->addWidget(label(model.Label2, txtZoneName), 1, 0);
    grid->addWidget(txtZoneName, 1, 1);
    grid->addWidget(label(model.Label4, txtZoneDsc), 2, 0, Qt::AlignTop);
    grid->addWidget(txtZoneDsc, 2, 1);
    grid->addWidget(label(model.Label1, cmbGroupName), 3, 0);
    grid->addWidget(cmbGroupName, 3, 1);
    grid->addWidget(rule(model.Line1), 4, 0, 1, 2);
    grid->addWidget(label(model.Label5, txtAlarmSMS), 5, 0, Qt::AlignTop);
    grid->addWidget(txtAlarmSMS, 5, 1);
    grid->addWidget(m_alarmSize, 6, 1);
    grid->addWidget(label(model.Label6, txtResetSMS), 7, 0, Qt::AlignTop);
    grid->addWidget(txtResetSMS, 7, 1);
    grid->addWidget(m_resetSize, 8, 1);
    grid->addWidget(rule(model.Line2), 9, 0, 1, 2);
    grid->addWidget(chkIsDisable, 10, 1);
    grid->addLayout(okCancelRow(
                        model.cmdOK, [&model] { model.cmdOK_Click(); }, model.cmdCancel,
                        [&model] { model.cmdCancel_Click(); }),
        11, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(5, 1);
    grid->setRowStretch(7, 1);
    setFirstFocus(txtZoneName);
    resize(520, 520);
    refresh();
}

void EditZoneListView::refresh()
{
    DialogView::refresh();
    // The counts read the open project, which a hidden form may not have.
    if (!m_model.Visible)
        return;
    paintSize(m_alarmSize, m_model.MessageSizeOf(m_model.txtAlarmSMS.Text));
    paintSize(m_resetSize, m_model.MessageSizeOf(m_model.txtResetSMS.Text));
}
