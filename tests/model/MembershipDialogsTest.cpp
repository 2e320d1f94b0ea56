#include "ModelFixture.h"
#include "UnhandledError.h"
#include "frmAddOtherUser.h"
#include "frmAddUserGroup.h"
#include "frmMoveUsers.h"

namespace {

// The dialogs that change memberships, on the template's "UserGroup1" and the groups "B" and
// "C", each case on a project of its own; the window locates contacts and groups as the real one
// does, and every group has its node.
class MembershipModel : public FreshModel<ModelTest>
{
public:
    MembershipModel()
    {
        view.locate = [this](const QString& kind, const QString& name) {
            if (kind == "Users")
                return FindRecord(p().rsUsers, "UserName", name, false);
            return kind == "UserGroups" && FindRecord(p().rsUserGroups, "GroupName", name, false);
        };
        group("B", "night (shift)");
        group("C");
    }

    void group(const QString& name, const QString& description = {})
    {
        AddGroupRow(p(), name, description);
        view.addNode(2, {}, name, "UserGroups", "UserGroups," + name);
    }
    // Contacts given as "name=group list", in table order.
    void users(const QStringList& rows)
    {
        for (const QString& row : rows)
            addUser(row.section('=', 0, 0), row.section('=', 1), "0912", false);
    }

    // Ann of the list, and Bob of "C" whose row the window may have left current; the group made
    // on the spot is "UserGroup2". The dialog is answered on its first row.
    QString addUserGroup(const char* list, bool onBob, bool addGroup, bool ok)
    {
        users({QStringLiteral("Ann=") + list, "Bob=C"});
        FindRecord(p().rsUsers, "UserName", onBob ? "Bob" : "Ann", false);
        QString out = QStringLiteral("== frmAddUserGroup, Ann of \"%1\"%2%3, %4\n")
                          .arg(QString(list).replace("\r\n", "\\r\\n"), onBob ? ", on Bob's row" : "",
                              addGroup ? ", a group added" : "", ok ? "OK" : "Cancel");
        expectDialog<frmAddUserGroup>([&](frmAddUserGroup& f) {
            out += f.lblUserName.Caption + ": ";
            if (addGroup)
                f.cmdAddGroup_Click();
            out += combo(f.cmbUserGroups);
            ok ? f.cmdOK_Click() : f.cmdCancel_Click();
        });
        if (addGroup) {
            expectKeyInString("新增連絡人群組", "請輸入新連絡人群組名稱:", "UserGroup2", "UserGroup2");
            expectGroupEditor(true);
        }
        ShowDialog<frmAddUserGroup>(g, "Ann");
        return out + table("Users", p().rsUsers) + table("UserGroups", p().rsUserGroups);
    }

    // Group B offers the contacts outside it; the choice is written at the recordset's next move.
    QString addOtherUser(const char* typed)
    {
        users({"Ann=B", "Bob=", "Cy=b", "Dee=UserGroup1\r\nb"});
        AddUserRow(p(), "Eve", "UserGroup1", "0912", false, "night (shift)");
        const QString before = table("Users", p().rsUsers);
        frmAddOtherUser& f = g.form<frmAddOtherUser>();
        f.LoadFormObj("B");
        QString out = QStringLiteral("== frmAddOtherUser, \"%1\" typed\n").arg(typed) + f.lblGroupName.Caption
            + ": " + combo(f.cmbAddUser);
        f.cmbAddUser.SetText(typed);
        try {
            f.cmdOK_Click();
        } catch (const UnhandledError& e) {
            return out + "unhandled: " + e.text() + "\n";
        }
        out += QStringLiteral("stored before the move: %1, located: %2\n")
                   .arg(table("Users", p().rsUsers) == before ? "nothing" : "something",
                       view.locatedTags.back());
        p().rsUsers.MoveFirst();
        return out + table("Users", p().rsUsers);
    }

    // Group A's contacts move to the chosen row or the typed name; zones and groups stay, and a
    // target that no group bears exactly is written, and then its node is missing.
    QString moveUsers(const char* typed)
    {
        group("A");
        users({"m1=A", "m2=A\r\nB", "m3=\r\nA", "m4=a\r\nb", "m5=UserGroup1", "m6="});
        setZoneTarget(1, "A");
        frmMoveUsers& f = g.form<frmMoveUsers>();
        f.LoadFormObj("A");
        QString out = QStringLiteral("== frmMoveUsers, %1\n")
                          .arg(typed ? "\"" + QString(typed) + "\" typed" : "row 1")
            + f.lblGroupName.Caption + ": " + combo(f.cmbMoveGroup);
        typed ? f.cmbMoveGroup.SetText(typed) : f.cmbMoveGroup.SelectRow(1);
        try {
            f.cmdOK_Click();
            out += "selected: " + view.nodes.at(view.selectedNode).Tag + ", current group "
                + FieldText(p().rsUserGroups, "GroupName") + "\n";
        } catch (const UnhandledError& e) {
            out += "unhandled: " + e.text() + "\n";
        }
        return out + state();
    }

    // With one group and one contact in it there is nothing to choose: each dialog shows its
    // placeholder, disabled, and OK on it only closes.
    QString placeholders()
    {
        for (int i = 0; i < 2; ++i) {
            p().rsUserGroups.MoveLast();
            p().rsUserGroups.Delete();
        }
        users({"Ann=UserGroup1"});
        QString out = "== one group, one contact\n";
        frmAddUserGroup& addGroup = g.form<frmAddUserGroup>();
        addGroup.LoadFormObj("Ann");
        out += combo(addGroup.cmbUserGroups);
        addGroup.cmdOK_Click();
        frmAddOtherUser& addOther = g.form<frmAddOtherUser>();
        addOther.LoadFormObj("UserGroup1");
        out += combo(addOther.cmbAddUser);
        addOther.cmdOK_Click();
        frmMoveUsers& move = g.form<frmMoveUsers>();
        move.LoadFormObj("UserGroup1");
        out += combo(move.cmbMoveGroup);
        move.cmdOK_Click();
        return out + state();
    }
};

TEST(MembershipDialogs, OfferWhatIsMissingAndRewriteTheGroupLists)
{
    QString out;
    // Offered whatever the case of the contact's entries; a description shows in brackets, and
    // the name is cut at the first; an empty list gets a leading CR LF; a group made on the spot
    // replaces the placeholder or joins the offer last, unchosen; the offer follows the row the
    // window left, but the contact is written.
    const struct
    {
        const char* list;
        bool onBob, addGroup, ok;
    } addGroupCases[] = {{"userGROUP1\r\nb", false, false, true}, {"UserGroup1", false, false, true},
        {"", false, false, true}, {"UserGroup1\r\nB\r\nC", false, true, true},
        {"UserGroup1", false, true, false}, {"UserGroup1", true, false, true}};
    for (const auto& c : addGroupCases)
        out += MembershipModel().addUserGroup(c.list, c.onBob, c.addGroup, c.ok);
    for (const char* typed : {"Bob", "Eve(night (shift))", "Zed"})
        out += MembershipModel().addOtherUser(typed);
    for (const char* typed : {static_cast<const char*>(nullptr), "Nowhere", "b"})
        out += MembershipModel().moveUsers(typed);
    out += MembershipModel().placeholders();
    ExpectGolden("model/golden/membership.txt", out);
}

} // namespace
