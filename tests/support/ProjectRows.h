#pragma once

#include <QStringList>

#include <gtest/gtest.h>

#include "ADOUtil.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

// Rows written straight into the open project's tables, as the editors store them, for the
// suites that start from a project made from the template.

inline void AddGroupRow(ProjectState& p, const QString& name, const QString& description = QString())
{
    p.rsUserGroups.AddNew();
    p.rsUserGroups.setField(QStringLiteral("GroupName"), name);
    p.rsUserGroups.setField(QStringLiteral("GroupDsc"), description);
    p.rsUserGroups.Update();
}

inline void AddUserRow(ProjectState& p, const QString& name, const QString& groupList,
    const QString& phone = QStringLiteral("0912"), bool disabled = false,
    const QString& description = QString())
{
    p.rsUsers.AddNew();
    p.rsUsers.setField(QStringLiteral("UserName"), name);
    p.rsUsers.setField(QStringLiteral("PhoneNumber"), phone);
    p.rsUsers.setField(QStringLiteral("UserDsc"), description);
    p.rsUsers.setField(QStringLiteral("GroupName"), groupList);
    p.rsUsers.setField(QStringLiteral("IsDisable"), disabled);
    p.rsUsers.Update();
}

// The zone's name and target, and its alarm text and suspension when given.
inline void SetZoneRow(ProjectState& p, int zoneNo, const QString& name, const QString& target,
    bool disabled = false, const QString& alarm = QString())
{
    ASSERT_TRUE(FindRecord(p.rsZones, QStringLiteral("ZoneNo"), QString::number(zoneNo), false));
    p.rsZones.setField(QStringLiteral("ZoneName"), name);
    p.rsZones.setField(QStringLiteral("GroupName"), target);
    if (!alarm.isEmpty())
        p.rsZones.setField(QStringLiteral("AlarmSMS"), alarm);
    if (disabled)
        p.rsZones.setField(QStringLiteral("IsDisable"), true);
    p.rsZones.Update();
}

// One field of every row, in table order, read on a clone.
inline QStringList Column(Recordset& rs, const QString& field)
{
    QStringList values;
    if (rs.RecordCount() == 0)
        return values;
    Recordset clone = rs.Clone();
    for (clone.MoveFirst(); !clone.IsEOF(); clone.MoveNext())
        values << NullToEmpty(clone.Fields(field));
    clone.Close();
    return values;
}
