#pragma once

#include <QString>

// Compares a whole output with a golden text file under tests/, named relative to that
// folder ("model/golden/add-user.txt"). With VORNA_UPDATE_GOLDEN=1 in the environment the
// file is written from the output instead, so a deliberate change is one run and a diff.
void ExpectGolden(const QString& relativePath, const QString& actual);
