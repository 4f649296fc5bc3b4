// The exit codes of the program.
#pragma once

enum class Exit {
    Done = 0,        // also: no differences
    Different = 1,   // differences, faults, or nothing found
    Usage = 2,       // wrong command line
    File = 3,        // a file is missing, or cannot be read or written
    NoReceiver = 4,  // no receiver found
    Busy = 5,        // the window has these lists open
    Download = 6,    // download of the schedule failed
};
