// Where the two working copies lie: absolute paths in the program folder.
#pragma once

#include <string>

struct WorkingCopies {
    std::u16string ListFilePath;
    std::u16string UserFilePath;
};
