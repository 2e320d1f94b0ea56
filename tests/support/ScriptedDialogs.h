#pragma once

#include <deque>
#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "ProjectDialogs.h"

// A fake of the editor dialogs that answers from a script, strictly in order: a dialog
// that was not expected, or an expected one that never opened, fails the running test.
// An editor's action plays the user while the editor is open.
class ScriptedDialogs : public ProjectDialogs
{
public:
    ~ScriptedDialogs() override
    {
        for (const Expected& e : m_expected)
            ADD_FAILURE() << "expected but never opened: " << e.form.toStdString();
    }

    void expectKeyInString(
        const QString& caption, const QString& prompt, const QString& defaultText, const QString& answer)
    {
        Expected e;
        e.form = QStringLiteral("frmKeyInString");
        e.caption = caption;
        e.prompt = prompt;
        e.defaultText = defaultText;
        e.answer = answer;
        m_expected.push_back(e);
    }
    void expectAddUser(const QString& proposedName, NewUser answer)
    {
        Expected e;
        e.form = QStringLiteral("frmAddUser");
        e.defaultText = proposedName;
        e.newUser = answer;
        m_expected.push_back(e);
    }
    void expectEditGroupList(bool isNewGroup, std::function<void()> action = {})
    {
        Expected e;
        e.form = QStringLiteral("frmEditGroupList");
        e.isNewGroup = isNewGroup;
        e.action = std::move(action);
        m_expected.push_back(e);
    }
    void expectEditTelList(std::function<void()> action = {})
    {
        m_expected.push_back(
            {QStringLiteral("frmEditTelList"), {}, {}, {}, {}, {}, false, std::move(action)});
    }
    void expectEditZoneList(std::function<void()> action = {})
    {
        m_expected.push_back(
            {QStringLiteral("frmEditZoneList"), {}, {}, {}, {}, {}, false, std::move(action)});
    }

    bool allExpectationsMet() const { return m_expected.empty(); }
    std::vector<QString> opened; // form names in order

    QString showKeyInString(const QString& Caption, const QString& Prompt, const QString& Default,
        const QString& PasswordChar) override
    {
        Expected e = take(QStringLiteral("frmKeyInString"));
        EXPECT_EQ(e.caption.toStdString(), Caption.toStdString());
        EXPECT_EQ(e.prompt.toStdString(), Prompt.toStdString());
        EXPECT_EQ(e.defaultText.toStdString(), Default.toStdString());
        EXPECT_TRUE(PasswordChar.isEmpty());
        return e.answer;
    }
    NewUser showAddUser(const QString& ProposedName) override
    {
        Expected e = take(QStringLiteral("frmAddUser"));
        EXPECT_EQ(e.defaultText.toStdString(), ProposedName.toStdString());
        return e.newUser;
    }
    void showEditGroupList(bool IsNewGroup) override
    {
        Expected e = take(QStringLiteral("frmEditGroupList"));
        EXPECT_EQ(e.isNewGroup, IsNewGroup);
        if (e.action)
            e.action();
    }
    void showEditTelList() override
    {
        Expected e = take(QStringLiteral("frmEditTelList"));
        if (e.action)
            e.action();
    }
    void showEditZoneList() override
    {
        Expected e = take(QStringLiteral("frmEditZoneList"));
        if (e.action)
            e.action();
    }

private:
    struct Expected
    {
        QString form;
        QString caption;
        QString prompt;
        QString defaultText;
        QString answer;
        NewUser newUser;
        bool isNewGroup = false;
        std::function<void()> action;
    };

    Expected take(const QString& form)
    {
        opened.push_back(form);
        if (m_expected.empty() || m_expected.front().form != form) {
            ADD_FAILURE() << "unexpected dialog " << form.toStdString()
                          << (m_expected.empty()
                                     ? std::string()
                                     : ", while expecting " + m_expected.front().form.toStdString());
            Expected cancelled;
            cancelled.form = form;
            cancelled.answer = QStringLiteral("連絡人按下取消鍵");
            return cancelled;
        }
        Expected e = m_expected.front();
        m_expected.pop_front();
        return e;
    }
    void expectEditor(const QString& form, std::function<void()> action)
    {
        Expected e;
        e.form = form;
        e.action = std::move(action);
        m_expected.push_back(e);
    }

    std::deque<Expected> m_expected;
};
