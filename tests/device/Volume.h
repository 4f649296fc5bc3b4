// A real file system on a loop device, mounted where only this process and its children see it. Needs root.
#pragma once

#include <cstdint>
#include <string>

class Volume {
public:
    // An empty one of 999 blocks of 1,024 bytes, as the receiver's disk; ext2.
    Volume();
    // One that stands on a copy of another one's medium, checked as a system does when it is plugged in.
    explicit Volume(const std::string& image);
    ~Volume();
    Volume(const Volume&) = delete;
    Volume& operator=(const Volume&) = delete;

    // False: no root, or a system without loop devices; then nothing else may be called.
    static bool isPossible();

    std::u16string at(std::u16string_view name) const;
    const std::string& folder() const { return folder_; }
    void makeReadOnly() const;
    // Fills the volume until just so many bytes are free, as far as whole blocks can.
    void leaveFree(std::uint64_t bytes) const;
    void empty() const;  // of what leaveFree has put there
    // Copies the medium as it is at this moment, then takes the device away: everything fails from now on.
    // The copy's path; it is the caller's to remove.
    std::string pull();

private:
    void mount();

    std::string base_;
    std::string image_;
    std::string folder_;
};
