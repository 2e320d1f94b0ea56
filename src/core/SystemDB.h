#pragma once

#include <QString>

class VORNAGlobal;

// The system database VORNA.sdb and the recent-file list.
void OpenSystemDB(VORNAGlobal& g);
void CloseSystemDB(VORNAGlobal& g);
// Reads MRUList into MRUFilePath and MRUCount, in the table's order.
void LoadMRUList(VORNAGlobal& g);
void AddMRUFilePath(VORNAGlobal& g, const QString& FilePath);
void SaveMRUList(VORNAGlobal& g);
