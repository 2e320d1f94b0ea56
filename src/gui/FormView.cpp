#include "FormView.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>

#include "Icons.h"

DialogView::DialogView(FormModel& form, QWidget* parent)
    : BoundView<QDialog>(form, parent)
{
    setModal(true);
    setWindowIcon(Icons::icon(QStringLiteral("VORNA")));
}

void DialogView::showEvent(QShowEvent* event)
{
    BoundView<QDialog>::showEvent(event);
    if (m_firstFocus)
        m_firstFocus->setFocus();
}

void DialogView::reject()
{
    // The form decides whether it goes: its handler hides it through the platform.
    m_binder.run(m_cancel);
}

QBoxLayout* DialogView::okCancelRow(
    Label& cmdOK, FormBinder::Handler okClick, Label& cmdCancel, FormBinder::Handler cancelClick)
{
    auto* ok = new QPushButton(this);
    ok->setDefault(true);
    m_binder.bind(ok, cmdOK, okClick);
    auto* cancel = new QPushButton(this);
    m_binder.bind(cancel, cmdCancel, cancelClick);
    setCancel(std::move(cancelClick));
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(ok);
    row->addWidget(cancel);
    return row;
}

QFrame* DialogView::rule(Control& line)
{
    auto* frame = new QFrame(this);
    frame->setFrameShape(QFrame::HLine);
    frame->setFrameShadow(QFrame::Sunken);
    m_binder.bind(frame, line);
    return frame;
}
