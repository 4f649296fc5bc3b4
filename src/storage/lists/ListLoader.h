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

    // Each appends the file's records to its grid without clearing it; any number, not only kMaxRecords. setUpColumns
    // first adds the columns. Nothing is added for a missing file or a count outside 1..32767. LoadFavList also reads
    // the receiver settings; settings that the file lacks are unchanged.
    // "List.ini" is read once for its three lists; loading the same list a second time reads the file again.
    void LoadDrmList(bool setUpColumns) { loadFromListFile(ListKind::Drm, setUpColumns); }
    void LoadAmList(bool setUpColumns) { loadFromListFile(ListKind::Am, setUpColumns); }
    void LoadFmList(bool setUpColumns) { loadFromListFile(ListKind::Fm, setUpColumns); }
    void LoadFavList(bool setUpColumns);

    // Bytes to parse instead of reading the files, if the caller has them; nullopt: read the file. Used until each list
    // has been loaded once.
    void loadFrom(WorkingCopyBytes bytes);
    // The same with files that are already parsed.
    void loadFrom(PerListFile<std::optional<IniReader>> files);
    // Call after changing a working copy: the next load reads both files again.
    void forgetFiles();

    // True if a list of this file was left empty because its count is outside 16 bits: a save would lose its records.
    bool leftOutAList(ListFileId file) const { return leftOut_[file]; }

private:
    void loadFromListFile(ListKind kind, bool setUpColumns);
    IniReader read(ListFileId file);
    void appendRecords(ListKind kind, IniReader& profile);
    void readSettings(IniReader& profile);

    StationLists lists_;
    const WorkingCopies& copies_;
    ReceiverSettings& settings_;
    Files& files_;
    CodePages& codePages_;
    WorkingCopyBytes given_;
    PerListFile<std::optional<IniReader>> parsed_;
    PerListFile<bool> leftOut_;
    std::optional<IniReader> listFile_;  // kept from the first to the last of its three lists
    unsigned served_ = 0;                // bit per ListKind: loaded from listFile_
};
