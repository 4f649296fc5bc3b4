#include "storage/lists/ComposedFile.h"

#include <utility>

#include "storage/text/Utf8.h"

void ComposedFile::encode() {
    appendUtf8(bytes_, text_);
    encodedUnits_ += text_.size();
    text_.clear();
}

void ComposedFile::append(std::string_view records, std::size_t units) {
    encode();
    bytes_ += records;
    encodedUnits_ += units;
}

std::string ComposedFile::takeBytes() {
    encode();
    return std::move(bytes_);
}
