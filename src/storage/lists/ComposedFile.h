// Composes a list file as text and encodes it in parts: the whole text of a long list would not fit in the processor's
// cache.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

class ComposedFile {
public:
    // `start` is the beginning of the text; `usualBytes`, the expected size of the file, saves reallocations.
    // `memory`: bytes that are no longer needed; their memory is used again.
    ComposedFile(std::u16string_view start, std::size_t usualBytes, std::string memory = {})
        : text_(start), bytes_(std::move(memory)) {
        bytes_.clear();
        bytes_.reserve(usualBytes);
    }

    // The text to append to; parts that are already encoded have been removed from it.
    std::u16string& text() { return text_; }
    // Units appended so far.
    std::size_t units() const { return encodedUnits_ + text_.size(); }
    // Appends whole records: their bytes in UTF-8 and their length in units.
    void append(std::string_view records, std::size_t units);
    // Call between two records: a part never ends within a surrogate pair.
    void endRecord() {
        if (text_.size() >= kPart) {
            encode();
        }
    }
    // The whole file in UTF-8; the composed file is empty afterwards.
    std::string takeBytes();

private:
    static constexpr std::size_t kPart = 8192;  // units
    void encode();

    std::u16string text_;
    std::string bytes_;
    std::size_t encodedUnits_ = 0;
};
