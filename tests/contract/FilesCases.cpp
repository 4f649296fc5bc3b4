#include <gtest/gtest.h>

#include "contract/Backend.h"

namespace {

using Names = std::vector<std::u16string>;

class FilesContract : public testing::Test {
protected:
    std::u16string at(std::u16string_view name) const { return folder->path() + std::u16string(name); }

    std::unique_ptr<Backend> backend = makeBackend();
    std::unique_ptr<TestFolder> folder = backend->folder();
    Files& files = backend->files();
};

TEST_F(FilesContract, WrittenBytesAreRead) {
    const std::string bytes("\0\xFF\xFE line\r\n\n\x1A end\0", 17);
    ASSERT_TRUE(files.write(at(u"List.ini"), bytes, Flush::Now));
    EXPECT_EQ(files.read(at(u"List.ini")).bytes, bytes);
    EXPECT_EQ(files.readBack(at(u"List.ini")).bytes, bytes);
    EXPECT_EQ(files.size(at(u"List.ini")), bytes.size());
    EXPECT_TRUE(files.exists(at(u"List.ini")));
}

TEST_F(FilesContract, LargeFilesAreReadToTheirEnd) {
    std::string bytes;
    for (int i = 0; i < 300'000; ++i) {
        bytes.push_back(static_cast<char>(i % 251));
    }
    ASSERT_TRUE(files.write(at(u"large"), bytes, Flush::Now));
    EXPECT_TRUE(files.read(at(u"large")).bytes == bytes);
    EXPECT_TRUE(files.readBack(at(u"large")).bytes == bytes);
}

TEST_F(FilesContract, TheStartOfAFileIsReadUpToTheLimit) {
    const std::string bytes = std::string(65'536, 'a') + std::string(65'536, 'b');
    ASSERT_TRUE(files.write(at(u"large"), bytes, Flush::Now));
    for (const std::size_t most :
         {std::size_t{0}, std::size_t{1}, std::size_t{65'536}, std::size_t{65'537}, bytes.size(), bytes.size() + 1}) {
        EXPECT_TRUE(files.readStart(at(u"large"), most).bytes == bytes.substr(0, most)) << most;
    }
    EXPECT_TRUE(files.readStart(at(u"none"), 5).isMissing);
}

TEST_F(FilesContract, UnitsAreTheBytesOfTheFile) {
    for (const std::size_t length : {std::size_t{0}, std::size_t{1}, std::size_t{2}, std::size_t{300'001}}) {
        std::string bytes;
        for (std::size_t i = 0; i < length; ++i) {
            bytes.push_back(static_cast<char>(i % 251));
        }
        ASSERT_TRUE(files.write(at(u"a"), bytes, Flush::Now));
        const auto read = files.readUnits(at(u"a"), length);
        ASSERT_TRUE(read) << length;
        EXPECT_TRUE(read->bytes() == bytes) << length;
        EXPECT_FALSE(length > 0 && files.readUnits(at(u"a"), length - 1)) << length;
    }
    ASSERT_TRUE(files.write(at(u"a"), "\xFF\xFE\x2D\x4E", Flush::Now));
    EXPECT_EQ(files.readUnits(at(u"a"), 4)->units[1], u'\x4E2D');
}

TEST_F(FilesContract, WhatCannotBeReadHasNoUnits) {
    folder->makeFolder(at(u"sub"));
    EXPECT_FALSE(files.readUnits(at(u"sub"), 100));
    EXPECT_FALSE(files.readUnits(at(u"none"), 100));
}

TEST_F(FilesContract, WritingReplacesALongerFile) {
    ASSERT_TRUE(files.write(at(u"a"), "a long text", Flush::Now));
    ASSERT_TRUE(files.write(at(u"a"), "short", Flush::Now));
    EXPECT_EQ(files.read(at(u"a")).bytes, "short");
    ASSERT_TRUE(files.write(at(u"a"), "", Flush::Now));
    EXPECT_EQ(files.read(at(u"a")).bytes, "");
    EXPECT_EQ(files.size(at(u"a")), 0U);
}

TEST_F(FilesContract, NamesMayContainAnyLetters) {
    ASSERT_TRUE(files.write(at(u"电台 – Réseau.ini"), "x", Flush::Now));
    EXPECT_EQ(files.read(at(u"电台 – Réseau.ini")).bytes, "x");
    EXPECT_EQ(folder->names(), (Names{u"电台 – Réseau.ini"}));
}

TEST_F(FilesContract, AMissingFileHasNoContent) {
    EXPECT_FALSE(files.exists(at(u"none")));
    EXPECT_EQ(files.size(at(u"none")), std::nullopt);
    for (const FileRead& read : {files.read(at(u"none")), files.readBack(at(u"none")),
                                 files.read(at(u"none") + folder->path().back() + u"none")}) {
        EXPECT_TRUE(read.isMissing);
        EXPECT_EQ(read.bytes, std::nullopt);
    }
    EXPECT_FALSE(files.remove(at(u"none")));
    EXPECT_FALSE(files.clearAttributes(at(u"none")));
    EXPECT_FALSE(files.rename(at(u"none"), at(u"other"), Flush::Now));
    EXPECT_EQ(folder->names(), Names{});
}

TEST_F(FilesContract, AFolderExistsButIsNoFile) {
    folder->makeFolder(at(u"sub"));
    EXPECT_TRUE(files.exists(at(u"sub")));
    EXPECT_EQ(files.size(at(u"sub")), std::nullopt);
    EXPECT_EQ(files.read(at(u"sub")).bytes, std::nullopt);
    EXPECT_FALSE(files.read(at(u"sub")).isMissing);
    EXPECT_FALSE(files.write(at(u"sub"), "x", Flush::Now));
    EXPECT_FALSE(files.append(at(u"sub"), "x"));
    EXPECT_FALSE(files.remove(at(u"sub")));
    ASSERT_TRUE(files.write(at(u"a"), "x", Flush::Now));
    EXPECT_FALSE(files.rename(at(u"a"), at(u"sub"), Flush::Now));
    EXPECT_EQ(folder->names(), (Names{u"a", u"sub"}));
}

TEST_F(FilesContract, AskingForRoomForANameLeavesNoFile) {
    EXPECT_FALSE(files.lacksRoomForName(at(u"NEW.K7N")));
    EXPECT_FALSE(files.lacksRoomForName(at(u"none") + folder->path().back() + u"none")) << "no folder";
    EXPECT_EQ(folder->names(), Names{});
    ASSERT_TRUE(files.write(at(u"a"), "a", Flush::Now));
    EXPECT_FALSE(files.lacksRoomForName(at(u"a")));
    EXPECT_EQ(files.read(at(u"a")).bytes, "a");
}

TEST_F(FilesContract, AppendingCreatesAndContinues) {
    ASSERT_TRUE(files.append(at(u"a"), "one"));
    ASSERT_TRUE(files.append(at(u"a"), "two"));
    EXPECT_EQ(files.read(at(u"a")).bytes, "onetwo");
}

TEST_F(FilesContract, RenamingReplacesTheOtherFile) {
    ASSERT_TRUE(files.write(at(u"new"), "new", Flush::Now));
    ASSERT_TRUE(files.write(at(u"old"), "old", Flush::Now));
    EXPECT_TRUE(files.rename(at(u"new"), at(u"old"), Flush::Now));
    EXPECT_EQ(files.read(at(u"old")).bytes, "new");
    EXPECT_TRUE(files.rename(at(u"old"), at(u"nowhere yet"), Flush::Now));
    EXPECT_EQ(folder->names(), (Names{u"nowhere yet"}));
}

TEST_F(FilesContract, ReadersSeeUnflushedBytes) {
    ASSERT_TRUE(files.write(at(u"old"), "a long text", Flush::Now));
    ASSERT_TRUE(files.write(at(u"old"), "short", Flush::Later));
    EXPECT_EQ(files.read(at(u"old")).bytes, "short");
    ASSERT_TRUE(files.write(at(u"new"), "new", Flush::Later));
    EXPECT_TRUE(files.rename(at(u"new"), at(u"old"), Flush::Later));
    EXPECT_EQ(files.read(at(u"old")).bytes, "new");
    EXPECT_FALSE(files.rename(at(u"none"), at(u"old"), Flush::Later));
    EXPECT_TRUE(files.flushFolderOf(at(u"old")));
    EXPECT_TRUE(files.flushFolderOf(at(u"none")));
    EXPECT_EQ(files.read(at(u"old")).bytes, "new");
    EXPECT_EQ(folder->names(), Names{u"old"});
}

TEST_F(FilesContract, RemovingAFileKeepsTheOthers) {
    ASSERT_TRUE(files.write(at(u"a"), "a", Flush::Now));
    ASSERT_TRUE(files.write(at(u"b"), "b", Flush::Now));
    EXPECT_TRUE(files.remove(at(u"a")));
    EXPECT_FALSE(files.exists(at(u"a")));
    EXPECT_EQ(folder->names(), (Names{u"b"}));
}

TEST_F(FilesContract, AReadOnlyFileCanBeMadeWritable) {
    ASSERT_TRUE(files.write(at(u"List.ini"), "old", Flush::Now));
    folder->makeReadOnly(at(u"List.ini"));
    ASSERT_TRUE(folder->isReadOnly(at(u"List.ini")));
    EXPECT_TRUE(files.clearAttributes(at(u"List.ini")));
    EXPECT_FALSE(folder->isReadOnly(at(u"List.ini")));
    EXPECT_TRUE(files.write(at(u"List.ini"), "new", Flush::Now));
    EXPECT_EQ(files.read(at(u"List.ini")).bytes, "new");
}

TEST_F(FilesContract, FoldersAreCreatedListedAndRemoved) {
    EXPECT_TRUE(files.createFolder(at(u"Recovery")));
    EXPECT_TRUE(files.createFolder(at(u"Recovery"))) << "is there already";
    EXPECT_EQ(files.list(at(u"Recovery")), Names{});
    for (const std::u16string_view name : {u"b", u"a", u"\u96FB.ini", u"C"}) {
        ASSERT_TRUE(files.write(at(u"Recovery") + folder->path().back() + std::u16string(name), "x", Flush::Now));
    }
    EXPECT_EQ(files.list(at(u"Recovery")), (Names{u"C", u"a", u"b", u"\u96FB.ini"}));
    EXPECT_FALSE(files.removeFolder(at(u"Recovery"))) << "is not empty";
    for (const std::u16string& name : files.list(at(u"Recovery"))) {
        EXPECT_TRUE(files.remove(at(u"Recovery") + folder->path().back() + name));
    }
    EXPECT_TRUE(files.removeFolder(at(u"Recovery")));
    EXPECT_FALSE(files.removeFolder(at(u"Recovery")));
    EXPECT_EQ(folder->names(), Names{});
}

TEST_F(FilesContract, AFileIsNoFolder) {
    ASSERT_TRUE(files.write(at(u"a"), "x", Flush::Now));
    EXPECT_FALSE(files.createFolder(at(u"a")));
    EXPECT_FALSE(files.removeFolder(at(u"a")));
    EXPECT_EQ(files.list(at(u"a")), Names{});
    EXPECT_EQ(files.list(at(u"none")), Names{});
    EXPECT_EQ(files.read(at(u"a")).bytes, "x");
}

TEST_F(FilesContract, AnOpenedFolderHoldsTheSameFiles) {
    ASSERT_TRUE(files.createFolder(at(u"disk")));
    const auto in = [&](std::u16string_view name) {
        return at(u"disk") + folder->path().back() + std::u16string(name);
    };
    ASSERT_TRUE(files.write(in(u"old"), "old", Flush::Now));
    {
        const auto opened = files.openFolder(at(u"disk"));
        ASSERT_TRUE(opened);
        EXPECT_EQ(opened->read(in(u"old")).bytes, "old");
        EXPECT_TRUE(opened->write(in(u"new"), "new", Flush::Now));
        EXPECT_TRUE(opened->rename(in(u"new"), in(u"old"), Flush::Now));
        EXPECT_EQ(opened->readBack(in(u"old")).bytes, "new");
        EXPECT_TRUE(opened->read(in(u"new")).isMissing);
        EXPECT_TRUE(opened->append(in(u"log"), "line"));
        EXPECT_EQ(opened->size(in(u"log")), 4U);
        EXPECT_EQ(opened->list(at(u"disk")), (Names{u"log", u"old"}));
        EXPECT_TRUE(opened->flushFolderOf(in(u"old")));
        EXPECT_TRUE(opened->remove(in(u"log")));
        EXPECT_FALSE(opened->exists(in(u"log")));
        EXPECT_TRUE(opened->write(at(u"disk2"), "outside", Flush::Now));
    }
    EXPECT_EQ(files.read(in(u"old")).bytes, "new");
    EXPECT_EQ(files.list(at(u"disk")), (Names{u"old"}));
    EXPECT_EQ(folder->names().back(), u"disk2");
    EXPECT_FALSE(files.openFolder(in(u"old"))) << "a file";
}

}  // namespace
