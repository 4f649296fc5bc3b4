#include <gtest/gtest.h>
#define ZLIB_CONST
#include <zlib.h>

#include "sync/Unpack.h"

namespace {

constexpr int kGzip = 16 + MAX_WBITS;
constexpr std::size_t kMost = 1'000'000;

std::string packed(const std::string& text, int format) {
    z_stream stream{};
    EXPECT_EQ(deflateInit2(&stream, 9, Z_DEFLATED, format, 9, Z_DEFAULT_STRATEGY), Z_OK);
    std::string bytes(deflateBound(&stream, static_cast<uLong>(text.size())), '\0');
    stream.next_in = reinterpret_cast<const Bytef*>(text.data());
    stream.avail_in = static_cast<uInt>(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(bytes.data());
    stream.avail_out = static_cast<uInt>(bytes.size());
    EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
    bytes.resize(stream.total_out);
    deflateEnd(&stream);
    return bytes;
}

const std::string kText = "[DRMSchedule]\nplain\n";

TEST(UnpackTest, EveryContentEncodingIsDecoded) {
    EXPECT_EQ(unpacked(kText, "", kMost), kText);
    EXPECT_EQ(unpacked(kText, "identity", kMost), kText);
    EXPECT_EQ(unpacked(packed(kText, kGzip), "gzip", kMost), kText);
    EXPECT_EQ(unpacked(packed(kText, kGzip), "X-GZip", kMost), kText);
    EXPECT_EQ(unpacked(packed(kText, MAX_WBITS), "deflate", kMost), kText);
    EXPECT_EQ(unpacked(packed(kText, -MAX_WBITS), "deflate", kMost), kText);
}

TEST(UnpackTest, SeveralGzipMembersAreOneText) {
    const std::string one = packed(kText, kGzip);
    EXPECT_EQ(unpacked(one + packed("", kGzip) + one, "gzip", kMost), kText + kText);
}

TEST(UnpackTest, ATextLongerThanItsCompressedBytesIsComplete) {
    const std::string text(500'000, 'x');
    EXPECT_EQ(unpacked(packed(text, kGzip), "gzip", kMost), text);
}

TEST(UnpackTest, EveryTruncationIsRejected) {
    for (const int format : {kGzip, MAX_WBITS, -MAX_WBITS}) {
        const std::string whole = packed(kText, format);
        for (std::size_t length = 0; length < whole.size(); ++length) {
            EXPECT_FALSE(unpacked(whole.substr(0, length), format == kGzip ? "gzip" : "deflate", kMost)) << length;
        }
    }
}

TEST(UnpackTest, AWrongChecksumOrLengthIsRejected) {
    const std::string whole = packed(kText, kGzip);
    constexpr std::size_t kTrailer = 8;  // bytes of checksum and length
    for (std::size_t i = whole.size() - kTrailer; i < whole.size(); ++i) {
        std::string damaged = whole;
        damaged[i] = static_cast<char>(damaged[i] ^ 1);
        EXPECT_FALSE(unpacked(damaged, "gzip", kMost)) << i;
    }
}

TEST(UnpackTest, TrailingBytesAreRejected) {
    EXPECT_FALSE(unpacked(packed(kText, kGzip) + "x", "gzip", kMost));
    EXPECT_FALSE(unpacked(packed(kText, MAX_WBITS) + packed(kText, MAX_WBITS), "deflate", kMost));
}

TEST(UnpackTest, TheLimitAppliesToTheDecodedText) {
    const std::string text(100'000, 'x');
    for (const char* encoding : {"", "gzip"}) {
        const std::string body = *encoding == '\0' ? text : packed(text, kGzip);
        EXPECT_TRUE(unpacked(body, encoding, 100'000)) << encoding;
        EXPECT_FALSE(unpacked(body, encoding, 99'999)) << encoding;
    }
}

TEST(UnpackTest, OtherEncodingsAreRejected) {
    for (const char* encoding : {"br", "zstd", "compress", "gzip, gzip", "gzip\n", "x"}) {
        EXPECT_FALSE(unpacked(kText, encoding, kMost)) << encoding;
    }
}

}  // namespace
