#include "SystemDB.h"

#include "FileUtil.h"
#include "ProjectView.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

void OpenSystemDB(VORNAGlobal& g)
{
    // Nothing is reported here: a missing or broken database shows up at the first use
    // of one of its tables, as an unhandled error.
    g.system.SystemConn
        = OpenMDBConn(g.platform, JoinPath(g.program.AppPath, QStringLiteral("VORNA.sdb")), {}, {});
    g.system.rsCommBaudList = OpenRecordset(g.system.SystemConn, QStringLiteral("CommBaudList"), false);
    g.system.rsModelList = OpenRecordset(g.system.SystemConn, QStringLiteral("ModelList"), false);
    g.system.rsMRUList = OpenRecordset(g.system.SystemConn, QStringLiteral("MRUList"), false);
}

void CloseSystemDB(VORNAGlobal& g)
{
    for (Recordset* rs : {&g.system.rsCommBaudList, &g.system.rsModelList, &g.system.rsMRUList}) {
        if (rs->State() == 1)
            rs->Close();
        *rs = Recordset();
    }
    if (g.system.SystemConn.State() == 1)
        g.system.SystemConn.Close();
    g.system.SystemConn = Connection();
}

void LoadMRUList(VORNAGlobal& g)
{
    if (GetRecordCount(g.system.rsMRUList) > 0) {
        g.system.rsMRUList.MoveFirst();
        while (!g.system.rsMRUList.IsEOF()) {
            ++g.system.MRUCount;
            // A fifth row overflows the four places: a subscript error, not handled.
            g.system.MRUFilePath(g.system.MRUCount)
                = NullToEmpty(g.system.rsMRUList.Fields(QStringLiteral("FilePath")));
            g.system.rsMRUList.MoveNext();
        }
    }
}

void AddMRUFilePath(VORNAGlobal& g, const QString& FilePath)
{
    for (int i = 1; i <= g.system.MRUCount; ++i) {
        if (g.system.MRUFilePath(i) != FilePath)
            continue;
        if (i == 1)
            return;
        for (int j = i; j >= 2; --j)
            g.system.MRUFilePath(j) = g.system.MRUFilePath(j - 1);
        g.system.MRUFilePath(1) = FilePath;
        // The menu catches up at the next opening of the File menu.
        SaveMRUList(g);
        return;
    }

    for (int j = 3; j >= 1; --j)
        if (j <= g.system.MRUCount)
            g.system.MRUFilePath(j + 1) = g.system.MRUFilePath(j);
    g.system.MRUFilePath(1) = FilePath;
    if (g.system.MRUCount < 4)
        ++g.system.MRUCount;
    SaveMRUList(g);
    g.view().mkRecentFilePathMenu();
}

void SaveMRUList(VORNAGlobal& g)
{
    // Another VORNA or vorna-cli sharing the program folder may write the list at the same
    // time: one transaction re-reads the rows it replaces and writes the whole list, so that a
    // second writer waits for it and a kill leaves the old list, never a mix or an empty one.
    Transaction rewrite(g.system.SystemConn);
    Recordset& rs = g.system.rsMRUList;
    rs.Requery();
    if (GetRecordCount(rs) > 0) {
        rs.MoveFirst();
        while (!rs.IsEOF()) {
            rs.Delete();
            rs.MoveNext();
        }
    }
    for (int i = 1; i <= g.system.MRUCount; ++i) {
        rs.AddNew();
        rs.setField(QStringLiteral("FilePath"), g.system.MRUFilePath(i));
    }
    rs.Update();
    rewrite.Commit();
}
