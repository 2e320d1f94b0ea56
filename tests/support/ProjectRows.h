#pragma once

#include <QString>

#include <gtest/gtest.h>

#include "RecordsetRows.h"
#include "VORNAGlobal.h"

// Rows written straight into the open project's tables, as the editors store them, for the
// suites that start from a project made from the template.

inline void DeleteRows(Recordset& rs)
{
    for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext())
        rs.Delete();
}

inline void AddGroupRow(ProjectState& p, const QString& name, const QString& description = QString())
{
    AddRow(p.rsUserGroups, {{"GroupName", name}, {"GroupDsc", description}});
}

inline void AddUserRow(ProjectState& p, const QString& name, const QString& groupList,
    const QString& phone = QStringLiteral("0912"), bool disabled = false,
    const QString& description = QString())
{
    AddRow(p.rsUsers,
        {{"UserName", name}, {"PhoneNumber", phone}, {"UserDsc", description}, {"GroupName", groupList},
            {"IsDisable", disabled}});
}

// A zone of its own, for a project whose zones were deleted.
inline void AddZoneRow(ProjectState& p, int zoneNo, const QString& target, const QString& alarm,
    const QString& reset, bool disabled = false)
{
    AddRow(p.rsZones,
        {{"ZoneNo", zoneNo}, {"GroupName", target}, {"AlarmSMS", alarm}, {"ResetSMS", reset},
            {"IsDisable", disabled}});
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

inline void SetUnicode(ProjectState& p, bool on)
{
    p.rsBasic.MoveFirst();
    p.rsBasic.setField(QStringLiteral("IsUnicode"), on);
    p.rsBasic.Update();
}
