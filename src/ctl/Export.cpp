#include <string>
#include <utility>
#include <vector>

#include "ctl/Commands.h"
#include "ctl/CsvWriter.h"
#include "ctl/GqrxBookmarks.h"
#include "ctl/HtmlPage.h"
#include "ctl/JsonLists.h"
#include "ctl/Lists.h"
#include "ctl/Messages.h"
#include "ctl/Sources.h"
#include "storage/files/SafeFile.h"
#include "storage/files/VerifiedFiles.h"
#include "storage/lists/ListFile.h"

namespace {

std::string composed(Services& services, ExportFormat format, WorkingCopyBytes bytes) {
    if (format == ExportFormat::Csv) {
        return csvOf(std::move(bytes));
    }
    Lists lists;
    lists.load(std::move(bytes), services.files, services.codePages);
    if (format == ExportFormat::Gqrx) {
        return gqrxOf(lists);
    }
    return format == ExportFormat::Html ? htmlOf(lists, services.clock.now())
                                        : jsonOf(lists, {kListKinds.begin(), kListKinds.end()});
}

// Writes the files of the source as the window would save them.
Exit exportIni(Services& services, const Options& options, SourceFiles source) {
    if (options.output.empty()) {
        complain(services.console, u"the ini format is two files: name a folder for them with -o");
        return Exit::Usage;
    }
    const std::u16string folder =
        folderPath(absolutePath(services.currentFolder, options.output), services.folder.back());
    if (!services.files.createFolder(folder.substr(0, folder.size() - 1))) {
        return fileFault(services.console, folder, u"is no folder and cannot be created");
    }
    const WorkingCopies paths{folder + std::u16string(ListFile::kListName),
                              folder + std::u16string(ListFile::kUserName)};
    Lists lists;
    lists.load(std::move(source.bytes), services.files, services.codePages);
    WorkingCopyBytes bytes = lists.compose(paths, services.files, services.codePages);
    std::vector<NewFile> newFiles;
    for (const ListFileId file : kListFiles) {
        if (source.has(file) && bytes[file]) {
            newFiles.push_back({paths[file], std::move(*bytes[file])});
        }
    }
    const bool written = replaceVerified(services.files, newFiles);
    return written ? Exit::Done : fileFault(services.console, folder, u"the list files cannot be written");
}

}  // namespace

Exit exportLists(Services& services, const Options& options) {
    Exit fault = Exit::Done;
    auto source = openSource(services, options.source, fault);
    if (!source) {
        return fault;
    }
    if (options.exportFormat == ExportFormat::Ini) {
        return exportIni(services, options, std::move(*source));
    }
    const std::string text = composed(services, options.exportFormat, std::move(source->bytes));
    if (options.output.empty()) {
        return print(services.console, text);
    }
    const std::u16string path = absolutePath(services.currentFolder, options.output);
    return replaceFile(services.files, path, text) ? Exit::Done
                                                   : fileFault(services.console, path, u"cannot be written");
}
