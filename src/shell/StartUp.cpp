#include "shell/StartUp.h"

#include "storage/files/SafeFile.h"

void StartUp::run(std::u16string_view RunMode) {
    restore();
    if (RunMode == u"NormalRun") {
        prepareFromReceiver();
    } else {
        prepareLocal();
    }
    const WorkingCopyBytes bytes{present(ListFileId::List), present(ListFileId::User)};
    // A run that is killed leaves UTF-16 behind, which the next start could not read: it needs these bytes then.
    const bool kept = recovery_.keep(bytes);
    loader_.loadFrom({convert(ListFileId::List, bytes.list, kept), convert(ListFileId::User, bytes.user, kept)});
    loader_.LoadDrmList(true);
    loader_.LoadAmList(true);
    loader_.LoadFmList(true);
    loader_.LoadFavList(true);
}

void StartUp::restore() {
    restored_ = recovery_.find().value_or(WorkingCopyBytes());
    for (const ListFileId file : kListFiles) {
        putBack(file);
    }
}

void StartUp::putBack(ListFileId file) {
    const std::u16string& path = workingCopies_[file];
    std::optional<std::string>& bytes = restored_[file];
    removeLeftover(files_, path);
    if (!bytes) {
        return;
    }
    if (files_.exists(path)) {
        findDiskDriver_.ClearFileAttributes(path);
    }
    if (files_.read(path).bytes == bytes || replaceFile(files_, path, *bytes)) {
        bytes.reset();
    }
}

std::optional<std::string> StartUp::present(ListFileId file) {
    if (restored_[file]) {
        return restored_[file];
    }
    auto bytes = readWorkingCopy(workingCopies_[file], files_);
    if (!bytes && files_.exists(workingCopies_[file])) {
        saver_.leave(file);
    }
    return bytes;
}

// The loaders read UTF-16, so that programme names in any script come through.
std::string StartUp::convert(ListFileId file, const std::optional<std::string>& bytes, bool onDisk) {
    if (!bytes) {
        return {};  // no list
    }
    std::string converted = convertedWorkingCopy(*bytes);
    if (onDisk) {
        // Not flushed: a power cut may lose or tear it. The snapshot with the same lists has been flushed already and
        // stays until a save has flushed both files; a start that finds one makes the working copies anew from it.
        replaceFile(files_, workingCopies_[file], converted, Flush::Later);
    }
    return converted;
}

void StartUp::prepareLocal() {
    for (const ListFileId file : kListFiles) {
        if (!files_.exists(workingCopies_[file])) {
            createWorkingCopy(workingCopies_[file], files_, codePages_);
        } else {
            findDiskDriver_.ClearFileAttributes(workingCopies_[file]);
        }
    }
}

void StartUp::prepareFromReceiver() {
    restored_ = {};
    for (const ListFileId file : kListFiles) {
        if (files_.exists(workingCopies_[file])) {
            findDiskDriver_.ClearFileAttributes(workingCopies_[file]);
        }
    }
    for (const ListFileId file : kListFiles) {
        receiverCopies_.fetch(file);
    }
}
