#pragma once

struct TextBox;

// The entry rules of a slave id box, shared by the settings dialog and the service window.

// A key press: every character but the digits is dropped (KeyAscii set to 0), Backspace too.
void SlaveIDKeyPress(int& KeyAscii);
// A change: the text as a number is kept from 1 to 255, so that an empty box reads "1".
void SlaveIDChange(TextBox& txtSlaveID);
