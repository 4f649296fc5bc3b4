#include "ctl/Sources.h"

#include <algorithm>
#include <utility>

#include "ctl/Messages.h"
#include "ctl/WorkingLists.h"
#include "receiver/ReceiverFiles.h"
#include "storage/ini/IniReader.h"
#include "storage/lists/ListFile.h"
#include "storage/text/mTextUTF.h"

namespace {

using Opened = std::optional<SourceFiles>;

bool isSeparator(char16_t unit) { return unit == u'/' || unit == u'\\'; }

std::u16string_view fileNameOf(std::u16string_view path) {
    while (!path.empty() && isSeparator(path.back())) {
        path.remove_suffix(1);
    }
    const auto last = std::find_if(path.rbegin(), path.rend(), isSeparator);
    return path.substr(static_cast<std::size_t>(path.rend() - last));
}

bool startsWithName(std::u16string_view fileName, std::u16string_view stem) {
    return sameName(fileName.substr(0, stem.size()), stem);
}

// By the file name, or by its count if the name is another.
bool isUserFile(std::u16string_view path, const std::string& bytes, CodePages& codePages) {
    const std::u16string_view name = fileNameOf(path);
    if (startsWithName(name, u"user") || startsWithName(name, u"list")) {
        return startsWithName(name, u"user");
    }
    const IniText text = decodeIni(bytes, codePages);
    return !IniReader(text.text).get(ListFile::kTotal, ListFile::countKey(ListKind::Favourite)).empty();
}

class Opener {
public:
    Opener(Services& services, Exit& fault) : services_(services), fault_(fault) {}

    Opened fail(std::u16string_view path, std::u16string_view why) {
        fault_ = fileFault(services_.console, path, why);
        return std::nullopt;
    }

    Opened failToRead(std::u16string_view path) { return fail(path, whyUnreadable(path, services_.files)); }

    Opened workingCopies() {
        WorkingLists lists(services_);
        const WorkingCopies& paths = lists.paths();
        SourceFiles source{lists.read(), {}};
        for (const ListFileId file : kListFiles) {
            source.paths[file] = source.bytes[file] ? paths[file] : u"";
        }
        if (lists.isUnreadable()) {
            return failToRead(source.bytes.list ? paths.UserFilePath : paths.ListFilePath);
        }
        return source.isEmpty() ? fail(paths.ListFilePath, u"no such file") : Opened(std::move(source));
    }

    Opened receiver() {
        mFindDiskDriver driver(services_.volumes, services_.files);
        std::u16string root;
        Backup backup(services_.folder, services_.files, services_.clock);
        ReceiverFiles receiver(driver, root, services_.files, backup);
        if (!receiver.findDisk()) {
            complain(services_.console, kNoReceiver);
            fault_ = Exit::NoReceiver;
            return std::nullopt;
        }
        if (const auto missing = receiver.missingFile()) {
            return fail(*missing, u"no such file");
        }
        auto pair = receiver.read();
        if (!pair) {
            return fail(root, u"the list files cannot be read");
        }
        return SourceFiles{{std::move(pair->list), std::move(pair->user)},
                           {receiver.pathOf(ListFileId::List), receiver.pathOf(ListFileId::User)}};
    }

    Opened backup(std::u16string_view id) {
        Backup backup(services_.folder, services_.files, services_.clock);
        const auto copies = backup.copies();
        SourceFiles source;
        for (const ListFileId file : kListFiles) {
            for (const Backup::Copy& copy : copies[file]) {
                if (copy.id() == id) {
                    source.paths[file] = backup.pathOf(copy);
                }
            }
        }
        return read(std::move(source), services_.folder + u"Backup", u"no backup " + std::u16string(id));
    }

    Opened folderOrFile(std::u16string_view text) {
        const std::u16string path = absolutePath(services_.currentFolder, text);
        if (!services_.files.exists(path)) {
            return fail(path, u"no such file or folder");
        }
        if (!services_.files.size(path)) {
            return folder(path);
        }
        auto bytes = readWorkingCopy(path, services_.files).bytes;
        if (!bytes) {
            return failToRead(path);
        }
        SourceFiles source;
        const ListFileId file = isUserFile(path, *bytes, services_.codePages) ? ListFileId::User : ListFileId::List;
        source.paths[file] = path;
        source.bytes[file] = std::move(bytes);
        return source;
    }

private:
    Opened folder(std::u16string path) {
        path = folderPath(std::move(path), services_.folder.back());
        SourceFiles source;
        for (const ListFileId file : kListFiles) {
            const std::u16string found = path + std::u16string(ListFile::nameOf(file));
            source.paths[file] = services_.files.exists(found) ? found : u"";
        }
        return read(std::move(source), path, u"holds neither List.ini nor User.ini");
    }

    // Reads the files at the paths of the source. `where` and `why`: the message if it has no file.
    Opened read(SourceFiles source, std::u16string_view where, std::u16string_view why) {
        for (const ListFileId file : kListFiles) {
            const std::u16string& path = source.paths[file];
            if (!path.empty() && !(source.bytes[file] = readWorkingCopy(path, services_.files).bytes)) {
                return failToRead(path);
            }
        }
        return source.isEmpty() ? fail(where, why) : Opened(std::move(source));
    }

    Services& services_;
    Exit& fault_;
};

}  // namespace

std::optional<SourceFiles> openSource(Services& services, std::u16string_view source, Exit& fault) {
    Opener opener(services, fault);
    if (source.empty()) {
        return opener.workingCopies();
    }
    if (source == kReceiver) {
        return opener.receiver();
    }
    if (source.starts_with(kBackupPrefix)) {
        return opener.backup(source.substr(kBackupPrefix.size()));
    }
    return opener.folderOrFile(source);
}

std::u16string_view whyUnreadable(std::u16string_view path, Files& files) {
    return files.size(path).value_or(0) > kLargestTextFile ? u"is larger than 2 GiB" : u"cannot be read";
}

std::u16string absolutePath(std::u16string_view currentFolder, std::u16string_view path) {
    const bool hasDrive = path.size() > 1 && path[1] == u':';
    if (path.empty() || isSeparator(path.front()) || hasDrive) {
        return std::u16string(path);
    }
    return std::u16string(currentFolder) + std::u16string(path);
}

std::u16string folderPath(std::u16string path, char16_t separator) {
    if (path.empty() || !isSeparator(path.back())) {
        path += separator;
    }
    return path;
}

std::optional<SourceFiles> openSource(Services& services, std::u16string_view source, Lists& lists, Exit& fault) {
    auto opened = openSource(services, source, fault);
    if (opened) {
        lists.load(std::move(opened->bytes), services.files, services.codePages);
    }
    return opened;
}
