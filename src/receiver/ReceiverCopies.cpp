#include "receiver/ReceiverCopies.h"

#include <utility>
#include <vector>

#include "storage/files/SafeFile.h"
#include "storage/files/VerifiedFiles.h"
#include "storage/ini/IniReader.h"
#include "storage/lists/ListFile.h"
#include "storage/text/Utf8.h"

namespace {

// A backup is to be put in the place of a list file, which start-up and the receiver read as UTF-8.
std::string withoutUtf16(const std::string& bytes, CodePages& codePages) {
    const IniText file = decodeIni(bytes, codePages);
    return file.isUtf16 ? toUtf8(file.text) : bytes;
}

}  // namespace

ReceiverCopies::ReceiverCopies(StationLists lists, const WorkingCopies& copies, std::u16string& receiverRoot,
                               ListLoader& loader, ListSaver& saver, mFindDiskDriver& driver, mMsgBox& messages,
                               Totals& totals, Files& files, CodePages& codePages, Backup& backup)
    : lists_(lists),
      copies_(copies),
      receiverRoot_(receiverRoot),
      loader_(loader),
      saver_(saver),
      driver_(driver),
      messages_(messages),
      totals_(totals),
      files_(files),
      codePages_(codePages),
      backup_(backup) {}

bool ReceiverCopies::findDisk() {
    receiverRoot_ = driver_.FindReceiverDisk();
    if (receiverRoot_.find(kUnknownDriver) == receiverRoot_.npos) {
        return true;
    }
    messages_.show(u"Can't find disk,please connect DRM receiver to PC");
    return false;
}

void ReceiverCopies::ReloadFromReceiver() {
    if (!findDisk()) {
        return;
    }
    for (const std::u16string& path : {copies_.ListFilePath, copies_.UserFilePath}) {
        if (files_.exists(path)) {
            driver_.ClearFileAttributes(path);
        }
    }
    const WorkingCopyBytes shown = saver_.compose();
    if (!fetch(ListFile::kListName, copies_.ListFilePath, shown.list) ||
        !fetch(ListFile::kUserName, copies_.UserFilePath, shown.user)) {
        return;
    }
    WorkingCopyBytes converted{convertWorkingCopy(copies_.ListFilePath, files_),
                               convertWorkingCopy(copies_.UserFilePath, files_)};
    // Grids filled from a file in the wrong encoding would be saved over the right one later.
    if (converted.list && converted.user) {
        reloadGrids(std::move(converted));
    }
}

bool ReceiverCopies::fetch(std::u16string_view name, std::u16string_view workingCopy) {
    return fetch(name, workingCopy, std::nullopt);
}

// shown: the file as a save would write it; it goes too, and the working copy may not hold it yet.
bool ReceiverCopies::fetch(std::u16string_view name, std::u16string_view workingCopy,
                           const std::optional<std::string>& shown) {
    const std::u16string source = receiverRoot_ + std::u16string(name);
    if (!files_.exists(source)) {
        messages_.show(u"Can't find any file: " + source + u"!" + u"Please confirm whether the file is exist");
        return false;
    }
    const auto bytes = files_.read(source);
    if (!bytes) {
        return false;
    }
    if (const auto present = files_.read(workingCopy)) {
        backup_.keep(name, withoutUtf16(*present, codePages_));
    }
    if (shown) {
        backup_.keep(name, *shown);
    }
    return replaceFile(files_, workingCopy, *bytes);
}

void ReceiverCopies::reloadGrids(WorkingCopyBytes bytes) {
    totals_.ShowTotals();
    for (const ListKind kind : {ListKind::Drm, ListKind::Am, ListKind::Fm, ListKind::Favourite}) {
        lists_.grid(kind).clear();
    }
    loader_.loadFrom(std::move(bytes));
    saver_.leaveNone();
    loader_.LoadDrmList(false);
    loader_.LoadAmList(false);
    loader_.LoadFmList(false);
    loader_.LoadFavList(false);
    totals_.ShowTotals();
}

void ReceiverCopies::SaveToReceiver() {
    saver_.SaveLists();
    // A save that failed has left a working copy in UTF-16 or of an earlier state: nothing for the receiver.
    if (findDisk() && saver_.ListsSaved()) {
        copyToReceiver();
    }
}

void ReceiverCopies::copyToReceiver() {
    std::vector<NewFile> copies;
    for (const auto& [name, workingCopy] : {std::pair(ListFile::kListName, &copies_.ListFilePath),
                                            std::pair(ListFile::kUserName, &copies_.UserFilePath)}) {
        auto bytes = readWorkingCopy(*workingCopy, files_);
        if (!bytes) {
            return;
        }
        copies.push_back({receiverRoot_ + std::u16string(name), std::move(*bytes)});
        if (const auto old = files_.read(copies.back().path)) {
            backup_.keep(name, *old);
        }
    }
    replaceVerified(files_, copies);
}
