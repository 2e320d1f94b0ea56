#pragma once

#include <QDir>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include "ADOUtil.h"
#include "Golden.h"
#include "ProjectFiles.h"
#include "ProjectRows.h"
#include "RecordingView.h"
#include "ScriptedPlatform.h"
#include "TestFolder.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"
#include "VORNAUtil.h"
#include "frmEditGroupList.h"
#include "frmKeyInString.h"

// A new project made from the shipped template (group "UserGroup1", 64 empty zones), with
// the scripted platform and a recording window whose tree holds the branches. The dialogs
// are the real ones, played through the platform. The locale picks the original language,
// so every text is the default at its call site.
class ModelTest : public ::testing::Test
{
public:
    ModelTest()
    {
        platform.localeName = "zh_TW";
        g.setView(&view);
        InitApplication(g, folder.appPath());
        platform.expectOpenDialog(QDir(folder.projectDir()).filePath("Project1.cmb"));
        NewProject(g);
        view.statusHistory.clear();
        view.pointerHistory.clear();
        view.seedBranches();
        view.addNode(2, {}, "UserGroup1", "UserGroups", "UserGroups,UserGroup1");
    }

    ProjectState& p() { return g.project; }

    void addGroup(const QString& name) { AddGroupRow(p(), name); }
    void addUser(
        const QString& name, const QString& groupList, const QString& phone = "0912", bool disabled = false)
    {
        AddUserRow(p(), name, groupList, phone, disabled);
    }
    void setZoneTarget(int zoneNo, const QString& target, const QString& zoneName = QString())
    {
        SetZoneRow(p(), zoneNo, zoneName, target);
    }

    // Expects the dialog shown modally; user plays it and must close it.
    template<class Form> void expectDialog(std::function<void(Form&)> user)
    {
        platform.expectModal(g.form<Form>(), std::move(user));
    }
    // The name box asked with its title, prompt and proposal, answered with OK on the typed
    // text, or with Cancel when the typed text is the cancel mark. The proposal is selected whole
    // in the box that has the focus, so that typing replaces it.
    void expectKeyInString(
        const QString& caption, const QString& prompt, const QString& proposal, const QString& typed)
    {
        expectDialog<frmKeyInString>([=](frmKeyInString& f) {
            EXPECT_EQ(f.Caption, caption);
            EXPECT_EQ(f.lbKeyInString.Caption, prompt);
            EXPECT_EQ(f.txtKeyInString.Text, proposal);
            EXPECT_EQ(f.txtKeyInString.SelLength, proposal.size());
            EXPECT_EQ(f.takeFocusRequest(), &f.txtKeyInString);
            f.txtKeyInString.Text = typed;
            typed == KeyInStringCancelled ? f.cmdCancel_Click() : f.cmdOK_Click();
        });
    }
    // The group editor, opened for a new group or not; check looks at it, Cancel closes it.
    void expectGroupEditor(
        bool isNewGroup, std::function<void()> check = [] {})
    {
        expectDialog<frmEditGroupList>([=](frmEditGroupList& f) {
            EXPECT_EQ(f.cmdRename.Enabled, !isNewGroup);
            check();
            f.cmdCancel_Click();
        });
    }

    // Every field of every row, joined by bars, in table order.
    static QStringList rows(const Recordset& rs)
    {
        QStringList all;
        Recordset clone = rs.Clone();
        for (clone.MoveFirst(); !clone.IsEOF(); clone.MoveNext()) {
            QStringList fields;
            for (int i = 0; i < clone.FieldCount(); ++i)
                fields << NullToEmpty(clone.Fields(i));
            all << fields.join('|');
        }
        clone.Close();
        return all;
    }

    // A table's rows, fields between bars; skipBare leaves out the rows that hold nothing but a
    // number (the zones that the template made).
    static QString table(const QString& name, const Recordset& rs, bool skipBare = false)
    {
        QString out = name + ":\n";
        for (const QString& row : rs.RecordCount() ? rows(rs) : QStringList())
            if (!skipBare || !QString(row).remove(QRegularExpression("^\\d+\\||\\||False")).isEmpty())
                out += "  " + QString(row).replace("\r\n", "\\r\\n") + "\n";
        return out;
    }
    // A combo's rows, the row chosen and whether it is enabled.
    static QString combo(const ComboBox& c)
    {
        return "offered: " + QStringList(c.List.begin(), c.List.end()).join(" / ")
            + QStringLiteral(", row %1 \"%2\"%3\n")
                  .arg(c.ListIndex)
                  .arg(c.Text, c.Enabled ? "" : ", disabled");
    }

    // The project after an operation, for a golden text: every contact and group row, the zones
    // that hold more than their number, the nodes past the seeded branches, what the window was
    // asked, and every box shown.
    QString state()
    {
        QString out = table("Users", p().rsUsers, false) + table("UserGroups", p().rsUserGroups, false)
            + table("Zones", p().rsZones, true) + "nodes:\n";
        for (int i = 4; i < static_cast<int>(view.nodes.size()); ++i) {
            const RecordingView::Node& n = view.nodes[i];
            out += QStringLiteral("  %1 [%2] under %3 image=%4%5%6\n")
                       .arg(n.Text, n.Tag)
                       .arg(n.Parent)
                       .arg(n.Image, n.ForeColor == SystemColor::GrayText ? " grey" : "",
                           i == view.selectedNode ? " selected" : "");
        }
        QStringList pointers;
        for (int pointer : view.pointerHistory)
            pointers << QString::number(pointer);
        out += "status: " + QStringList(view.statusHistory.begin(), view.statusHistory.end()).join(" / ")
            + "\npointer: " + pointers.join(" ")
            + QStringLiteral("\nlist fills: %1, modified: %2, TelNoCount: %3\n")
                  .arg(view.listFillCount)
                  .arg(p().IsProjectModified)
                  .arg(p().TelNoCount);
        return out + boxes();
    }
    // Every box shown, flags, title and text.
    QString boxes() const
    {
        QString out;
        for (const ScriptedPlatform::Event& e : platform.events)
            if (e.kind == ScriptedPlatform::Event::Box)
                out += QStringLiteral("box %1 %2: %3\n")
                           .arg(e.value)
                           .arg(e.title, QString(e.text).replace("\r\n", "\\r\\n"));
        return out;
    }

    TestFolder folder;
    ScriptedPlatform platform;
    RecordingView view;
    VORNAGlobal g {platform};
};

// A project of its own for each case of a loop that prints all its cases into one text.
template<class Fixture> class FreshModel : public Fixture
{
public:
    void TestBody() override { }
};
