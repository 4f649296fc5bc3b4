// What the test program runs: which file systems, mount options, operations and faults.
#pragma once

#include <string>
#include <vector>

struct Settings {
    std::string recorder;   // the program that the kernel runs
    std::string table;      // where the table of states goes; empty: nowhere
    std::string page;       // the page whose table of states is renewed; empty: none
    std::string only;       // runs only cases whose name contains this
    bool thorough = false;  // every volume and every set of mount options
    int alignments = 1;     // how many positions of the folder entries in their sector to try, up to 16
    int kills = 3;          // kernels that are killed during a save
    int seconds = 900;      // for the kernel's run
};
// From "--recorder=PROGRAM", "--thorough" and so on; ignores other arguments.
Settings settingsOf(const std::vector<std::string>& arguments);

struct Case {
    std::string fileSystem;
    std::string image;
    std::string options;
    std::string operation;
    int fillers = 0;  // entries before those of the files
    std::string fault = "none";

    std::string name() const;
    std::string rowName() const;  // of the table
};

std::vector<Case> allCases(const Settings& settings);
