#include "SlaveIDEntry.h"

#include "Controls.h"

void SlaveIDKeyPress(int&) { }
void SlaveIDChange(TextBox&) { }
