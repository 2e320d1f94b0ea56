#pragma once

#include "ProjectView.h"

// Splits a node's Tag on "," into Items(1) onward and counts the fields. An empty Tag
// gives a count of 0 and leaves Items as they were; a fifth field overruns Items, which
// is a subscript out of range.
void ParseNodeTag(const QString& Tag, NodeTagItems& Items, qint16& count);
