#include "shell/StartUp.h"

#include "storage/files/SafeFile.h"
#include "storage/lists/ListContent.h"
#include "storage/lists/ListFile.h"
#include "storage/recovery/ListsAtStart.h"

void StartUp::run(std::u16string_view RunMode) {
    const Snapshot last = recovery_.find().value_or(Snapshot());
    for (const Snapshot& unseen : recovery_.unseen()) {
        for (const ListFileId file : kListFiles) {
            backup_.keep(ListFile::nameOf(file), unseen.bytes[file].value_or(""));
        }
    }
    const bool isNormalRun = RunMode == u"NormalRun";
    for (const ListFileId file : kListFiles) {
        removeLeftover(files_, workingCopies_[file]);
        if (files_.exists(workingCopies_[file])) {
            findDiskDriver_.ClearFileAttributes(workingCopies_[file]);
        }
    }
    if (isNormalRun) {
        receiverCopies_.fetch(ListFileId::List);
        receiverCopies_.fetch(ListFileId::User);
    }
    const WorkingCopyBytes bytes{content(ListFileId::List, last), content(ListFileId::User, last)};
    WorkingCopyBytes converted;
    for (const ListFileId file : kListFiles) {
        converted[file] = bytes[file] ? convertedWorkingCopy(*bytes[file]) : std::string();  // no list
        recovery_.mayLeave(file, FileState::of(*converted[file]));
    }
    const bool kept = recovery_.keep(bytes);
    for (const ListFileId file : kListFiles) {
        if (bytes[file]) {
            if (!kept) {
                backup_.keep(ListFile::nameOf(file), *bytes[file]);
            }
            put(file, *converted[file], isNormalRun);
        }
    }
    load(bytes, std::move(converted));
}

std::optional<std::string> StartUp::content(ListFileId file, const Snapshot& last) {
    const ListsAtStart start(file, workingCopies_[file], last, files_, backup_);
    // A power cut may still undo the unflushed replacement of the file that the killed run found.
    if (start.source() == ListsAtStart::Source::Snapshot && !last.left[file].empty()) {
        recovery_.mayLeave(file, last.left[file].front());
    }
    if (start.state()) {
        recovery_.mayLeave(file, *start.state());
    }
    if (start.passedOver()) {
        backup_.keep(ListFile::nameOf(file), *start.passedOver());
    }
    switch (start.source()) {
        case ListsAtStart::Source::Missing:
            recovery_.mayLeave(file, FileState::of(kNewWorkingCopy));
            return std::string(kNewWorkingCopy);
        case ListsAtStart::Source::Unreadable:
            saver_.leave(file);
            return std::nullopt;
        case ListsAtStart::Source::WorkingCopy:
            return ListContent::hasSection(*start.lists()) ? start.lists() : unconvertedWorkingCopy(*start.lists());
        default:
            return start.lists();
    }
}

void StartUp::put(ListFileId file, const std::string& converted, bool isNormalRun) {
    const std::u16string& path = workingCopies_[file];
    if (!files_.exists(path)) {
        if (isNormalRun) {
            return;
        }
        createWorkingCopy(path, files_, codePages_);
        files_.flushFolderOf(path);
        if (files_.exists(path)) {
            // A later start then knows that a missing file was removed by the user.
            recovery_.leaves(file, FileState::of(kNewWorkingCopy));
            recovery_.mayLeave(file, FileState::of(converted));
        }
    }
    // Not flushed: a power cut may leave the old file, an empty or a torn one. In each case the snapshot with the same
    // lists counts, which has been flushed.
    replaceFile(files_, path, converted, Flush::Later);
}

void StartUp::load(const WorkingCopyBytes& bytes, WorkingCopyBytes converted) {
    // The loaders read UTF-16, so programme names in any script survive.
    loader_.loadFrom(std::move(converted));
    loader_.LoadDrmList(true);
    loader_.LoadAmList(true);
    loader_.LoadFmList(true);
    loader_.LoadFavList(true);
    for (const ListFileId file : kListFiles) {
        if (bytes[file] && loader_.leftOutAList(file)) {
            backup_.keep(ListFile::nameOf(file), *bytes[file]);
        }
    }
}
