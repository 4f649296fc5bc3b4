#include "ctl/WorkingLists.h"

#include <string>
#include <utility>
#include <vector>

#include "ctl/Messages.h"
#include "storage/files/VerifiedFiles.h"
#include "storage/ini/IniReader.h"
#include "storage/lists/ListFile.h"
#include "storage/recovery/Recovery.h"
#include "storage/text/Utf8.h"

namespace {

// In the receiver's encoding: the working copies of a run of the window are in UTF-16.
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
    WorkingCopyBytes bytes = Recovery(services_.folder, services_.files).find().value_or(WorkingCopyBytes());
    const auto complete = [this](std::optional<std::string>& file, const std::u16string& path) {
        if (!file && services_.files.exists(path)) {
            file = readWorkingCopy(path, services_.files);
            unreadable_ = unreadable_ || !file;
        }
    };
    complete(bytes.list, paths_.ListFilePath);
    complete(bytes.user, paths_.UserFilePath);
    return bytes;
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
    if (old.list) {
        backup.keep(ListFile::kListName, withoutUtf16(*old.list, services_.codePages));
    }
    if (old.user) {
        backup.keep(ListFile::kUserName, withoutUtf16(*old.user, services_.codePages));
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
    const bool restores = recovery.find().has_value();
    // As the window saves: from here on a start finds the new lists, even if only one file has been replaced.
    if (!recovery.keep(bytes)) {
        fileFault(services_.console, services_.folder + u"Recovery", u"cannot be written");
        return false;
    }
    for (const std::u16string& path : {paths_.ListFilePath, paths_.UserFilePath}) {
        if (services_.files.exists(path)) {
            services_.files.clearAttributes(path);
        }
    }
    const bool replaced =
        replaceVerified(services_.files, {{paths_.ListFilePath, *bytes.list}, {paths_.UserFilePath, *bytes.user}});
    if (!replaced) {
        fileFault(services_.console, services_.folder, u"the lists cannot be written");
    }
    if (!replaced && restores) {
        recovery.keep(old);
    } else {
        recovery.discard();
    }
    return replaced;
}
