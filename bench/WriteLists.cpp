// Writes a "List.ini" and a "User.ini" as a save leaves them. Usage: write_lists FOLDER/ RECORDS mixed|latin, where
// the last argument selects the scripts of the names.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "SampleLists.h"
#include "platform/posix/PosixCodePages.h"
#include "platform/posix/PosixFiles.h"

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: write_lists FOLDER/ RECORDS mixed|latin\n");
        return 2;
    }
    PosixFiles files;
    PosixCodePages codePages;
    SampleLists lists(std::filesystem::path(argv[1]).u16string(),
                      std::string(argv[3]) == "latin" ? Names::Latin : Names::Mixed);
    lists.fill(std::atoi(argv[2]));
    lists.writeUtf8(files, codePages);
    return files.exists(lists.copies().ListFilePath) ? 0 : 1;
}
