#include "fat/FatImage.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t kEntry = 32;
constexpr std::uint32_t kFirstCluster = 2;
constexpr std::uint32_t kEndOfChain = 0xFF8;

char16_t unitAt(std::string_view entry, std::size_t offset) {
    return static_cast<char16_t>(static_cast<unsigned char>(entry[offset]) |
                                 (static_cast<unsigned char>(entry[offset + 1]) << 8U));
}

std::u16string longPart(std::string_view entry) {
    std::u16string part;
    for (const std::size_t offset : {1, 3, 5, 7, 9, 14, 16, 18, 20, 22, 24, 28, 30}) {
        const char16_t unit = unitAt(entry, offset);
        if (unit == 0 || unit == 0xFFFF) {
            break;
        }
        part.push_back(unit);
    }
    return part;
}

// Two bits mark lower case, one for the name and one for the extension.
std::u16string shortName(std::string_view entry) {
    const auto flags = static_cast<unsigned char>(entry[12]);
    const auto take = [&](std::size_t from, std::size_t count, bool lower) {
        std::u16string text;
        for (const char c : entry.substr(from, count)) {
            const bool isUpper = c >= 'A' && c <= 'Z';
            text.push_back(static_cast<char16_t>(static_cast<unsigned char>(lower && isUpper ? c - 'A' + 'a' : c)));
        }
        return text.substr(0, text.find_last_not_of(u' ') + 1);
    };
    const std::u16string extension = take(8, 3, (flags & 0x10U) != 0);
    return take(0, 8, (flags & 0x08U) != 0) + (extension.empty() ? u"" : u"." + extension);
}

unsigned char sumOf(std::string_view shortEntry) {
    unsigned sum = 0;
    for (const char c : shortEntry.substr(0, 11)) {
        sum = ((sum & 1U) << 7U) + (sum >> 1U) + static_cast<unsigned char>(c);
        sum &= 0xFFU;
    }
    return static_cast<unsigned char>(sum);
}

// The system reads pages, and none with a cluster that is not in the chain.
FileRead broken(std::string bytes) {
    constexpr std::size_t kPage = 4096;
    bytes.resize(bytes.size() / kPage * kPage);
    return FileRead::failed(std::move(bytes));
}

}  // namespace

FatImage::FatImage(std::string_view medium) : medium_(medium) {
    const std::size_t sector = number(11, 2);
    const std::size_t fatSectors = number(22, 2);
    const std::size_t rootEntries = number(17, 2);
    clusterSize_ = number(13, 1) * sector;
    fat_ = number(14, 2) * sector;
    const std::size_t root = fat_ + number(16, 1) * fatSectors * sector;
    data_ = root + rootEntries * kEntry;
    clusters_ = static_cast<std::uint32_t>((number(19, 2) * sector - data_) / clusterSize_);
    readFolder(std::string(medium_.substr(root, rootEntries * kEntry)), u"", 0);
}

std::uint32_t FatImage::number(std::size_t offset, std::size_t size) const {
    std::uint32_t value = 0;
    for (std::size_t i = size; i-- > 0;) {
        value = (value << 8U) | static_cast<unsigned char>(medium_[offset + i]);
    }
    return value;
}

std::uint32_t FatImage::next(std::uint32_t cluster) const {
    const std::uint32_t pair = number(fat_ + cluster + cluster / 2, 2);
    return cluster % 2 == 0 ? pair & 0xFFFU : pair >> 4U;
}

// Folders have no size of their own: 0 means the whole chain.
FileRead FatImage::chain(std::uint32_t cluster, std::size_t size) const {
    std::string bytes;
    for (std::uint32_t read = 0; size == 0 || bytes.size() < size; ++read) {
        if (size == 0 && cluster >= kEndOfChain) {
            return FileRead::whole(std::move(bytes));
        }
        if (cluster < kFirstCluster || cluster >= clusters_ + kFirstCluster || read > clusters_) {
            return broken(std::move(bytes));
        }
        bytes += medium_.substr(data_ + (cluster - kFirstCluster) * clusterSize_, clusterSize_);
        cluster = next(cluster);
        if (cluster == 0) {  // free: the chain is broken, also behind the last byte
            return broken(std::move(bytes));
        }
    }
    bytes.resize(size);
    return FileRead::whole(std::move(bytes));
}

void FatImage::readFolder(const std::string& entries, const std::u16string& prefix, int depth) {
    constexpr int kDeepest = 4;
    std::u16string longName;
    unsigned char longSum = 0;
    for (std::size_t at = 0; at + kEntry <= entries.size() && entries[at] != '\0'; at += kEntry) {
        const std::string_view entry = std::string_view(entries).substr(at, kEntry);
        const auto first = static_cast<unsigned char>(entry[0]);
        const auto attributes = static_cast<unsigned char>(entry[11]);
        if (first == 0xE5U) {
            longName.clear();
        } else if (attributes == 0x0FU) {
            if ((first & 0x40U) != 0) {
                longName.clear();
                longSum = static_cast<unsigned char>(entry[13]);
            }
            longName.insert(0, longPart(entry));
        } else {
            const bool named = !longName.empty() && longSum == sumOf(entry);
            const std::u16string path = prefix + (named ? longName : shortName(entry));
            longName.clear();
            const std::uint32_t cluster = unitAt(entry, 26);
            if ((attributes & 0x08U) != 0 || first == '.') {
                continue;
            }
            if ((attributes & 0x10U) != 0) {
                folders_.push_back(path);
                const auto content = chain(cluster, 0).bytes;
                if (content && depth < kDeepest) {
                    readFolder(*content, path + u'/', depth + 1);
                }
            } else {
                const std::size_t size = unitAt(entry, 28) | (static_cast<std::size_t>(unitAt(entry, 30)) << 16U);
                files_.emplace(path, size == 0 ? FileRead::whole({}) : chain(cluster, size));
            }
        }
    }
}
