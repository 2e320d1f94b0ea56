#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>

#include "FormBinder.h"
#include "FormView.h"
#include "GuiApp.h"

namespace {

using FormViewsTest = VornaWindowTest;

// The texts a control gives its widget to show, in the order the widget shows them.
QStringList controlTexts(Control& c)
{
    QStringList texts;
    if (const auto* tabs = dynamic_cast<const TabStrip*>(&c))
        texts = QStringList(tabs->TabCaptions.begin(), tabs->TabCaptions.end());
    else if (const auto* list = dynamic_cast<const ListView*>(&c))
        for (const ColumnHeader& column : list->ColumnHeaders)
            texts << column.Text;
    else
        for (const char* property : {"Caption", "Text"})
            if (const QString* text = c.textProperty({}, QString::fromLatin1(property)))
                texts << *text;
    texts.removeAll(QString());
    return texts;
}

// The texts a widget shows: its caption, title, text (a box's as the model keeps it, CR LF) or
// current row, its tab captions or column headers.
QStringList shownTexts(const QObject* w)
{
    QStringList texts;
    for (const char* property : {"text", "title", "plainText", "currentText"})
        if (const QVariant text = w->property(property); text.isValid())
            texts << text.toString().replace(u'\n', "\r\n");
    if (const auto* tabs = qobject_cast<const QTabWidget*>(w))
        for (int i = 0; i < tabs->count(); ++i)
            texts << tabs->tabText(i);
    if (const auto* list = qobject_cast<const QTreeView*>(w); list && !list->isHeaderHidden())
        for (int i = 0; i < list->model()->columnCount(); ++i)
            texts << list->model()->headerData(i, Qt::Horizontal).toString();
    texts.removeAll(QString());
    return texts;
}

// Two boxes to hold at a limit, one line and several.
class frmSample : public FormModel
{
public:
    QString formName() const override { return "frmSample"; }
    TextBox txtLine {*this, "txtLine"};
    TextBox txtLines {*this, "txtLines"};
};

struct SampleView
{
    SampleView()
    {
        binder.bind(&line, form.txtLine);
        binder.bind(&lines, form.txtLines);
    }

    VornaApplication& app = guiApp();
    frmSample form;
    FormBinder binder {[this] { binder.paint(); }};
    QLineEdit line;
    QPlainTextEdit lines;
};

} // namespace

// A limit refuses what does not fit, at the caret (the bar), and never takes away what was
// there. One character is typed, more are pasted. The texts are the model's: a line break is
// CR LF.
TEST(FormBinderTest, ABoxAtItsMaxLengthRefusesWhatDoesNotFitAtTheCaret)
{
    struct Case
    {
        const char* name;
        bool multiLine;
        int maxLength;
        const char* before;
        const char* typed;
        const char* after;
    };
    const Case cases[] = {
        {"a full line refuses a key in its middle", false, 5, "ab|cde", "x", "abcde"},
        {"a paste longer than the room keeps its head", false, 6, "ab|cd", "xyz", "abxycd"},
        {"a line loaded longer than the limit stays whole", false, 3, "abcdef|", "x", "abcdef"},
        {"a key with room goes in at the caret", true, 7, "a|b\r\ncd", "x", "axb\r\ncd"},
        {"a full box refuses a key in its middle", true, 6, "a|b\r\ncd", "x", "ab\r\ncd"},
        {"a pasted line break counts two", true, 7, "ab|cd", "x\ny", "abx\r\ncd"},
        {"a box loaded longer than the limit stays whole", true, 3, "|ab\r\ncd", "x", "ab\r\ncd"},
    };
    for (const Case& c : cases) {
        SampleView v;
        TextBox& box = c.multiLine ? v.form.txtLines : v.form.txtLine;
        QWidget* widget = c.multiLine ? static_cast<QWidget*>(&v.lines) : &v.line;
        box.MaxLength = c.maxLength;
        box.Text = QString::fromLatin1(c.before).remove(u'|');
        v.binder.paint();
        // The caret starts at the beginning; a line break is one step.
        for (int i = QString::fromLatin1(c.before).remove(u'\r').indexOf(u'|'); i > 0; --i)
            QTest::keyClick(widget, Qt::Key_Right);
        const QString typed = QString::fromLatin1(c.typed);
        if (typed.size() > 1) {
            QGuiApplication::clipboard()->setText(typed);
            QTest::keySequence(widget, QKeySequence::Paste);
        } else {
            QTest::keyClicks(widget, typed);
        }
        EXPECT_EQ(box.Text, QString::fromLatin1(c.after)) << c.name;
        EXPECT_EQ(shownTexts(widget), QStringList {box.Text}) << c.name;
    }
}

TEST_F(FormViewsTest, EveryControlHasAWidgetOfItsNameShowingItsTextAndEveryTextPathHasARow)
{
    for (FormModel* form : vorna.forms()) {
        const std::string name = form->formName().toStdString();
        form->ApplyFormText();
        FormView& view = platform.viewOf(*form);
        view.refresh();
        QWidget* window = view.widget();
        EXPECT_EQ(window->objectName(), form->formName());
        // The main window's menus are painted by it, not through the binder.
        for (Control* c : form->controls()) {
            const QObject* widget = window->findChild<QObject*>(c->Name);
            ASSERT_NE(widget, nullptr) << name << "." << c->Name.toStdString();
            if (!dynamic_cast<const Menu*>(c)) {
                EXPECT_EQ(shownTexts(widget), controlTexts(*c)) << name << "." << c->Name.toStdString();
            }
        }
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
        QWidget* window = platform.existingView("frmSplash")->widget();
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
    const auto* version = platform.existingView("frmAbout")->widget()->findChild<QLabel*>("lblVersion");
    ASSERT_NE(version, nullptr);
    EXPECT_EQ(version->text().count(u'.'), 2)
        << "the version is appended once: " << version->text().toStdString();
}
