#include "MessageView.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include "frmMessage.h"

MessageView::MessageView(frmMessage& model, QWidget* parent)
    : BoundView<QDialog>(model, parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
{
    auto* lblMessage = new QLabel(this);
    lblMessage->setMinimumWidth(320);
    m_binder.bind(lblMessage, model.lblMessage);
    auto* lblProgress = new QLabel(this);
    m_binder.bind(lblProgress, model.lblProgress);
    auto* prgProgress = new QProgressBar(this);
    // The label above says which record goes; the bar shows no text of its own.
    prgProgress->setTextVisible(false);
    prgProgress->setFormat(QString());
    m_binder.bind(prgProgress, model.prgProgress);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 20);
    layout->addWidget(lblMessage);
    layout->addWidget(lblProgress);
    layout->addWidget(prgProgress);
    refresh();
}
