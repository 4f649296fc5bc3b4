// Limits a folder of lists to one running program.
#pragma once

class SingleInstance {
public:
    virtual ~SingleInstance() = default;
    // True if another process has claimed the folder. Otherwise this process claims it until it ends, even by a crash.
    virtual bool previousInstance() = 0;
};
