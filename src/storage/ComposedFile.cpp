#include "storage/ComposedFile.h"

#include <utility>

void ComposedFile::encode() {
    bytes_ += codePages_.encode(CodePage::Utf8, text_);
    encodedUnits_ += text_.size();
    text_.clear();
}

std::string ComposedFile::takeBytes() {
    encode();
    return std::move(bytes_);
}
