// A lock on the program folder itself: it leaves no file behind and ends with the process.
#pragma once

#include <memory>
#include <string>

#include "platform/SingleInstance.h"

class PosixFile;

class QtSingleInstance : public SingleInstance {
public:
    explicit QtSingleInstance(std::u16string programFolder);
    ~QtSingleInstance() override;

    bool previousInstance() override;

private:
    std::u16string programFolder_;
    std::unique_ptr<PosixFile> lock_;
};
