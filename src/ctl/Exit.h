// How a command ends: the exit codes of the program.
#pragma once

enum class Exit {
    Done = 0,        // also: both sides are the same
    Different = 1,   // differences, faults, nothing found
    Usage = 2,       // of the command line
    File = 3,        // a file is missing, or cannot be read or written
    NoReceiver = 4,  // no disk is the receiver's
    Busy = 5,        // the window is open on these lists
    Download = 6,    // the schedule could not be fetched
};
