// One running program per program folder.
#pragma once

class SingleInstance {
public:
    virtual ~SingleInstance() = default;
    // True if another process has claimed the same folder of lists. Otherwise this process claims it until it ends,
    // even by a crash.
    virtual bool previousInstance() = 0;
};
