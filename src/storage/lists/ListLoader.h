// Fills the four grids from the working copies.
#pragma once

#include <optional>

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "storage/ini/IniReader.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/stations/ReceiverSettings.h"
#include "storage/stations/StationLists.h"

class ListLoader {
public:
    // All references outlive the loader. The paths are read at each load.
    ListLoader(StationLists lists, const WorkingCopies& copies, ReceiverSettings& settings, Files& files,
               CodePages& codePages)
        : lists_(lists), copies_(copies), settings_(settings), files_(files), codePages_(codePages) {}

    // Each appends the file's records to its grid, which it does not clear; any number of them, not just
    // kMaxRecords. setUpColumns adds the columns first. A missing file, a count below 1 or outside 16 bits adds
    // nothing. LoadFavList reads the receiver settings too; what the file lacks stays as it was.
    // "List.ini" is read once for its three lists: asking for a list a second time reads it anew.
    void LoadDrmList(bool setUpColumns) { loadFromListFile(ListKind::Drm, setUpColumns); }
    void LoadAmList(bool setUpColumns) { loadFromListFile(ListKind::Am, setUpColumns); }
    void LoadFmList(bool setUpColumns) { loadFromListFile(ListKind::Fm, setUpColumns); }
    void LoadFavList(bool setUpColumns);

    // What the next loaders take for the content of the files, instead of reading them; for whoever knows it better
    // than a disk that may fail. nullopt: the file itself is read. Kept until each list has been loaded once.
    void loadFrom(WorkingCopyBytes bytes);
    // The next loader reads its file anew; for whoever has changed the working copies.
    void forgetFiles();

    // A list of this file was left empty because its count is outside 16 bits: a save would lose its records.
    bool leftOutAList(ListFileId file) const { return leftOut_[file]; }

private:
    void loadFromListFile(ListKind kind, bool setUpColumns);
    IniReader read(const std::optional<std::string>& given, std::u16string_view path);
    void appendRecords(ListKind kind, IniReader& profile);
    void readSettings(IniReader& profile);

    StationLists lists_;
    const WorkingCopies& copies_;
    ReceiverSettings& settings_;
    Files& files_;
    CodePages& codePages_;
    WorkingCopyBytes given_;
    PerListFile<bool> leftOut_;
    std::optional<IniReader> listFile_;  // between the first and the last of its three lists
    unsigned served_ = 0;                // bit per ListKind: loaded from listFile_
};
