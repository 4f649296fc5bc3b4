// Writes the four grids to the working copies, in the receiver's encoding.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "storage/lists/ComposedLists.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/stations/ReceiverSettings.h"
#include "storage/stations/StationLists.h"

class ComposedFile;

class ListSaver {
public:
    // All references outlive the saver. The paths are read at each save.
    ListSaver(StationLists lists, const WorkingCopies& copies, const ReceiverSettings& settings, Files& files,
              CodePages& codePages)
        : lists_(lists), copies_(copies), settings_(settings), files_(files), codePages_(codePages) {}

    // Replaces both working copies, each atomically; one that cannot be written stays unchanged. Failures show nothing.
    void SaveLists() { SaveLists(compose()); }
    // The same with the result of compose().
    void SaveLists(WorkingCopyBytes bytes);
    // True if the last SaveLists has written both files.
    bool ListsSaved() const { return listsSaved_; }
    // The bytes that SaveLists would write; nullopt for a file that it would not write.
    WorkingCopyBytes compose() { return compose(nullptr); }
    // The same, but takes the records of unchanged lists from `last`, and updates it.
    WorkingCopyBytes compose(ComposedLists& last) { return compose(&last); }

    // Excludes a working copy that could not be loaded from saving: the grids never held its records.
    void leave(ListFileId file) { leaves_[file] = true; }
    // Call when both have been loaded.
    void leaveNone() { leaves_ = {}; }

    // Removes the record sections and the end marker from the working copies; the counts stay. An entry point without a
    // caller here.
    void ResetContentOfINI();
    void ResetContentOfUserINI();

private:
    std::size_t usualBytes(std::initializer_list<ListKind> kinds);
    // `last`: null composes every list.
    WorkingCopyBytes compose(ComposedLists* last);
    std::optional<std::string> compose(ListFileId file, ComposedLists* last);
    std::string composeListFile(ComposedLists* last);
    std::optional<std::string> composeUserFile(ComposedLists* last);
    void appendRecords(ComposedFile& file, ListKind kind, ComposedLists* last);
    void composeRecords(ComposedFile& file, ListKind kind);
    std::u16string startOf(std::u16string_view path);
    static std::string finish(ComposedFile& file);
    void resetContent(std::u16string_view path, std::initializer_list<ListKind> kinds);

    StationLists lists_;
    const WorkingCopies& copies_;
    const ReceiverSettings& settings_;
    Files& files_;
    CodePages& codePages_;
    bool listsSaved_ = false;
    PerListFile<bool> leaves_;
};
