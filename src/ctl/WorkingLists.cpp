#include "ctl/WorkingLists.h"

#include <string>
#include <utility>
#include <vector>

#include "ctl/Messages.h"
#include "storage/files/VerifiedFiles.h"
#include "storage/ini/IniReader.h"
#include "storage/lists/ListFile.h"
#include "storage/recovery/ListsAtStart.h"
#include "storage/text/Utf8.h"

namespace {

// During a run of the window the working copies are UTF-16.
std::string withoutUtf16(const std::string& bytes, CodePages& codePages) {
    const IniText file = decodeIni(bytes, codePages);
    return file.isUtf16 ? toUtf8(file.text) : bytes;
}

}  // namespace

WorkingLists::WorkingLists(Services& services)
    : services_(services),
      paths_{services.folder + std::u16string(ListFile::kListName),
             services.folder + std::u16string(ListFile::kUserName)} {}

WorkingCopyBytes WorkingLists::read() {
    Recovery recovery(services_.folder, services_.files);
    const Snapshot last = recovery.find().value_or(Snapshot());
    unreadable_ = unreadable_ || !recovery.foundAll();
    return {read(ListFileId::List, last), read(ListFileId::User, last)};
}

std::optional<std::string> WorkingLists::read(ListFileId file, const Snapshot& last) {
    Backup backup(services_.folder, services_.files, services_.clock);
    const ListsAtStart start(file, paths_[file], last, services_.files, backup);
    unreadable_ = unreadable_ || start.source() == ListsAtStart::Source::Unreadable;
    return start.lists();
}

FileState WorkingLists::stateOf(ListFileId file) {
    const auto found = readWorkingCopy(paths_[file], services_.files).bytes;
    return found ? FileState::of(*found) : FileState();
}

bool WorkingLists::claim() {
    if (services_.singleInstance.previousInstance()) {
        complain(services_.console, services_.folder + u": the window is open on these lists; close it first");
        return false;
    }
    return true;
}

void WorkingLists::backUp(const WorkingCopyBytes& old) {
    Backup backup(services_.folder, services_.files, services_.clock);
    for (const ListFileId file : kListFiles) {
        if (old[file]) {
            backup.keep(ListFile::nameOf(file), withoutUtf16(*old[file], services_.codePages));
        }
    }
}

bool WorkingLists::replace(const WorkingCopyBytes& bytes) {
    const WorkingCopyBytes old = read();
    if (unreadable_ || !bytes.list || !bytes.user) {
        fileFault(services_.console, services_.folder, u"the lists cannot be read, so they are not replaced");
        return false;
    }
    backUp(old);
    Recovery recovery(services_.folder, services_.files);
    if (!keepNew(recovery, bytes)) {
        return false;
    }
    const bool replaced = write(bytes);
    keepResult(recovery, replaced ? bytes : old, replaced);
    return replaced;
}

bool WorkingLists::keepNew(Recovery& recovery, const WorkingCopyBytes& bytes) {
    recovery.find();
    for (const ListFileId file : kListFiles) {
        recovery.mayLeave(file, stateOf(file));
        recovery.mayLeave(file, FileState::of(*bytes[file]));
    }
    if (recovery.keep(bytes)) {
        return true;
    }
    if (services_.files.exists(services_.folder)) {
        fileFault(services_.console, services_.folder + u"Recovery", u"cannot be written");
    } else {
        fileFault(services_.console, services_.folder, u"no such folder");
    }
    return false;
}

bool WorkingLists::write(const WorkingCopyBytes& bytes) {
    for (const ListFileId file : kListFiles) {
        if (services_.files.exists(paths_[file])) {
            services_.files.clearAttributes(paths_[file]);
        }
    }
    const bool replaced =
        replaceVerified(services_.files, {{paths_.ListFilePath, *bytes.list}, {paths_.UserFilePath, *bytes.user}});
    if (!replaced) {
        fileFault(services_.console, services_.folder, u"the lists cannot be written");
    }
    return replaced;
}

void WorkingLists::keepResult(Recovery& recovery, WorkingCopyBytes present, bool replaced) {
    for (const ListFileId file : kListFiles) {
        if (replaced) {
            recovery.leaves(file, FileState::of(*present[file]));
        } else if (!present[file]) {
            present[file] = kNewWorkingCopy;  // the file was missing
        }
    }
    recovery.keep(std::move(present));
    recovery.keepNewestOnly();
}
