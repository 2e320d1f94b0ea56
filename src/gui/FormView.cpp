#include "FormView.h"

#include <algorithm>

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>

#include "ElidedLabel.h"
#include "EventWatch.h"
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
    fitToScreen();
    for (QPlainTextEdit* box : findChildren<QPlainTextEdit*>())
        box->installEventFilter(this);
    for (QComboBox* combo : findChildren<QComboBox*>())
        if (combo->isEditable()) {
            combo->installEventFilter(this);
            combo->lineEdit()->installEventFilter(this);
        }
    if (m_firstFocus)
        m_firstFocus->setFocus();
}

// The multi-line boxes would take Enter as a new line, and a combo box that takes typing as its
// own: it is the dialog's, and Ctrl+Enter is a multi-line box's new line.
bool DialogView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        auto* box = qobject_cast<QPlainTextEdit*>(watched);
        QPushButton* button = defaultButton();
        const auto* combo = qobject_cast<QComboBox*>(watched);
        if (button && isEnter(event)
            && (qobject_cast<QLineEdit*>(watched) || (combo && combo->isEditable()))) {
            button->click();
            return true;
        }
        if (box && button && isEnter(event)) {
            if (!(key->modifiers() & Qt::ControlModifier))
                button->click();
            else if (!box->isReadOnly())
                box->insertPlainText(QStringLiteral("\n"));
            return true;
        }
    }
    return BoundView<QDialog>::eventFilter(watched, event);
}

QPushButton* DialogView::defaultButton() const
{
    for (QPushButton* button : findChildren<QPushButton*>())
        if (button->isDefault() && button->isVisible() && button->isEnabled())
            return button;
    return nullptr;
}

// A dialog asking for more than the screen's free room is cut to it, and put back on it.
void DialogView::fitToScreen()
{
    const QScreen* shown = screen();
    if (!shown)
        return;
    const QRect room = shown->availableGeometry();
    const QSize frame = frameGeometry().size() - size();
    const QSize most = room.size() - frame;
    if (width() > most.width() || height() > most.height())
        resize(size().boundedTo(most));
    QRect place = frameGeometry();
    place.moveRight(std::min(place.right(), room.right()));
    place.moveBottom(std::min(place.bottom(), room.bottom()));
    place.moveLeft(std::max(place.left(), room.left()));
    place.moveTop(std::max(place.top(), room.top()));
    if (place.topLeft() != frameGeometry().topLeft())
        move(place.topLeft());
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

QLabel* DialogView::label(Label& control, QWidget* buddy)
{
    auto* widget = new QLabel(this);
    m_binder.bind(widget, control);
    widget->setBuddy(buddy);
    return widget;
}

QLabel* DialogView::nameLabel(Label& control)
{
    auto* widget = new ElidedLabel(this);
    m_binder.bind(widget, control);
    return widget;
}

QFrame* DialogView::rule(Control& line)
{
    auto* frame = new QFrame(this);
    frame->setFrameShape(QFrame::HLine);
    frame->setFrameShadow(QFrame::Sunken);
    m_binder.bind(frame, line);
    return frame;
}
