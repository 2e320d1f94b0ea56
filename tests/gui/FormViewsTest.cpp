#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTest>
#include <QTextCursor>
#include <QTreeView>

#include <gtest/gtest.h>

#include "FormBinder.h"
#include "FormText.h"
#include "FormView.h"
#include "GuiApp.h"
#include "QtPlatform.h"
#include "TestFolder.h"
#include "VornaApp.h"

namespace {

using FormViewsTest = VornaWindowTest;

// The texts a control gives its widget to show, in the order the widget shows them.
QStringList controlTexts(const Control& c)
{
    QStringList texts;
    if (const auto* box = dynamic_cast<const TextBox*>(&c))
        texts << box->Text;
    else if (const auto* label = dynamic_cast<const Label*>(&c))
        texts << label->Caption;
    else if (const auto* combo = dynamic_cast<const ComboBox*>(&c))
        texts = QStringList(combo->List.begin(), combo->List.end());
    else if (const auto* tabs = dynamic_cast<const TabStrip*>(&c))
        texts = QStringList(tabs->TabCaptions.begin(), tabs->TabCaptions.end());
    else if (const auto* list = dynamic_cast<const ListView*>(&c))
        for (const ColumnHeader& column : list->ColumnHeaders)
            texts << column.Text;
    texts.removeAll(QString());
    return texts;
}

// The texts a widget shows: a caption, a title, a box's text as the model keeps it, a list's
// rows, column headers or tab captions.
QStringList shownTexts(const QObject* w)
{
    QStringList texts;
    if (const auto* label = qobject_cast<const QLabel*>(w))
        texts << label->text();
    else if (const auto* button = qobject_cast<const QAbstractButton*>(w))
        texts << button->text();
    else if (const auto* frame = qobject_cast<const QGroupBox*>(w))
        texts << frame->title();
    else if (const auto* line = qobject_cast<const QLineEdit*>(w))
        texts << line->text();
    else if (const auto* box = qobject_cast<const QPlainTextEdit*>(w))
        texts << box->toPlainText().replace(u'\n', QStringLiteral("\r\n"));
    else if (const auto* combo = qobject_cast<const QComboBox*>(w))
        for (int i = 0; i < combo->count(); ++i)
            texts << combo->itemText(i);
    else if (const auto* tabs = qobject_cast<const QTabWidget*>(w))
        for (int i = 0; i < tabs->count(); ++i)
            texts << tabs->tabText(i);
    else if (const auto* list = qobject_cast<const QTreeView*>(w); list && !list->isHeaderHidden())
        for (int i = 0; i < list->model()->columnCount(); ++i)
            texts << list->model()->headerData(i, Qt::Horizontal).toString();
    texts.removeAll(QString());
    return texts;
}

// Each control of the form has a widget of its name in the window, showing the control's text
// (the menus are the main window's own).
void expectWidgetsShowTheirControls(const QWidget* window, const FormModel& form)
{
    for (const Control* c : form.controls()) {
        const std::string name = (form.formName() + u'.' + c->Name).toStdString();
        const QObject* widget = window->findChild<QObject*>(c->Name);
        ASSERT_NE(widget, nullptr) << name;
        if (!dynamic_cast<const Menu*>(c)) {
            EXPECT_EQ(shownTexts(widget), controlTexts(*c)) << name;
        }
    }
}

// The control types that no shipped dialog uses yet, and two boxes to hold at a limit.
class frmSample : public FormModel
{
public:
    QString formName() const override { return QStringLiteral("frmSample"); }
    Frame fraPort {*this, "fraPort"};
    TabStrip sstPages {*this, "sstPages"};
    TextBox txtLine {*this, "txtLine"};
    TextBox txtLines {*this, "txtLines"};
};

struct SampleView
{
    SampleView()
    {
        binder.bind(new QGroupBox(&window), form.fraPort);
        auto* tabs = new QTabWidget(&window);
        tabs->addTab(new QWidget, QString());
        tabs->addTab(new QWidget, QString());
        binder.bind(tabs, form.sstPages);
        binder.bind(line, form.txtLine);
        binder.bind(lines, form.txtLines);
        window.show();
    }

    VornaApplication& app = guiApp();
    frmSample form;
    FormBinder binder {[this] { binder.paint(); }};
    QWidget window;
    QLineEdit* line = new QLineEdit(&window);
    QPlainTextEdit* lines = new QPlainTextEdit(&window);
};

} // namespace

TEST(FormBinderTest, AFrameAndATabStripShowTheirCaptions)
{
    SampleView v;
    v.form.fraPort.Caption = QStringLiteral("Port");
    v.form.sstPages.TabCaptions = {QStringLiteral("Line"), QStringLiteral("Dialler")};
    v.binder.paint();
    expectWidgetsShowTheirControls(&v.window, v.form);
}

// A limit refuses what does not fit, at the caret (the bar), and never takes away what was
// there. The texts are the model's, where a line break is CR LF.
TEST(FormBinderTest, ABoxAtItsMaxLengthRefusesWhatDoesNotFitAtTheCaret)
{
    struct Case
    {
        const char* name;
        bool multiLine;
        int maxLength;
        const char* before;
        const char* typed;
        bool paste;
        const char* after;
    };
    const Case cases[] = {
        {"a full line refuses a key in its middle", false, 5, "ab|cde", "x", false, "abcde"},
        {"a paste longer than the room keeps its head", false, 6, "ab|cd", "xyz", true, "abxycd"},
        {"a line loaded longer than the limit stays whole", false, 3, "abcdef|", "x", false, "abcdef"},
        {"a key with room goes in at the caret", true, 7, "a|b\r\ncd", "x", false, "axb\r\ncd"},
        {"a full box refuses a key in its middle", true, 6, "a|b\r\ncd", "x", false, "ab\r\ncd"},
        {"a pasted line break counts two", true, 7, "ab|cd", "x\ny", true, "abx\r\ncd"},
        {"a box loaded longer than the limit stays whole", true, 3, "|ab\r\ncd", "x", false, "ab\r\ncd"},
    };
    for (const Case& c : cases) {
        SampleView v;
        TextBox& box = c.multiLine ? v.form.txtLines : v.form.txtLine;
        QWidget* widget = c.multiLine ? static_cast<QWidget*>(v.lines) : v.line;
        box.MaxLength = c.maxLength;
        box.Text = QString::fromLatin1(c.before).remove(u'|');
        v.binder.paint();
        const int caret = static_cast<int>(QString::fromLatin1(c.before).remove(u'\r').indexOf(u'|'));
        if (c.multiLine) {
            QTextCursor cursor(v.lines->document());
            cursor.setPosition(caret);
            v.lines->setTextCursor(cursor);
        } else {
            v.line->setCursorPosition(caret);
        }
        if (c.paste) {
            QGuiApplication::clipboard()->setText(QString::fromLatin1(c.typed));
            QTest::keySequence(widget, QKeySequence::Paste);
        } else {
            QTest::keyClicks(widget, QString::fromLatin1(c.typed));
        }
        EXPECT_EQ(box.Text, QString::fromLatin1(c.after)) << c.name;
        EXPECT_EQ(shownTexts(widget), QStringList {box.Text}) << c.name;
    }
}

TEST_F(FormViewsTest, EveryControlHasAWidgetOfItsNameShowingItsTextAndEveryTextPathHasARow)
{
    for (FormModel* form : vorna.forms()) {
        const std::string name = form->formName().toStdString();
        ApplyFormText(vorna.g.ml, *form);
        FormView& view = platform.viewOf(*form);
        view.refresh();
        EXPECT_EQ(view.widget()->objectName(), form->formName());
        expectWidgetsShowTheirControls(view.widget(), *form);
        for (const FormTextPath& t : form->formTexts()) {
            const QString path = QString::fromLatin1(t.path);
            const QString property = QString::fromLatin1(t.property);
            EXPECT_NE(form->textProperty(path, property), nullptr)
                << name << " " << t.path << " " << t.property;
            EXPECT_FALSE(vorna.g.ml.FindFormText(form->formName(), path, property).isEmpty())
                << name << " " << t.path << " has no row in the shipped form table";
        }
    }
}

TEST_F(FormViewsTest, TheSplashEndsItsWaitOnlyOnTheControlsThatTakeAClick)
{
    struct Case
    {
        const char* control;
        bool endsWait;
    };
    const Case cases[]
        = {{"Label3", false}, {"frmSplash", false}, {"Label1", true}, {"Label2", true}, {"lblVersion", true},
            {"lblProductName", true}, {"lblCompanyProduct", true}, {"Image1", true}, {"fraMainFrame", true}};
    for (const Case& c : cases) {
        vorna.splash.Unload();
        platform.showModeless(vorna.splash);
        QWidget* window = platform.existingView(QStringLiteral("frmSplash"))->widget();
        QWidget* target = window->objectName() == QLatin1String(c.control)
            ? window
            : window->findChild<QWidget*>(QString::fromLatin1(c.control));
        ASSERT_NE(target, nullptr) << c.control;
        // The window's own margin lies outside the frame; a control is clicked at its corner.
        QTest::mouseClick(target, Qt::LeftButton, {}, QPoint(2, 2));
        EXPECT_EQ(vorna.splash.clicked(), c.endsWait) << c.control;
        EXPECT_EQ(window->isVisible(), !c.endsWait) << c.control;
    }
}

TEST_F(FormViewsTest, EscapeClosesTheAboutBoxWhichLoadsAfreshAtEachShowing)
{
    for (int showing = 0; showing < 2; ++showing) {
        atNextModal([](QWidget* modal) { QTest::keyClick(modal, Qt::Key_Escape); });
        platform.showModal(vorna.about);
        EXPECT_FALSE(vorna.about.isLoaded()) << "closing the box unloads it";
    }
    const auto* version = platform.existingView(QStringLiteral("frmAbout"))
                              ->widget()
                              ->findChild<QLabel*>(QStringLiteral("lblVersion"));
    ASSERT_NE(version, nullptr);
    EXPECT_EQ(version->text().count(u'.'), 2)
        << "the version is appended once: " << version->text().toStdString();
}
