#include "FormBinder.h"

#include <algorithm>
#include <memory>
#include <utility>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTextCursor>
#include <QTreeWidget>

#include "EventWatch.h"
#include "ItemLook.h"

namespace {

// Multi-line texts keep CR LF in the model, as they are stored and counted; the widget has LF.
QString toWidgetText(const QString& text)
{
    return QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

QString toModelText(const QString& text)
{
    return QString(text).replace(u'\n', QStringLiteral("\r\n"));
}

// A line break counts as the model keeps it, CR LF: two units.
int modelUnits(const QString& widgetText)
{
    return static_cast<int>(widgetText.size() + widgetText.count(u'\n'));
}

// An edit turned before into after and left the caret at the end of what it inserted (a key
// typed, a paste, a drop). Returns where the insertion must end for the whole to count no more
// than limit units: what does not fit is refused at the caret, and what was there before stays,
// even when it is longer than the limit (a text loaded from the project).
int fittingEnd(const QString& before, const QString& after, int caret, int limit)
{
    // The insertion starts where after departs from before, short of the text after the caret.
    const int bound = std::max(0, std::min(caret, static_cast<int>(before.size() - (after.size() - caret))));
    int start = 0;
    while (start < bound && before[start] == after[start])
        ++start;
    int over = modelUnits(after) - limit;
    int end = caret;
    while (over > 0 && end > start) {
        // A character outside the basic plane goes whole or stays whole.
        const int width
            = end - 2 >= start && after[end - 1].isLowSurrogate() && after[end - 2].isHighSurrogate() ? 2 : 1;
        over -= after[end - 1] == u'\n' ? 2 : width;
        end -= width;
    }
    return end;
}

bool sameColumns(const QTreeWidget* w, const std::vector<ColumnHeader>& columns)
{
    if (w->columnCount() != static_cast<int>(columns.size()))
        return false;
    for (int i = 0; i < w->columnCount(); ++i)
        if (w->headerItem()->text(i) != columns[i].Text)
            return false;
    return true;
}

} // namespace

FormBinder::FormBinder(std::function<void()> repaint, QObject* parent)
    : QObject(parent)
    , m_repaint(std::move(repaint))
{ }

void FormBinder::add(QWidget* widget, Control& control, std::function<void()> paintState)
{
    widget->setObjectName(control.Name);
    // Each control is its own target: a click on a label does not reach the frame under it.
    widget->setAttribute(Qt::WA_NoMousePropagation);
    m_painters.push_back([widget, &control, paintState = std::move(paintState)] {
        const QSignalBlocker block(widget);
        widget->setEnabled(control.Enabled);
        widget->setVisible(control.Visible);
        if (paintState)
            paintState();
    });
}

void FormBinder::bind(QLabel* widget, Label& control)
{
    add(widget, control, [widget, &control] { widget->setText(control.Caption); });
}

void FormBinder::bind(QProgressBar* widget, ProgressBar& control)
{
    add(widget, control, [widget, &control] {
        widget->setRange(control.Min, control.Max);
        widget->setValue(control.Value);
    });
}

void FormBinder::bind(QPushButton* widget, Label& control, Handler click)
{
    add(widget, control, [widget, &control] { widget->setText(control.Caption); });
    connect(widget, &QPushButton::clicked, this, [this, click = std::move(click)] { run(click); });
}

void FormBinder::bind(QCheckBox* widget, CheckBox& control, Handler click)
{
    add(widget, control, [widget, &control] {
        widget->setText(control.Caption);
        widget->setChecked(control.Value == CheckBox::Checked);
    });
    connect(widget, &QCheckBox::clicked, this, [this, &control, click = std::move(click)](bool on) {
        control.Value = on ? CheckBox::Checked : CheckBox::Unchecked;
        run(click);
    });
}

void FormBinder::bind(
    QLineEdit* widget, TextBox& control, Handler change, std::function<void(int& KeyAscii)> keyPress)
{
    if (keyPress)
        new EventWatch(widget, [this, keyPress = std::move(keyPress)](QEvent* event) {
            if (event->type() != QEvent::KeyPress)
                return false;
            const auto* key = static_cast<const QKeyEvent*>(event);
            int KeyAscii = 0;
            if (key->key() == Qt::Key_Backspace)
                KeyAscii = 8;
            else if (key->text().size() == 1 && key->text()[0].unicode() >= 32 && key->text()[0] != u'\x7f')
                KeyAscii = key->text()[0].unicode();
            else
                return false;
            run([&] { keyPress(KeyAscii); });
            return KeyAscii == 0;
        });
    add(widget, control, [widget, &control] {
        widget->setReadOnly(control.Locked);
        widget->setEchoMode(control.PasswordChar.isEmpty() ? QLineEdit::Normal : QLineEdit::Password);
        if (widget->text() != control.Text)
            widget->setText(control.Text);
        // The model may keep a selection past the end of a text it has since shortened.
        const int length = static_cast<int>(widget->text().size());
        const int start = std::clamp(control.SelStart, 0, length);
        const int selected = std::clamp(control.SelLength, 0, length - start);
        if (widget->cursorPosition() != start + selected || widget->selectionLength() != selected)
            widget->setSelection(start, selected);
    });
    connect(widget, &QLineEdit::selectionChanged, this, [widget, &control] {
        control.SelStart = widget->hasSelectedText() ? widget->selectionStart() : widget->cursorPosition();
        control.SelLength = static_cast<int>(widget->selectedText().size());
    });
    connect(widget, &QLineEdit::cursorPositionChanged, this, [widget, &control](int, int now) {
        if (!widget->hasSelectedText()) {
            control.SelStart = now;
            control.SelLength = 0;
        }
    });
    connect(widget, &QLineEdit::textEdited, this, [this, widget, &control, change = std::move(change)] {
        QString text = widget->text();
        int caret = widget->cursorPosition();
        if (control.MaxLength > 0) {
            const int end = fittingEnd(control.Text, text, caret, control.MaxLength);
            if (end < caret) {
                text.remove(end, caret - end);
                caret = end;
                const QSignalBlocker block(widget);
                widget->setText(text);
                widget->setCursorPosition(caret);
            }
        }
        control.Text = text;
        control.SelStart = caret;
        control.SelLength = 0;
        run(change);
    });
}

void FormBinder::bind(QPlainTextEdit* widget, TextBox& control, Handler change)
{
    widget->setTabChangesFocus(true);
    add(widget, control, [widget, &control] {
        widget->setReadOnly(control.Locked);
        if (toModelText(widget->toPlainText()) != control.Text)
            widget->setPlainText(toWidgetText(control.Text));
    });
    connect(widget, &QPlainTextEdit::textChanged, this, [this, widget, &control, change = std::move(change)] {
        if (control.MaxLength > 0) {
            const QString text = widget->toPlainText();
            const int caret = widget->textCursor().position();
            const int end = fittingEnd(toWidgetText(control.Text), text, caret, control.MaxLength);
            if (end < caret) {
                // Refused as part of the same edit, so that one undo takes back what was kept.
                const QSignalBlocker block(widget);
                QTextCursor refused(widget->document());
                refused.setPosition(end);
                refused.setPosition(caret, QTextCursor::KeepAnchor);
                refused.joinPreviousEditBlock();
                refused.removeSelectedText();
                refused.endEditBlock();
            }
        }
        control.Text = toModelText(widget->toPlainText());
        run(change);
    });
}

void FormBinder::bind(QComboBox* widget, ComboBox& control, Handler click, Handler change)
{
    // Its rows are names of any length: the box takes the width the layout gives it.
    widget->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    widget->setMinimumContentsLength(12);
    add(widget, control, [widget, &control] {
        bool same = widget->count() == control.ListCount();
        for (int i = 0; same && i < widget->count(); ++i)
            same = widget->itemText(i) == control.List[i];
        if (!same) {
            widget->clear();
            for (const QString& row : control.List)
                widget->addItem(row);
        }
        if (widget->currentIndex() != control.ListIndex)
            widget->setCurrentIndex(control.ListIndex);
        if (widget->isEditable() && widget->currentText() != control.Text)
            widget->setEditText(control.Text);
    });
    connect(widget, &QComboBox::activated, this, [this, &control, click = std::move(click)](int row) {
        control.ListIndex = row;
        control.Text = row >= 0 && row < control.ListCount() ? control.List[row] : QString();
        run(click);
    });
    if (widget->isEditable())
        connect(widget, &QComboBox::editTextChanged, this,
            [this, &control, change = std::move(change)](const QString& text) {
                control.SetText(text);
                run(change);
            });
}

void FormBinder::bind(QTreeWidget* widget, ListView& control, Handler click, Handler dblClick)
{
    widget->setRootIsDecorated(false);
    widget->setUniformRowHeights(true);
    widget->setAllColumnsShowFocus(true);
    // What was painted last, so that a repaint rebuilds the rows only when they changed.
    auto shown = std::make_shared<ListView>();
    add(widget, control, [widget, &control, shown] {
        if (!sameColumns(widget, control.ColumnHeaders)) {
            QStringList labels;
            for (const ColumnHeader& c : control.ColumnHeaders)
                labels << c.Text;
            widget->setColumnCount(static_cast<int>(labels.size()));
            widget->setHeaderLabels(labels);
            fitColumns(widget, control.ColumnHeaders);
        }
        if (shown->ListItems != control.ListItems) {
            widget->clear();
            for (const ListItem& row : control.ListItems) {
                QStringList texts {row.Text};
                for (const QString& sub : row.SubItems)
                    texts << sub;
                auto* item = new QTreeWidgetItem(widget, texts);
                if (row.ForeColor == SystemColor::GrayText)
                    for (int c = 0; c < item->columnCount(); ++c)
                        item->setForeground(c, widget->palette().brush(QPalette::Disabled, QPalette::Text));
            }
            shown->ListItems = control.ListItems;
        }
        QTreeWidgetItem* current
            = control.SelectedItem >= 0 ? widget->topLevelItem(control.SelectedItem) : nullptr;
        if (widget->currentItem() != current)
            widget->setCurrentItem(current);
    });
    // The keys move the selection; Click is a user's click on a row, the current row included.
    connect(widget, &QTreeWidget::currentItemChanged, this, [widget, &control](QTreeWidgetItem* current) {
        control.SelectedItem = current ? widget->indexOfTopLevelItem(current) : -1;
    });
    connect(widget, &QTreeWidget::itemClicked, this, [this, click = std::move(click)] { run(click); });
    connect(widget, &QTreeWidget::itemDoubleClicked, this,
        [this, dblClick = std::move(dblClick)] { run(dblClick); });
}

void FormBinder::bind(QGroupBox* widget, Frame& control)
{
    add(widget, control, [widget, &control] { widget->setTitle(control.Caption); });
}

void FormBinder::bind(QTabWidget* widget, TabStrip& control, Handler click)
{
    add(widget, control, [widget, &control] {
        for (int i = 0; i < widget->count() && i < static_cast<int>(control.TabCaptions.size()); ++i)
            widget->setTabText(i, control.TabCaptions[i]);
        widget->setCurrentIndex(control.Tab);
    });
    connect(widget, &QTabWidget::currentChanged, this, [this, &control, click = std::move(click)](int tab) {
        control.Tab = tab;
        run(click);
    });
}

void FormBinder::onClick(QWidget* widget, Handler click)
{
    new EventWatch(widget, [this, widget, click = std::move(click)](QEvent* event) {
        if (event->type() != QEvent::MouseButtonRelease)
            return false;
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton && widget->rect().contains(mouse->position().toPoint()))
            run(click);
        return false;
    });
}

void FormBinder::onMouseDown(QWidget* widget, std::function<void(int, int)> mouseDown)
{
    new EventWatch(widget, [this, mouseDown = std::move(mouseDown)](QEvent* event) {
        if (event->type() != QEvent::MouseButtonPress)
            return false;
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const int button = mouse->button() == Qt::LeftButton ? 1
            : mouse->button() == Qt::RightButton             ? 2
            : mouse->button() == Qt::MiddleButton            ? 4
                                                             : 0;
        const Qt::KeyboardModifiers keys = mouse->modifiers();
        const int shift = (keys & Qt::ShiftModifier ? 1 : 0) | (keys & Qt::ControlModifier ? 2 : 0)
            | (keys & Qt::AltModifier ? 4 : 0);
        run([&] { mouseDown(button, shift); });
        return false;
    });
}

void FormBinder::run(const Handler& handler)
{
    if (handler)
        handler();
    if (m_repaint)
        m_repaint();
}

void FormBinder::paint()
{
    for (const auto& painter : m_painters)
        painter();
}
