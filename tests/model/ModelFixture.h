#pragma once

#include <QDir>

#include <gtest/gtest.h>

#include "ADOUtil.h"
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
    QStringList column(Recordset& rs, const QString& field) { return Column(rs, field); }

    // Expects the dialog shown modally; user plays it and must close it.
    template<class Form> void expectDialog(std::function<void(Form&)> user)
    {
        platform.expectModal(g.form<Form>(), std::move(user));
    }
    // The name box asked with its title, prompt and proposal, answered with OK on the typed
    // text, or with Cancel when the typed text is the cancel mark.
    void expectKeyInString(
        const QString& caption, const QString& prompt, const QString& proposal, const QString& typed)
    {
        expectDialog<frmKeyInString>([=](frmKeyInString& f) {
            EXPECT_EQ(f.Caption, caption);
            EXPECT_EQ(f.lbKeyInString.Caption, prompt);
            EXPECT_EQ(f.txtKeyInString.Text, proposal);
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
    QString field(Recordset& rs, const QString& keyField, const QString& key, const QString& wanted)
    {
        Recordset clone = rs.Clone();
        const bool found = FindRecord(clone, keyField, key, false);
        EXPECT_TRUE(found) << key.toStdString();
        const QString value = found ? NullToEmpty(clone.Fields(wanted)) : QString();
        clone.Close();
        return value;
    }

    TestFolder folder;
    ScriptedPlatform platform;
    RecordingView view;
    VORNAGlobal g {platform};
};
