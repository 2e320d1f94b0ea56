#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

#include "FormView.h"
#include "GuiApp.h"
#include "QtPlatform.h"
#include "TestFolder.h"
#include "VornaApp.h"

namespace {

using FormViewsTest = VornaWindowTest;

} // namespace

TEST_F(FormViewsTest, EveryControlHasAWidgetOfItsNameAndEveryTextPathReachesAControlAndHasARow)
{
    for (FormModel* form : vorna.forms()) {
        const std::string name = form->formName().toStdString();
        QWidget* window = platform.viewOf(*form).widget();
        EXPECT_EQ(window->objectName(), form->formName());
        for (const Control* c : form->controls())
            EXPECT_NE(window->findChild<QObject*>(c->Name), nullptr) << name << "." << c->Name.toStdString();
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
