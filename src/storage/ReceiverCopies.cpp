#include "storage/ReceiverCopies.h"

#include <utility>

#include "storage/SafeFile.h"

namespace {

constexpr std::u16string_view kListFile = u"List.ini";
constexpr std::u16string_view kUserFile = u"User.ini";

}  // namespace

ReceiverCopies::ReceiverCopies(StationLists lists, const WorkingCopies& copies, std::u16string& receiverRoot,
                               ListLoader& loader, ListSaver& saver, mFindDiskDriver& driver, mMsgBox& messages,
                               Totals& totals, Files& files, CodePages& codePages)
    : lists_(lists),
      copies_(copies),
      receiverRoot_(receiverRoot),
      loader_(loader),
      saver_(saver),
      driver_(driver),
      messages_(messages),
      totals_(totals),
      files_(files),
      codePages_(codePages) {}

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
    if (!fetch(kListFile, copies_.ListFilePath) || !fetch(kUserFile, copies_.UserFilePath)) {
        return;
    }
    WorkingCopyBytes converted{convertWorkingCopy(copies_.ListFilePath, files_, codePages_),
                               convertWorkingCopy(copies_.UserFilePath, files_, codePages_)};
    // Grids filled from a file in the wrong encoding would be saved over the right one later.
    if (converted.list && converted.user) {
        reloadGrids(std::move(converted));
    }
}

bool ReceiverCopies::fetch(std::u16string_view name, std::u16string_view workingCopy) {
    const std::u16string source = receiverRoot_ + std::u16string(name);
    if (!files_.exists(source)) {
        messages_.show(u"Can't find any file: " + source + u"!" + u"Please confirm whether the file is exist");
        return false;
    }
    const auto bytes = files_.read(source);
    return bytes && replaceFile(files_, workingCopy, *bytes);
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
        copyToReceiver(copies_.ListFilePath, kListFile);
        copyToReceiver(copies_.UserFilePath, kUserFile);
    }
}

void ReceiverCopies::copyToReceiver(std::u16string_view workingCopy, std::u16string_view name) {
    if (const auto bytes = files_.read(workingCopy)) {
        replaceVerified(files_, receiverRoot_ + std::u16string(name), *bytes);
    }
}
