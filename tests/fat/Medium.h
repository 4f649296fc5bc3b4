// Creates, checks and reads disk images without mounting them.
#pragma once

#include <string>

#include "fat/FatImage.h"

// A folder for one test, removed with its content by the destructor.
class WorkFolder {
public:
    WorkFolder();
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    std::string at(const std::string& name) const { return path_ + "/" + name; }
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

bool succeeds(const std::string& command);
std::string contentOf(const std::string& path);
// One of each kind that Case::image names, empty.
bool makeImages(const WorkFolder& work);

// The files of a file system by path.
using Tree = FatImage::Tree;

class Medium {
public:
    explicit Medium(const WorkFolder& work) : file_(work.at("state")) {}

    static Tree rawFat(const std::string& bytes) { return FatImage(bytes).files(); }
    // After a check that repairs the file system; empty if the check fails.
    Tree checkedFat(const std::string& bytes) const;
    Tree checkedExt(const std::string& bytes) const;

private:
    void put(const std::string& bytes) const;

    std::string file_;
};
