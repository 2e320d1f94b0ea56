#pragma once

#include "CommControl.h"

class ConsolePlatform;
class VORNAGlobal;
class frmMessage;

// What the main window gives the device link, for a terminal: the serial control and the busy
// box, wired into the shared state for the life of this object. The busy box shows the
// download's progress as one line on stderr, rewritten in place while stderr is a terminal.
class ConsoleLink
{
public:
    ConsoleLink(VORNAGlobal& g, ConsolePlatform& platform);
    ~ConsoleLink();
    ConsoleLink(const ConsoleLink&) = delete;
    ConsoleLink& operator=(const ConsoleLink&) = delete;

private:
    void paintBusyBox();
    void endProgressLine();

    VORNAGlobal& m_g;
    ConsolePlatform& m_platform;
    CommControl m_comm;
    frmMessage& m_busy;
    bool m_terminal;
    qsizetype m_lineLength = 0; // of the progress line on screen; 0: none is open
};
