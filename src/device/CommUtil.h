#pragma once

#include <QtGlobal>

class CommBuffer;
class CommControl;
class VORNAGlobal;

// The byte pipe to the device over the serial control: opened on demand and left open, a
// send that first drops stale input, and a receive that ends on silence, not on a total time.

// The shared serial control; one that is not wired is an unhandled error.
CommControl& LinkComm(VORNAGlobal& g);

// True if the port is open on return; opens it when it is not.
bool EnsureCommOpen(VORNAGlobal& g, CommControl& comm);
// Gives the control the shared port (and its device) and the fixed settings "9600,N,8,1".
void ConfigureComm(VORNAGlobal& g, CommControl& comm);
// Checks the port number, closes, opens. A number out of range ends the program after its
// box; a port that will not open shows its box and gives False.
bool OpenComm(VORNAGlobal& g, CommControl& comm);
// Closes the port if open; True if it was open.
bool CloseComm(CommControl& comm);
void CloseCommIfOpen(CommControl& comm);

// Sends bytes 1 to n of data, after dropping whatever waits in the receive queue. Returns n.
qint16 SendDataUseHandshaking(VORNAGlobal& g, CommControl& comm, const CommBuffer& data, qint16 n);
// Receives up to n bytes into positions 1 to n, one at a time. It gives up when more than
// silentTimeout whole seconds have passed since the last byte (or the start). Returns the
// count received.
qint16 ReceiveDataUseHandshaking(
    VORNAGlobal& g, CommControl& comm, CommBuffer& data, qint16 n, qint16 silentTimeout);
