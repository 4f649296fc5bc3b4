#include "fat/Cases.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr const char* kDesktop = "uid=1000,gid=1000,shortname=mixed,utf8=1,showexec,flush";
constexpr int kSlots = 16;   // entries in a sector of a FAT folder
constexpr int kAcross = 11;  // fillers after which the entries that a save writes span two sectors

const std::vector<std::string> kOperations{"replace", "first",    "folder",   "damaged",
                                           "full",    "crowded2", "crowded1", "crowded0"};
const std::vector<std::string> kFaults{"write-once", "write-for-good", "flush-once", "flush-for-good",
                                       "cut",        "read-only",      "unmounted"};

bool isQuick(const std::string& operation, const std::string& options) {
    return options == "default" ? operation != "full" : operation == "replace";
}

// In a full root folder the only free entries are at its end, whatever comes before the files.
int alignmentsOf(const Settings& settings, const std::string& operation) {
    return operation.starts_with("crowded") ? 1 : settings.alignments;
}

void addFaults(std::vector<Case>& cases, const Settings& settings, const std::string& fileSystem,
               const std::string& image, const std::string& options) {
    for (const std::string& fault : kFaults) {
        if (!settings.thorough && options != "default" && fault != "write-once") {
            continue;
        }
        // This fault needs the search by capacity among the mounted disks.
        if (fault != "unmounted" || image == "fat1024") {
            cases.push_back({fileSystem, image, options, "replace", 0, fault});
        }
    }
}

void addFat(std::vector<Case>& cases, const Settings& settings, const std::string& image, const std::string& options) {
    for (const std::string& operation : kOperations) {
        for (int i = 0; i < alignmentsOf(settings, operation); ++i) {
            if (settings.thorough || isQuick(operation, options)) {
                cases.push_back({"vfat", image, options, operation, (kAcross + i) % kSlots});
            }
        }
    }
    addFaults(cases, settings, "vfat", image, options);
}

void addExt(std::vector<Case>& cases, const Settings& settings, const std::string& fileSystem) {
    for (const char* const operation : {"replace", "first", "folder"}) {
        cases.push_back({fileSystem, fileSystem, "default", operation, 0});
    }
    addFaults(cases, settings, fileSystem, fileSystem, "default");
}

}  // namespace

Settings settingsOf(const std::vector<std::string>& arguments) {
    Settings settings;
    for (const std::string& argument : arguments) {
        const std::string name = argument.substr(0, argument.find('='));
        const std::string value = argument.substr(std::min(name.size() + 1, argument.size()));
        if (name == "--recorder") {
            settings.recorder = value;
        } else if (name == "--table") {
            settings.table = value;
        } else if (name == "--page") {
            settings.page = value;
        } else if (name == "--only") {
            settings.only = value;
        } else if (name == "--thorough") {
            settings.thorough = true;
        } else if (name == "--alignments") {
            settings.alignments = std::atoi(value.c_str());
        } else if (name == "--kills") {
            settings.kills = std::atoi(value.c_str());
        } else if (name == "--seconds") {
            settings.seconds = std::atoi(value.c_str());
        }
    }
    return settings;
}

std::string Case::name() const {
    return image + "-" + (options == "default" ? "default" : "desktop") + "-" + operation + "-" +
           std::to_string(fillers) + "-" + fault;
}

std::string Case::rowName() const {
    return image + " | " + (options == "default" ? "default" : "desktop") + " | " + operation + " | " +
           (fault == "none" ? "power cut" : "failing");
}

std::vector<Case> allCases(const Settings& settings) {
    std::vector<Case> cases;
    const std::vector<std::string> images = settings.thorough
                                                ? std::vector<std::string>{"fat1024", "fat512", "fat1024one"}
                                                : std::vector<std::string>{"fat1024"};
    for (const std::string& image : images) {
        addFat(cases, settings, image, "default");
        addFat(cases, settings, image, kDesktop);
    }
    if (settings.thorough) {
        addExt(cases, settings, "ext2");
        addExt(cases, settings, "ext4");
    }
    std::erase_if(cases, [&](const Case& one) { return one.name().find(settings.only) == std::string::npos; });
    return cases;
}
