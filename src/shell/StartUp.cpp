#include "shell/StartUp.h"

#include "storage/files/SafeFile.h"
#include "storage/lists/ListFile.h"

void StartUp::run(std::u16string_view RunMode) {
    restore();
    if (RunMode == u"NormalRun") {
        prepareFromReceiver();
    } else {
        prepareLocal();
    }
    const WorkingCopyBytes bytes{present(workingCopies_.ListFilePath, restored_.list),
                                 present(workingCopies_.UserFilePath, restored_.user)};
    // A run that is killed leaves UTF-16 behind, which the next start could not read: it needs these bytes then.
    const bool kept = recovery_.keep(bytes);
    loader_.loadFrom({convert(workingCopies_.ListFilePath, bytes.list, kept),
                      convert(workingCopies_.UserFilePath, bytes.user, kept)});
    loader_.LoadDrmList(true);
    loader_.LoadAmList(true);
    loader_.LoadFmList(true);
    loader_.LoadFavList(true);
}

void StartUp::restore() {
    restored_ = recovery_.find().value_or(WorkingCopyBytes());
    const auto putBack = [this](std::u16string_view path, std::optional<std::string>& bytes) {
        removeLeftover(files_, path);
        if (!bytes) {
            return;
        }
        if (files_.exists(path)) {
            findDiskDriver_.ClearFileAttributes(path);
        }
        if (files_.read(path) == bytes || replaceFile(files_, path, *bytes)) {
            bytes.reset();
        }
    };
    putBack(workingCopies_.ListFilePath, restored_.list);
    putBack(workingCopies_.UserFilePath, restored_.user);
}

std::optional<std::string> StartUp::present(std::u16string_view path, const std::optional<std::string>& restored) {
    if (restored) {
        return restored;
    }
    auto bytes = readWorkingCopy(path, files_);
    if (!bytes && files_.exists(path)) {
        saver_.leave(path);
    }
    return bytes;
}

// The loaders read UTF-16, so that programme names in any script come through.
std::string StartUp::convert(std::u16string_view path, const std::optional<std::string>& bytes, bool onDisk) {
    if (!bytes) {
        return {};  // no list
    }
    std::string converted = convertedWorkingCopy(*bytes);
    if (onDisk) {
        // Not flushed: a power cut may lose or tear it. The snapshot with the same lists has been flushed already and
        // stays until a save has flushed both files; a start that finds one makes the working copies anew from it.
        replaceFileUnflushed(files_, path, converted);
    }
    return converted;
}

void StartUp::prepareLocal() {
    for (const std::u16string& path : {workingCopies_.ListFilePath, workingCopies_.UserFilePath}) {
        if (isMissing(files_, path)) {
            createWorkingCopy(path, files_, codePages_);
        } else {
            findDiskDriver_.ClearFileAttributes(path);
        }
    }
}

void StartUp::prepareFromReceiver() {
    restored_ = {};
    for (const std::u16string& path : {workingCopies_.ListFilePath, workingCopies_.UserFilePath}) {
        if (files_.exists(path)) {
            findDiskDriver_.ClearFileAttributes(path);
        }
    }
    receiverCopies_.fetch(ListFile::kListName, workingCopies_.ListFilePath);
    receiverCopies_.fetch(ListFile::kUserName, workingCopies_.UserFilePath);
}
