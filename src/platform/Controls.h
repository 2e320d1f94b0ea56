#pragma once

#include <functional>
#include <vector>

#include <QString>
#include <QVariant>

class FormModel;

// Colours as the controls store them: the two system colours, or an RGB colour (0xBBGGRR).
namespace SystemColor {
inline constexpr quint32 WindowText = 0x80000008;
inline constexpr quint32 GrayText = 0x80000011;
} // namespace SystemColor

// The state of one control of a form, as plain data that the form's handlers read and write
// and that a view paints. A control is declared once in its form, with its name:
//     Label Label1 {*this, "Label1"};
// which registers it, so that the form-text table and the view both find it by that name.
struct Control
{
    Control() = default;
    Control(FormModel& form, const char* name);
    // A copy is a plain value that no form knows.
    Control(const Control&) = default;
    Control& operator=(const Control&) = default;
    virtual ~Control() = default;

    QString Name;
    bool Enabled = true;
    bool Visible = true;
    // Place in twips; only the forms that lay themselves out use it.
    double Left = 0;
    double Top = 0;
    double Width = 0;
    double Height = 0;

    // The text property that the form-text table names ("Caption", "Text", "TabCaption(0)"),
    // of the control itself (empty part) or of a part of it ("Panels(1)"); null when there is none.
    virtual QString* textProperty(const QString& part, const QString& property);

    bool operator==(const Control&) const = default;
};

struct Label : Control
{
    using Control::Control;
    QString Caption;
    QString* textProperty(const QString& part, const QString& property) override;
    bool operator==(const Label&) const = default;
};

struct CommandButton : Label
{
    using Label::Label;
};

// A frame around other controls, with its caption.
struct Frame : Label
{
    using Label::Label;
};

struct CheckBox : Label
{
    using Label::Label;
    static constexpr int Unchecked = 0;
    static constexpr int Checked = 1;
    int Value = Unchecked;
    bool operator==(const CheckBox&) const = default;
};

struct TextBox : Control
{
    using Control::Control;
    QString Text;
    int MaxLength = 0; // 0: no limit
    bool Locked = false;
    bool MultiLine = false;
    QString PasswordChar; // one character shown in place of each typed one, or empty
    int SelStart = 0;
    int SelLength = 0;
    QString* textProperty(const QString& part, const QString& property) override;
    bool operator==(const TextBox&) const = default;
};

// A drop-down list. Each row has the value behind it: what a form sends is that value,
// never the row's index. The chosen row and the text move together: choose through
// SelectRow or SelectText.
struct ComboBox : Control
{
    using Control::Control;
    std::vector<QString> List;
    std::vector<QVariant> ItemData;
    int ListIndex = -1; // -1: no row chosen
    QString Text;

    // Empties the list, the choice and the text.
    void Clear();
    void AddItem(const QString& text, const QVariant& data = {});
    // Chooses the row and shows its text; an index out of the list chooses none.
    void SelectRow(int index);
    // Chooses the first row with that text. A drop-down list takes no other text: one that no
    // row holds is an unhandled error.
    void SelectText(const QString& text);
    // An editable combo takes any text: the first row that holds it is chosen, or none.
    void SetText(const QString& text);
    int ListCount() const { return static_cast<int>(List.size()); }
    // How a choice dialog offers its rows: enabled while it has some, else holding the one
    // row `none`, disabled; the first row is chosen. True when it had rows.
    bool OfferRowsOr(const QString& none);
    // The value behind the chosen row, or an invalid value when none is chosen.
    QVariant selectedData() const;
    QString* textProperty(const QString& part, const QString& property) override;
    bool operator==(const ComboBox&) const = default;
};

struct ColumnHeader
{
    QString Text;
    double Width = 0; // twips
    bool operator==(const ColumnHeader&) const = default;
};

struct ListItem
{
    QString Text;
    std::vector<QString> SubItems; // SubItems(1) is SubItems[0]
    quint32 ForeColor = SystemColor::WindowText;
    QString Key {}; // unique in its list, or empty
    QString Tag {}; // the form's own data on the row
    bool operator==(const ListItem&) const = default;
};

// A list of rows under column headers.
struct ListView : Control
{
    using Control::Control;
    // The View values; the forms keep the detail view of their design.
    static constexpr int lvwReport = 3;
    std::vector<ColumnHeader> ColumnHeaders;
    std::vector<ListItem> ListItems;
    int SelectedItem = -1; // index into ListItems, -1 for none
    int View = lvwReport;
    bool operator==(const ListView&) const = default;
};

struct Node
{
    int Parent = -1; // index into Nodes, -1 for a top node
    QString Key;
    QString Text;
    QString Image;
    QString Tag;
    quint32 ForeColor = SystemColor::WindowText;
    bool Expanded = false;
    bool operator==(const Node&) const = default;
};

struct TreeView : Control
{
    using Control::Control;
    std::vector<Node> Nodes;
    int SelectedItem = -1; // index into Nodes, -1 for none
    bool operator==(const TreeView&) const = default;
};

struct Panel
{
    QString Key;
    QString Text;
    QString Picture; // image key, or empty
    bool operator==(const Panel&) const = default;
};

// Its panels are the parts "Panels(1)", "Panels(2)", ... of the form-text table.
struct StatusBar : Control
{
    using Control::Control;
    std::vector<Panel> Panels;
    QString* textProperty(const QString& part, const QString& property) override;
    bool operator==(const StatusBar&) const = default;
};

// A tabbed container; its captions are the properties "TabCaption(0)", "TabCaption(1)", ...
// The controls placed on it belong to the form, which finds them by their own names.
struct TabStrip : Control
{
    using Control::Control;
    std::vector<QString> TabCaptions;
    int Tab = 0;
    QString* textProperty(const QString& part, const QString& property) override;
    bool operator==(const TabStrip&) const = default;
};

// A menu entry. Top entries have an empty Parent; a Caption of "-" is a separator.
struct Menu : Control
{
    using Control::Control;
    QString Parent;
    QString Caption;
    QString Shortcut; // "Ctrl+N", or empty
    bool Checked = false;
    bool HiddenByDesign = false;
    QString* textProperty(const QString& part, const QString& property) override;
    bool operator==(const Menu&) const = default;
};

// A bar that fills from Min to Max as Value grows.
struct ProgressBar : Control
{
    using Control::Control;
    int Min = 0;
    int Max = 100;
    int Value = 0;
    bool operator==(const ProgressBar&) const = default;
};

// A timer: Enabled starts and stops it, so set it through setEnabled for the view to follow.
struct Timer : Control
{
    using Control::Control;
    int Interval = 0; // milliseconds
    std::function<void()> onEnabledChanged;
    void setEnabled(bool on)
    {
        Enabled = on;
        if (onEnabledChanged)
            onEnabledChanged();
    }
};
