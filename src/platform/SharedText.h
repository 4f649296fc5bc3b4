// A text that several objects use without copying it.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

class SharedText {
public:
    SharedText() = default;
    explicit SharedText(std::u16string text) {
        const auto kept = std::make_shared<const std::u16string>(std::move(text));
        units_ = {kept, kept->data()};
        size_ = kept->size();
    }
    // `units` points to that many.
    SharedText(std::shared_ptr<const char16_t> units, std::size_t size) : units_(std::move(units)), size_(size) {}

    // Valid while this text or a copy of it exists.
    std::u16string_view view() const { return {units_.get(), size_}; }
    // The same memory, not only an equal text.
    friend bool operator==(const SharedText&, const SharedText&) = default;

private:
    std::shared_ptr<const char16_t> units_;
    std::size_t size_ = 0;
};
