#pragma once

#include <concepts>
#include <functional>
#include <vector>

#include <QObject>

#include "Controls.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QStatusBar;
class QTabWidget;
class QTreeView;
class QTreeWidget;
class QWidget;

// Ties the widgets of a view to the controls of its form model. Each widget takes its
// control's name as objectName, is painted from the control's state with its signals
// blocked, and hands its events to the model's handler of that name; after a handler the
// whole form is painted again. Widgets write only control state: what reaches the project
// is SaveFormObj's to write.
class FormBinder : public QObject
{
public:
    using Handler = std::function<void()>;

    // repaint paints the whole form (the view's refresh), after every handler.
    explicit FormBinder(std::function<void()> repaint, QObject* parent = nullptr);

    // A control with nothing to paint but its name, Enabled and Visible: a rule, a picture, a
    // plain container. Every typed control has a binding of its own and is refused here.
    template<class C>
    requires std::same_as<C, Control>
    void bind(QWidget* widget, C& control) { add(widget, control, {}); }
    void bind(QLabel* widget, Label& control);
    void bind(QPushButton* widget, Label& control, Handler click);
    void bind(QCheckBox* widget, CheckBox& control, Handler click = {});
    // keyPress sees each character typed, Backspace as 8, before the box takes it: setting
    // KeyAscii to 0 drops the key. Keys without a character (arrows, Delete, shortcuts) pass.
    void bind(QLineEdit* widget, TextBox& control, Handler change = {},
        std::function<void(int& KeyAscii)> keyPress = {});
    void bind(QPlainTextEdit* widget, TextBox& control, Handler change = {});
    // click runs when the user picks a row; change when the user types into an editable combo,
    // whose typed text is the control's Text (and chooses the row that holds it, if any).
    void bind(QComboBox* widget, ComboBox& control, Handler click = {}, Handler change = {});
    // A report list: click when the user clicks a row, dblClick on a double click.
    void bind(QTreeWidget* widget, ListView& control, Handler click = {}, Handler dblClick = {});
    // A frame around other controls, with its caption.
    void bind(QGroupBox* widget, Frame& control);
    void bind(QProgressBar* widget, ProgressBar& control);
    // The view adds the pages; the control gives their captions and the current tab, and
    // click runs when the user picks a tab.
    void bind(QTabWidget* widget, TabStrip& control, Handler click = {});

    // A window's tree over an item model of its nodes. nodeClick runs when the user selects a
    // node, by a press of the left button or by the keys; dblClick on a double click, and on
    // Enter, which also opens or closes a node with children as a double click does.
    void bind(QTreeView* widget, TreeView& control, Handler nodeClick, Handler dblClick);
    // A window's report list over an item model of its rows, each column at its width as the
    // columns change; dblClick on a double click and on Enter.
    void bind(QTreeView* widget, ListView& control, Handler dblClick);
    // A status bar: one label a panel, named by its key, the first one stretching; a panel's
    // picture shows in a label of its own, named by the key and "Picture", before its text.
    void bind(QStatusBar* widget, StatusBar& control);

    // A click (press and release of the left button over it) on a widget without a click
    // signal of its own: a label, a frame, a picture.
    void onClick(QWidget* widget, Handler click);
    // A press of any button, with the button (1 left, 2 right, 4 middle) and the keys held
    // (Shift 1, Ctrl 2, Alt 4).
    void onMouseDown(QWidget* widget, std::function<void(int Button, int Shift)> mouseDown);

    // Runs a handler, then paints the form.
    void run(const Handler& handler);
    // Paints every bound widget from its control.
    void paint();

private:
    void add(QWidget* widget, Control& control, std::function<void()> paintState);

    std::function<void()> m_repaint;
    std::vector<std::function<void()>> m_painters;
};
