#pragma once

#include "ProjectView.h"

class VORNAGlobal;

// Splits a node's Tag on "," into Items(1) onward and counts the fields. An empty Tag
// gives a count of 0 and leaves Items as they were; a fifth field overruns Items, which
// is a subscript out of range.
void ParseNodeTag(const QString& Tag, NodeTagItems& Items, qint16& count);

// A parse told as text: the Tag, the number of fields, then each field on a line of its own.
// The list composes it for a look in a debugger; nothing shows it.
QString NodeTagTrace(const VORNAGlobal& g, const QString& Tag, const NodeTagItems& Items, qint16 count);
