// A real file system on a loop device, mounted only for this process and its children. Needs root.
#pragma once

#include <cstdint>
#include <string>

class Volume {
public:
    // An empty ext2 volume of 999 blocks of 1,024 bytes, the size of the receiver's disk.
    Volume();
    // A volume on a copy of another medium, checked as systems do when it is plugged in.
    explicit Volume(const std::string& image);
    ~Volume();
    Volume(const Volume&) = delete;
    Volume& operator=(const Volume&) = delete;

    // False without root or loop devices; no other function may then be called.
    static bool isPossible();

    std::u16string at(std::u16string_view name) const;
    const std::string& folder() const { return folder_; }
    void makeReadOnly() const;
    // Fills the volume until this number of bytes is free, as closely as whole blocks allow.
    void leaveFree(std::uint64_t bytes) const;
    void empty() const;  // removes what leaveFree has written
    // Copies the medium in its present state, then removes the device: every later operation fails.
    // Returns the path of the copy, which the caller removes.
    std::string pull();

private:
    void mount();

    std::string base_;
    std::string image_;
    std::string folder_;
};
