#pragma once

#include <QString>

struct Session;
class VORNAGlobal;

// The options that a command may take beyond the common ones.
enum CommandOption : unsigned {
    NoOption = 0,
    PortOption = 1,   // --port, which the command needs, and --trace
    WriteOptions = 2, // --slave, --baud, --parity
};

struct Command
{
    const char* name;
    const char* arguments; // option and placeholder names, the same in every language
    int pathCount;
    unsigned options;
    int (*run)(Session&);
    int summaryId; // its line in the list of commands
    int detailsId; // what its --help adds after the summary, or 0
};

// The command of that name, or nothing.
const Command* FindCommand(const QString& name);

// The usage texts in the applied language: the whole program's, and one command's.
QString Usage(const VORNAGlobal& g);
QString CommandUsage(const VORNAGlobal& g, const Command& c);
