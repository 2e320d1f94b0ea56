#include "FormBinder.h"

#include <memory>

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>

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

int pixels(double twips)
{
    return qRound(twips / 15.0);
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

void FormBinder::bind(QWidget* widget, Control& control)
{
    add(widget, control, {});
}

void FormBinder::bind(QLabel* widget, Label& control)
{
    add(widget, control, [widget, &control] { widget->setText(control.Caption); });
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

void FormBinder::bind(QLineEdit* widget, TextBox& control, Handler change)
{
    add(widget, control, [widget, &control] {
        widget->setMaxLength(control.MaxLength > 0 ? control.MaxLength : 32767);
        widget->setReadOnly(control.Locked);
        widget->setEchoMode(control.PasswordChar.isEmpty() ? QLineEdit::Normal : QLineEdit::Password);
        if (widget->text() != control.Text)
            widget->setText(control.Text);
        if (widget->cursorPosition() != control.SelStart + control.SelLength
            || widget->selectionLength() != control.SelLength)
            widget->setSelection(control.SelStart, control.SelLength);
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
        control.Text = widget->text();
        control.SelStart = widget->cursorPosition();
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
        QString text = toModelText(widget->toPlainText());
        // The limit counts what the model keeps, CR LF as two.
        if (control.MaxLength > 0 && text.size() > control.MaxLength) {
            text.truncate(control.MaxLength);
            if (text.endsWith(u'\r'))
                text.chop(1);
            const QSignalBlocker block(widget);
            const int cursor = widget->textCursor().position();
            widget->setPlainText(toWidgetText(text));
            QTextCursor c = widget->textCursor();
            c.setPosition(std::min(cursor, static_cast<int>(widget->toPlainText().size())));
            widget->setTextCursor(c);
        }
        control.Text = text;
        run(change);
    });
}

void FormBinder::bind(QComboBox* widget, ComboBox& control, Handler click)
{
    add(widget, control, [widget, &control] {
        bool same = widget->count() == control.ListCount();
        for (int i = 0; same && i < widget->count(); ++i)
            same = widget->itemText(i) == control.List[i];
        if (!same) {
            widget->clear();
            for (const QString& row : control.List)
                widget->addItem(row);
        }
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
            [&control](const QString& text) { control.Text = text; });
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
            for (int i = 0; i < static_cast<int>(control.ColumnHeaders.size()); ++i)
                widget->header()->resizeSection(i, pixels(control.ColumnHeaders[i].Width));
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
    connect(widget, &QTreeWidget::currentItemChanged, this,
        [this, widget, &control, click = std::move(click)](QTreeWidgetItem* current) {
            control.SelectedItem = current ? widget->indexOfTopLevelItem(current) : -1;
            if (current)
                run(click);
        });
    connect(widget, &QTreeWidget::itemDoubleClicked, this,
        [this, dblClick = std::move(dblClick)] { run(dblClick); });
}

void FormBinder::onClick(QWidget* widget, Handler click)
{
    m_clicks[widget] = std::move(click);
    widget->installEventFilter(this);
}

void FormBinder::onMouseDown(QWidget* widget, std::function<void(int, int)> mouseDown)
{
    m_mouseDowns[widget] = std::move(mouseDown);
    widget->installEventFilter(this);
}

bool FormBinder::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        const auto it = m_mouseDowns.find(watched);
        if (it != m_mouseDowns.end()) {
            const auto* mouse = static_cast<QMouseEvent*>(event);
            const int button = mouse->button() == Qt::LeftButton ? 1
                : mouse->button() == Qt::RightButton             ? 2
                : mouse->button() == Qt::MiddleButton            ? 4
                                                                 : 0;
            const Qt::KeyboardModifiers keys = mouse->modifiers();
            const int shift = (keys & Qt::ShiftModifier ? 1 : 0) | (keys & Qt::ControlModifier ? 2 : 0)
                | (keys & Qt::AltModifier ? 4 : 0);
            const auto handler = it->second;
            run([&] { handler(button, shift); });
        }
    } else if (event->type() == QEvent::MouseButtonRelease) {
        const auto it = m_clicks.find(watched);
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (it != m_clicks.end() && mouse->button() == Qt::LeftButton
            && static_cast<QWidget*>(watched)->rect().contains(mouse->position().toPoint())) {
            const Handler handler = it->second;
            run(handler);
        }
    }
    return QObject::eventFilter(watched, event);
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
