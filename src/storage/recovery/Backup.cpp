#include "storage/recovery/Backup.h"

#include <algorithm>
#include <tuple>

#include "storage/files/SafeFile.h"
#include "storage/lists/ListContent.h"
#include "storage/lists/ListFile.h"
#include "storage/text/Numbers.h"

namespace {

constexpr std::u16string_view kStampShape = u"00000000T000000Z";  // 0 stands for a digit

std::u16string digits(int value, std::size_t count) {
    std::u16string text = decimal(value);
    return text.size() < count ? std::u16string(count - text.size(), u'0') + text : text;
}

std::u16string stampOf(const UtcTime& time) {
    return digits(time.year, 4) + digits(time.month, 2) + digits(time.day, 2) + u'T' + digits(time.hour, 2) +
           digits(time.minute, 2) + digits(time.second, 2) + u'Z';
}

bool isStamp(std::u16string_view text) {
    return std::equal(text.begin(), text.end(), kStampShape.begin(), kStampShape.end(),
                      [](char16_t c, char16_t shape) { return shape == u'0' ? isDigit(c) : c == shape; });
}

// The number after the stamp: no suffix means 1, "-N" means N; nullopt if the name is not that of a backup.
std::optional<int> countOf(std::u16string_view text) {
    if (text.empty()) {
        return 1;
    }
    constexpr std::size_t kMostDigits = 6;
    const bool isNumber = text.starts_with(u'-');
    text.remove_prefix(1);
    if (!isNumber || text.empty() || text.size() > kMostDigits || !std::all_of(text.begin(), text.end(), isDigit)) {
        return std::nullopt;
    }
    int count = 0;
    for (const char16_t digit : text) {
        count = count * 10 + (digit - u'0');
    }
    return count;
}

// "List.ini" is split into "List-" and ".ini"; the stamp goes between them.
struct NameParts {
    explicit NameParts(std::u16string_view name)
        : stem(std::u16string(name.substr(0, std::min(name.rfind(u'.'), name.size()))) + u'-'),
          extension(name.substr(stem.size() - 1)) {}

    std::u16string stem;
    std::u16string_view extension;
};

std::vector<Backup::Copy> copiesAmong(const std::vector<std::u16string>& found, std::u16string_view name) {
    const NameParts parts(name);
    std::vector<Backup::Copy> copies;
    for (const std::u16string& file : found) {
        std::u16string_view middle = file;
        if (!middle.starts_with(parts.stem) || !middle.ends_with(parts.extension) ||
            middle.size() < parts.stem.size() + kStampShape.size() + parts.extension.size()) {
            continue;
        }
        middle.remove_prefix(parts.stem.size());
        middle.remove_suffix(parts.extension.size());
        const std::u16string_view stamp = middle.substr(0, kStampShape.size());
        const auto count = countOf(middle.substr(stamp.size()));
        if (isStamp(stamp) && count) {
            copies.push_back({std::u16string(stamp), *count, file});
        }
    }
    std::sort(copies.begin(), copies.end(), [](const Backup::Copy& left, const Backup::Copy& right) {
        return std::tie(left.stamp, left.count) < std::tie(right.stamp, right.count);
    });
    return copies;
}

}  // namespace

std::u16string Backup::Copy::id() const { return count > 1 ? stamp + u"-" + decimal(count) : stamp; }

Backup::Backup(std::u16string_view programFolder, Files& files, Clock& clock)
    : folder_(std::u16string(programFolder) + u"Backup"),
      separator_(programFolder.empty() ? u'/' : programFolder.back()),
      files_(files),
      clock_(clock) {}

void Backup::keep(std::u16string_view name, std::string_view bytes) {
    if (!ListContent::isWorthKeeping(bytes)) {
        return;
    }
    const std::vector<Copy> copies = copiesOf(name);
    if (!copies.empty() && files_.read(pathOf(copies.back().name)).bytes == bytes) {
        return;
    }
    Copy added{stampOf(clock_.now()), 1, {}};
    // After the clock has been set back a new copy must still sort as the newest.
    if (!copies.empty() && added.stamp <= copies.back().stamp) {
        added.stamp = copies.back().stamp;
        added.count = copies.back().count + 1;
    }
    const NameParts parts(name);
    added.name = parts.stem + added.id();
    added.name += parts.extension;
    if (!files_.createFolder(folder_) || !replaceFile(files_, pathOf(added.name), bytes)) {
        return;
    }
    files_.flushFolderOf(folder_);
    for (std::size_t i = 0; i + kCopies <= copies.size(); ++i) {
        files_.remove(pathOf(copies[i].name));
    }
}

void Backup::keepPart(std::u16string_view name, std::string_view bytes) {
    const std::size_t dot = std::min(name.rfind(u'.'), name.size());
    keep(std::u16string(name.substr(0, dot)) + u".part" + std::u16string(name.substr(dot)), bytes);
}

void Backup::removeLeftovers() {
    const std::u16string ending = temporaryPathOf(u"");
    for (const std::u16string& name : files_.list(folder_)) {
        if (name.ends_with(ending)) {
            files_.remove(pathOf(name));
        }
    }
}

std::vector<Backup::Copy> Backup::copiesOf(std::u16string_view name) { return copiesAmong(files_.list(folder_), name); }

PerListFile<std::vector<Backup::Copy>> Backup::copies() {
    const std::vector<std::u16string> found = files_.list(folder_);
    return {copiesAmong(found, ListFile::kListName), copiesAmong(found, ListFile::kUserName)};
}

std::u16string Backup::pathOf(std::u16string_view copy) const { return folder_ + separator_ + std::u16string(copy); }
