// Writes the four grids into the working copies, in the receiver's encoding.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "storage/ReceiverSettings.h"
#include "storage/StationLists.h"
#include "storage/WorkingCopies.h"

class ListSaver {
public:
    // All references outlive the saver. The paths are read at each save.
    ListSaver(StationLists lists, const WorkingCopies& copies, const ReceiverSettings& settings, Files& files,
              CodePages& codePages)
        : lists_(lists), copies_(copies), settings_(settings), files_(files), codePages_(codePages) {}

    // Rewrites both working copies, each in one step; a file that cannot be written stays whole as it was, silently.
    void SaveLists();
    // True when the last SaveLists has written both files.
    bool ListsSaved() const { return listsSaved_; }

    // Removes the record sections and the end marker from a working copy; the counts stay.
    void ResetContentOfINI();
    void ResetContentOfUserINI();

private:
    void appendRecords(std::u16string& text, ListKind kind);
    bool saveListFile();
    bool saveUserFile();
    std::u16string startOf(std::u16string_view path);
    bool finish(std::u16string_view path, std::u16string& text);
    void resetContent(std::u16string_view path, std::initializer_list<ListKind> kinds);

    StationLists lists_;
    const WorkingCopies& copies_;
    const ReceiverSettings& settings_;
    Files& files_;
    CodePages& codePages_;
    bool listsSaved_ = false;
};
