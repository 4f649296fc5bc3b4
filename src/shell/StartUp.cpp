#include "shell/StartUp.h"

void StartUp::run(std::u16string_view RunMode) {
    if (RunMode == u"NormalRun") {
        prepareFromReceiver();
    } else {
        prepareLocal();
    }
    // The loaders read UTF-16, so that programme names in any script come through.
    for (const std::u16string& path : {workingCopies_.ListFilePath, workingCopies_.UserFilePath}) {
        convertWorkingCopy(path, files_, codePages_);
    }
    loader_.LoadDrmList(true);
    loader_.LoadAmList(true);
    loader_.LoadFmList(true);
    loader_.LoadFavList(true);
}

void StartUp::prepareLocal() {
    for (const std::u16string& path : {workingCopies_.ListFilePath, workingCopies_.UserFilePath}) {
        if (files_.exists(path)) {
            findDiskDriver_.ClearFileAttributes(path);
        } else {
            createWorkingCopy(path, files_, codePages_);
        }
    }
}

void StartUp::prepareFromReceiver() {
    for (const std::u16string& path : {workingCopies_.ListFilePath, workingCopies_.UserFilePath}) {
        if (files_.exists(path)) {
            findDiskDriver_.ClearFileAttributes(path);
        }
    }
    receiverCopies_.fetch(u"List.ini", workingCopies_.ListFilePath);
    receiverCopies_.fetch(u"User.ini", workingCopies_.UserFilePath);
}
