#include "ctl/Lists.h"

#include <utility>

#include "storage/lists/ListLoader.h"
#include "storage/lists/ListSaver.h"
#include "storage/stations/ListColumns.h"

namespace {

struct Names {
    std::u16string_view shortName;
    std::u16string_view title;
    std::u16string_view name;
};

const Names& namesOf(ListKind kind) {
    static constexpr std::array<Names, kListCount> kNames = {{{u"drm", u"DRM List", u"DRM"},
                                                              {u"am", u"AM List", u"AM"},
                                                              {u"fm", u"FM List", u"FM"},
                                                              {u"fav", u"Favourite", u"Favourite"}}};
    return kNames[static_cast<std::size_t>(kind)];
}

}  // namespace

std::u16string_view shortNameOf(ListKind kind) { return namesOf(kind).shortName; }
std::u16string_view titleOf(ListKind kind) { return namesOf(kind).title; }
std::u16string_view nameOf(ListKind kind) { return namesOf(kind).name; }

Lists::Lists()
    : lists_({StationList(ListKind::Drm, rows_[0]), StationList(ListKind::Am, rows_[1]),
              StationList(ListKind::Fm, rows_[2]), StationList(ListKind::Favourite, rows_[3])}) {
    for (const ListKind kind : kListKinds) {
        addListColumns(lists_[kind]);
    }
}

void Lists::copyFrom(const Lists& other) {
    rows_ = other.rows_;  // no view shows them
    settings_ = other.settings_;
}

void Lists::load(ParsedFiles parsedFiles, Files& files, CodePages& codePages) {
    const auto readerOf = [&parsedFiles](ListFileId file) {
        return parsedFiles[file] ? std::move(parsedFiles[file]->text) : IniReader();
    };
    const WorkingCopies none;
    ListLoader loader(lists_, none, settings_, files, codePages);
    loader.loadFrom({readerOf(ListFileId::List), readerOf(ListFileId::User)});
    loader.LoadDrmList(false);
    loader.LoadAmList(false);
    loader.LoadFmList(false);
    loader.LoadFavList(false);
}

void Lists::load(WorkingCopyBytes bytes, Files& files, CodePages& codePages) {
    load(parsed(std::move(bytes)), files, codePages);
}

WorkingCopyBytes Lists::compose(const WorkingCopies& copies, Files& files, CodePages& codePages) {
    return ListSaver(lists_, copies, settings_, files, codePages).compose();
}
