#include "FormView.h"

#include "Icons.h"

DialogView::DialogView(FormModel& form, QWidget* parent)
    : BoundView<QDialog>(form, parent)
{
    setModal(true);
    setWindowIcon(Icons::icon(QStringLiteral("VORNA")));
}

void DialogView::reject()
{
    // The form decides whether it goes: its handler hides it through the platform.
    m_binder.run(m_cancel);
}
