// A list file on its way from text to bytes. It is encoded part by part: the text of long lists as a whole would not
// fit the processor's cache.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

class ComposedFile {
public:
    // `start` is the beginning of the text; `usualBytes`, about what the file will hold, saves reallocations.
    ComposedFile(std::u16string_view start, std::size_t usualBytes) : text_(start) { bytes_.reserve(usualBytes); }

    // To append to. What has been encoded is gone from it.
    std::u16string& text() { return text_; }
    // Units appended so far.
    std::size_t units() const { return encodedUnits_ + text_.size(); }
    // Between two records, never between the halves of a surrogate pair.
    void endRecord() {
        if (text_.size() >= kPart) {
            encode();
        }
    }
    // All of it in UTF-8; nothing is left.
    std::string takeBytes();

private:
    static constexpr std::size_t kPart = 8192;  // units
    void encode();

    std::u16string text_;
    std::string bytes_;
    std::size_t encodedUnits_ = 0;
};
