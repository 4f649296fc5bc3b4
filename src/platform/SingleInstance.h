// One running program per program folder.
#pragma once

class SingleInstance {
public:
    virtual ~SingleInstance() = default;
    // True when another process already runs from this program's folder; otherwise this process has taken
    // the place, until it ends in whatever way.
    virtual bool previousInstance() = 0;
};
