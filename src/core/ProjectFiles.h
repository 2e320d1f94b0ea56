#pragma once

#include <QString>

class VORNAGlobal;

// The project file life cycle around the working copy ".mir".

// CloseProject's and SaveProject's results.
namespace ProjectResult {
inline constexpr int Done = 0;
inline constexpr int AnsweredNo = 1;
inline constexpr int Cancelled = 2;
} // namespace ProjectResult

void NewProject(VORNAGlobal& g);
bool OpenProject(VORNAGlobal& g, QString FilePath);
int CloseProject(VORNAGlobal& g);
int SaveProject(VORNAGlobal& g, bool Force, bool Prompt, bool AllowCancel);
void SaveProjectAs(VORNAGlobal& g);

void OpenProjectTables(VORNAGlobal& g, const QString& FilePath);
void CloseProjectTables(VORNAGlobal& g);
// Open's two checks of a chosen path, each with its box: the ".cmb" extension, then the file.
bool IsProjectFilePath(VORNAGlobal& g, const QString& FilePath);
// MaxTelNo and MaxMemoryByte of the open project's model, from the system database.
void ReadModelLimits(VORNAGlobal& g);

// Device Download's commit: the working copy over the project file, without a question.
void CommitWorkingCopy(VORNAGlobal& g);

// "Project" and the first N from 1 to 99 with no "..\Project\ProjectN.cmb"; empty if none.
QString ProposedProjectName(VORNAGlobal& g);
