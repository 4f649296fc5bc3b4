// Replaces files so that a reader finds either the whole old or the whole new content. Failures show nothing; the
// result reports them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"

// The temporary file for a path, in the same folder: "LIST.K7N" for "List.ini". A short name in capitals takes a single
// entry of a FAT folder, and the root folder of a FAT volume has few.
std::u16string temporaryPathOf(std::u16string_view path);

// Removes the temporary file that an interrupted run may have left.
void removeLeftover(Files& files, std::u16string_view path);

// Writes a temporary file next to the file, flushes it, and renames it over the file. On failure the old file stays and
// the temporary file is removed.
// With Flush::Later every reader finds the new file, but after a power cut the file may be the old one, the new one,
// empty or torn: only for content that can be produced again.
bool replaceFile(Files& files, std::u16string_view path, std::string_view bytes, Flush flush = Flush::Now);

struct NewFile {
    std::u16string path;
    std::string bytes;
};

// Replaces several files of one folder, each as replaceFile does, and flushes the folder once. False if any file could
// not be replaced; the others are replaced.
bool replaceFiles(Files& files, const std::vector<NewFile>& newFiles);
