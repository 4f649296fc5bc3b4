// A lock on the program folder itself, which creates no file and ends with the process.
#pragma once

#include <memory>
#include <string>

#include "platform/SingleInstance.h"

class PosixFile;

class PosixSingleInstance : public SingleInstance {
public:
    explicit PosixSingleInstance(std::u16string programFolder);
    ~PosixSingleInstance() override;

    bool previousInstance() override;

private:
    std::u16string programFolder_;
    std::unique_ptr<PosixFile> lock_;
};
