#include "receiver/ReceiverCopies.h"

#include <utility>
#include <vector>

#include "storage/files/SafeFile.h"
#include "storage/files/VerifiedFiles.h"
#include "storage/lists/ListFile.h"

ReceiverCopies::ReceiverCopies(StationLists lists, const ListStorage& storage, ReceiverFiles& receiver,
                               Feedback feedback, Files& files)
    : lists_(lists),
      copies_(storage.copies),
      receiver_(receiver),
      loader_(storage.loader),
      saver_(storage.saver),
      messages_(feedback.messages),
      totals_(feedback.totals),
      files_(files),
      backup_(storage.backup),
      recovery_(storage.recovery) {}

bool ReceiverCopies::findDisk() {
    const bool found = receiver_.findDisk();
    if (!found) {
        messages_.show(u"Can't find disk,please connect DRM receiver to PC");
    }
    return found;
}

void ReceiverCopies::reportMissing(const std::u16string& path) {
    messages_.show(u"Can't find any file: " + path + u"!" + u"Please confirm whether the file is exist");
}

void ReceiverCopies::ReloadFromReceiver() {
    if (!findDisk()) {
        return;
    }
    for (const ListFileId file : kListFiles) {
        if (files_.exists(copies_[file])) {
            files_.clearAttributes(copies_[file]);
        }
    }
    if (const auto missing = receiver_.missingFile()) {
        reportMissing(*missing);
        return;
    }
    if (!copyFromReceiver()) {
        return;
    }
    WorkingCopyBytes converted{convertWorkingCopy(copies_.ListFilePath, files_),
                               convertWorkingCopy(copies_.UserFilePath, files_)};
    // Grids loaded from a file in the wrong encoding would later be saved over the right one.
    if (!converted.list || !converted.user) {
        return;
    }
    for (const ListFileId file : kListFiles) {
        recovery_.leaves(file, FileState::of(*converted[file]));
    }
    reloadGrids(std::move(converted));
}

bool ReceiverCopies::copyFromReceiver() {
    auto pair = receiver_.read();
    if (!pair) {
        return false;
    }
    const WorkingCopyBytes shown = saver_.compose();
    std::vector<NewFile> newFiles;
    for (const ListFileId file : kListFiles) {
        backUp(file, shown[file]);
        std::string& received = (*pair)[file];
        recovery_.mayLeave(file, FileState::of(received));
        recovery_.mayLeave(file, FileState::of(convertedWorkingCopy(received)));
        newFiles.push_back({copies_[file], std::move(received)});
    }
    // If the run is interrupted before both files are converted, the next start restores the lists as shown.
    recovery_.keep(shown);
    return replaceVerified(files_, newFiles);
}

bool ReceiverCopies::fetch(ListFileId file) {
    const std::u16string source = receiver_.pathOf(file);
    if (!files_.exists(source)) {
        reportMissing(source);
        return false;
    }
    const auto bytes = files_.read(source).bytes;
    if (!bytes) {
        return false;
    }
    backUp(file, std::nullopt);
    return replaceFile(files_, copies_[file], *bytes);
}

// shown: the file as a save would write it, also backed up because the working copy may not have it yet.
void ReceiverCopies::backUp(ListFileId file, const std::optional<std::string>& shown) {
    const std::u16string_view name = ListFile::nameOf(file);
    // A backup may replace a list file, which start-up and the receiver read as UTF-8.
    if (const auto present = files_.read(copies_[file]).bytes) {
        backup_.keep(name, unconvertedWorkingCopy(*present));
    }
    if (shown) {
        backup_.keep(name, *shown);
    }
}

void ReceiverCopies::reloadGrids(WorkingCopyBytes bytes) {
    const WorkingCopyBytes received = bytes;
    totals_.ShowTotals();
    for (const ListKind kind : kListKinds) {
        lists_.grid(kind).clear();
    }
    loader_.loadFrom(std::move(bytes));
    saver_.leaveNone();
    loader_.LoadDrmList(false);
    loader_.LoadAmList(false);
    loader_.LoadFmList(false);
    loader_.LoadFavList(false);
    for (const ListFileId file : kListFiles) {
        if (loader_.leftOutAList(file)) {
            backup_.keep(ListFile::nameOf(file), unconvertedWorkingCopy(*received[file]));
        }
    }
    totals_.ShowTotals();
}

void ReceiverCopies::SaveToReceiver() {
    recovery_.save(saver_);
    // After a failed save a working copy is outdated or in UTF-16, which the receiver cannot read.
    if (findDisk() && saver_.ListsSaved()) {
        copyToReceiver();
    }
}

void ReceiverCopies::copyToReceiver() {
    auto list = readWorkingCopy(copies_.ListFilePath, files_).bytes;
    auto user = readWorkingCopy(copies_.UserFilePath, files_).bytes;
    if (list && user) {
        receiver_.replace({std::move(*list), std::move(*user)});
    }
}
