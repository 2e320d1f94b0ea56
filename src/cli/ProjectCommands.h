#pragma once

struct Session;

// The commands on project files, as the File menu and a download without the line run them.
int RunNew(Session& s);
int RunInfo(Session& s);
int RunImage(Session& s);
int RunSaveAs(Session& s);
int RunRecent(Session& s);
