#pragma once

#include <QString>

class VORNAGlobal;

// The name checks and the check before a download. Each shows its own box on failure;
// callers only stop on false.

// A new or changed group name: not empty, not reserved, not taken by any group (without
// regard to case).
bool IsValidGroupName(VORNAGlobal& g, const QString& Name);
// The same for a contact name, against the contacts.
bool IsValidUserName(VORNAGlobal& g, const QString& Name);

// Whether the open project may go to the device. Reads ProjGroupCount and ProjTelCount
// of the project sizing that has just run.
bool IsProjectReady(VORNAGlobal& g);
