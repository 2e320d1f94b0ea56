#pragma once

#include <initializer_list>
#include <utility>

#include <QStringList>
#include <QVariant>

#include "ADOUtil.h"
#include "VBUtil.h"

// A row added and committed, its fields set in the order given.
inline void AddRow(Recordset& rs, std::initializer_list<std::pair<const char*, QVariant>> fields)
{
    rs.AddNew();
    for (const auto& [name, value] : fields)
        rs.setField(QString::fromLatin1(name), value);
    rs.Update();
}

// One field of every row, in table order, read on a clone so that rs does not move.
inline QStringList Column(const Recordset& rs, const QString& field)
{
    QStringList values;
    Recordset clone = rs.Clone();
    if (!(clone.IsEOF() && clone.IsBOF()))
        for (clone.MoveFirst(); !clone.IsEOF(); clone.MoveNext())
            values << NullToEmpty(clone.Fields(field));
    clone.Close();
    return values;
}
