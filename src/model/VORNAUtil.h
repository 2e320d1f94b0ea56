#pragma once

#include <vector>

#include <QString>

#include "Controls.h"

class VORNAGlobal;
class ProjectView;
struct ProjectState;

// The commands that make and delete groups and contacts, keeping the other tables, the
// tree and the list in step, and the counts they test their limits with.

// Asks for a name, adds the group and opens its editor. True when a group was made.
bool AddUserGroup(VORNAGlobal& g);
// Deletes the group of the current row of rsUserGroups, after the user confirms, and
// removes every reference to it. True when the group was deleted.
bool DeleteUserGroup(VORNAGlobal& g);
// Asks for a name and groups, adds the contact and opens its editor.
void AddUser(VORNAGlobal& g);
// Deletes the contact of the current row of rsUsers after the user confirms.
bool DeleteUser(VORNAGlobal& g);

// Recounts the notification targets (entries of all group lists) into TelNoCount.
qint16 CountTelNo(ProjectState& project);
// The contacts with a name.
qint16 CountUsers(ProjectState& project);

// The first node, in collection order, whose Tag is exactly Tag. Every caller goes on to use
// the node, so none found is an unhandled error.
int FindNodeByTag(const ProjectView& view, const QString& Tag);
// Makes the record of a kind ("Users", "UserGroups", "Zones") and name the current row of its
// shared recordset, through the window's LocateCurRecord; true when it was found.
bool LocateRecord(ProjectView& view, const QString& kind, const QString& name);

// A group or contact as a combo row shows it: the name, then its description in brackets
// when it has one. The name is read back as the text up to the first "(", so a name holding
// "(" is cut there; an empty text has no piece to read, an unhandled error.
QString ComboRowText(const QString& name, const QString& description);
QString ComboRowName(const QString& text);

// The two columns of a list of groups, name and description, in the applied language; the
// contact editor and the group picker show groups alike.
std::vector<ColumnHeader> GroupListColumns(const VORNAGlobal& g);

// frmKeyInString's question: the answer without the blanks around it, or the cancel mark.
QString KeyInString(VORNAGlobal& g, const QString& Caption, const QString& Prompt, const QString& Default,
    const QString& PasswordChar);

// What KeyInString returns when the user cancels; callers compare with it.
inline const QString KeyInStringCancelled = QStringLiteral("連絡人按下取消鍵");
