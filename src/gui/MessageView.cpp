#include "MessageView.h"

#include <QLabel>
#include <QVBoxLayout>

#include "frmMessage.h"

MessageView::MessageView(frmMessage& model, QWidget* parent)
    : BoundView<QDialog>(model, parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
{
    auto* lblMessage = new QLabel(this);
    lblMessage->setMinimumWidth(320);
    m_binder.bind(lblMessage, model.lblMessage);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 20);
    layout->addWidget(lblMessage);
    refresh();
}
