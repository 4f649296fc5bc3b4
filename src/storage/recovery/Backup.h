// Copies of list files that are about to be replaced, in the folder "Backup" of the program folder.
// A failure is silent and does not stop the command that replaces the file.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Clock.h"
#include "platform/Files.h"
#include "storage/lists/ListFileId.h"

class Backup {
public:
    // programFolder ends with its separator. The references outlive this object.
    Backup(std::u16string_view programFolder, Files& files, Clock& clock);

    // "List.ini" at 22:45:01 UTC becomes "List-20261120T224501Z.ini", or "...Z-2.ini" if that exists. Writes nothing if
    // the newest copy of that name has the same content, or if a list file has no record. Keeps the newest kCopies
    // only.
    void keep(std::u16string_view name, std::string_view bytes);

    // What could be read of a damaged file: "List.part-20261120T224501Z.ini". It is none of the copies, so that no
    // start and no command takes it for a whole file. Else as keep; the newest kCopies of these are kept, too.
    void keepPart(std::u16string_view name, std::string_view bytes);

    // Removes unfinished copies of an interrupted run; call at start-up.
    void removeLeftovers();

    static constexpr std::size_t kCopies = 30;  // of each name

    struct Copy {
        std::u16string stamp;  // "20261120T224501Z"; sorts by time
        int count = 1;         // numbers the copies of one second
        std::u16string name;   // file name in the folder

        // "20261120T224501Z", or "20261120T224501Z-2".
        std::u16string id() const;
    };
    // The copies of "List.ini" or "User.ini", the oldest first.
    std::vector<Copy> copiesOf(std::u16string_view name);
    // Of both from one look into the folder, so that either all are found or none.
    PerListFile<std::vector<Copy>> copies();
    std::u16string pathOf(const Copy& copy) const { return pathOf(copy.name); }

private:
    std::u16string pathOf(std::u16string_view copy) const;

    std::u16string folder_;
    char16_t separator_;
    Files& files_;
    Clock& clock_;
};
