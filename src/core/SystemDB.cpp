#include "SystemDB.h"

#include "FileUtil.h"
#include "ProjectView.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

void OpenSystemDB(VORNAGlobal& g)
{
    // Nothing is reported here: a missing or broken database shows up at the first use
    // of one of its tables, as an unhandled error.
    g.SystemConn = OpenMDBConn(g.platform, JoinPath(g.AppPath, QStringLiteral("VORNA.sdb")), {}, {});
    g.rsCommBaudList = OpenRecordset(g.SystemConn, QStringLiteral("CommBaudList"), false);
    g.rsModelList = OpenRecordset(g.SystemConn, QStringLiteral("ModelList"), false);
    g.rsMRUList = OpenRecordset(g.SystemConn, QStringLiteral("MRUList"), false);
}

void CloseSystemDB(VORNAGlobal& g)
{
    for (Recordset* rs : {&g.rsCommBaudList, &g.rsModelList, &g.rsMRUList}) {
        if (rs->State() == 1)
            rs->Close();
        *rs = Recordset();
    }
    if (g.SystemConn.State() == 1)
        g.SystemConn.Close();
    g.SystemConn = Connection();
}

void LoadMRUList(VORNAGlobal& g)
{
    if (GetRecordCount(g.rsMRUList) > 0) {
        g.rsMRUList.MoveFirst();
        while (!g.rsMRUList.IsEOF()) {
            ++g.MRUCount;
            // A fifth row overflows the four places: a subscript error, not handled.
            g.MRUFilePath(g.MRUCount) = NullToEmpty(g.rsMRUList.Fields(QStringLiteral("FilePath")));
            g.rsMRUList.MoveNext();
        }
    }
}

void AddMRUFilePath(VORNAGlobal& g, const QString& FilePath)
{
    for (int i = 1; i <= g.MRUCount; ++i) {
        if (g.MRUFilePath(i) != FilePath)
            continue;
        if (i == 1)
            return;
        for (int j = i; j >= 2; --j)
            g.MRUFilePath(j) = g.MRUFilePath(j - 1);
        g.MRUFilePath(1) = FilePath;
        // The menu catches up at the next opening of the File menu.
        SaveMRUList(g);
        return;
    }

    for (int j = 3; j >= 1; --j)
        if (j <= g.MRUCount)
            g.MRUFilePath(j + 1) = g.MRUFilePath(j);
    g.MRUFilePath(1) = FilePath;
    if (g.MRUCount < 4)
        ++g.MRUCount;
    SaveMRUList(g);
    if (g.view)
        g.view->mkRecentFilePathMenu();
}

void SaveMRUList(VORNAGlobal& g)
{
    if (GetRecordCount(g.rsMRUList) > 0) {
        g.rsMRUList.MoveFirst();
        while (!g.rsMRUList.IsEOF()) {
            g.rsMRUList.Delete();
            g.rsMRUList.MoveNext();
        }
    }
    for (int i = 1; i <= g.MRUCount; ++i) {
        g.rsMRUList.AddNew();
        g.rsMRUList.setField(QStringLiteral("FilePath"), g.MRUFilePath(i));
    }
    g.rsMRUList.Update();
}
