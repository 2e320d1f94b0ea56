#pragma once

struct Session;

// The commands that talk to the dialler, each as the window's Device menu or service window
// runs it, on the port of --port.
int RunConnect(Session& s);
int RunDownload(Session& s);
int RunSettings(Session& s);
int RunRegisters(Session& s);
int RunPorts(Session& s);
