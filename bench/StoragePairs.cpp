// Compares loading and saving the four lists with just reading the same files, with INI libraries and with writing the
// same bytes. Creates a folder in the current one.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include "MemoryFiles.h"
#include "Paired.h"
#include "SampleLists.h"
#include "peers/IniParsers.h"
#include "platform/posix/PosixCodePages.h"
#include "platform/posix/PosixFiles.h"
#include "storage/lists/ListLoader.h"
#include "storage/lists/ListSaver.h"

namespace {

constexpr int kRounds = 201;
constexpr int kLongListRounds = 11;
constexpr int kDiskRounds = 41;
constexpr int kMostRows = 32'767;
constexpr int kQSettingsRounds = 41;
constexpr int kFirstRounds = 41;

std::string rawReadOf(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status = {};
    ::fstat(descriptor, &status);
    std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
    keep(static_cast<std::size_t>(::read(descriptor, bytes.data(), bytes.size())));
    ::close(descriptor);
    return bytes;
}

struct Sample {
    explicit Sample(std::filesystem::path sampleFolder, int records)
        : folder(std::move(sampleFolder)), lists(folder.u16string() + u"/") {
        lists.fill(records);
    }
    void load() {
        ListLoader loader(lists.lists(), lists.copies(), lists.settings(), files, codePages);
        loader.LoadDrmList(false);
        loader.LoadAmList(false);
        loader.LoadFmList(false);
        loader.LoadFavList(false);
    }
    void rawRead() const { keep(rawReadOf(listPath()).size() + rawReadOf(userPath()).size()); }
    std::string listPath() const { return folder / "List.ini"; }
    std::string userPath() const { return folder / "User.ini"; }

    std::filesystem::path folder;
    PosixFiles files;
    PosixCodePages codePages;
    SampleLists lists;
};

void require(bool condition, const char* what) {
    if (!condition) {
        std::fprintf(stderr, "storage_pairs: %s\n", what);
        std::exit(1);
    }
}

void writeAndFlush(const std::string& path, const std::string& bytes) {
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    keep(static_cast<std::size_t>(::write(descriptor, bytes.data(), bytes.size())));
    ::fsync(descriptor);
    ::close(descriptor);
}

struct NewContent {
    const std::string& path;
    const std::string& bytes;
};

// The minimum that keeps files of one folder whole after a power cut at any time.
void replaceByHand(std::initializer_list<NewContent> files) {
    for (const NewContent& file : files) {
        writeAndFlush(file.path + "~", file.bytes);
    }
    for (const NewContent& file : files) {
        require(::rename((file.path + "~").c_str(), file.path.c_str()) == 0, "a file could not be replaced");
    }
    const auto path = std::filesystem::path(files.begin()->path).parent_path();
    const int folder = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ::fsync(folder);
    ::close(folder);
}

// The libraries do not accept the NUL that may precede the end marker of a saved file.
std::string withoutNul(std::string bytes) {
    std::erase(bytes, '\0');
    return bytes;
}

// `suffix`: the size of the lists, for the names of the rows.
void measureParsers(Sample& sample, int rounds, const std::string& suffix) {
    const Work load{[&] { sample.load(); }, [&] { sample.lists.clear(); }};
    const int rows = sample.lists.grid(ListKind::Favourite).rowCount();
    const std::string listBytes = withoutNul(rawReadOf(sample.listPath()));
    const std::string userBytes = withoutNul(rawReadOf(sample.userPath()));
    require(parseWithInih(listBytes) == parseWithSimpleIni(listBytes), "the libraries disagree about the keys");
    require(parseWithGKeyFile(listBytes) > 3, "GKeyFile has not parsed the file");
    sample.lists.writeUtf16(sample.files, sample.codePages);
    const auto both = [&](std::size_t (*parse)(const std::string&)) {
        return Work{[&listBytes, &userBytes, parse] { keep(parse(listBytes) + parse(userBytes)); }};
    };
    measurePair("load / inih parsing both files" + suffix, load, both(parseWithInih), rounds);
    measurePair("load / inih parsing List.ini" + suffix, load, {[&] { keep(parseWithInih(listBytes)); }}, rounds);
    measurePair("load / GKeyFile parsing both files" + suffix, load, both(parseWithGKeyFile), rounds);
    measurePair("load / SimpleIni parsing both files" + suffix, load, both(parseWithSimpleIni), rounds);
    const std::string plainList = sample.folder / "plain-List.ini";
    const std::string plainUser = sample.folder / "plain-User.ini";
    writeAndFlush(plainList, listBytes);
    writeAndFlush(plainUser, userBytes);
    measurePair("load / QSettings reading both files" + suffix, load,
                {[&] { keep(parseWithQSettings(plainList) + parseWithQSettings(plainUser)); }},
                std::min(rounds, kQSettingsRounds));
    require(sample.lists.grid(ListKind::Favourite).rowCount() == rows, "not every record was loaded");
}

double microsecondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

struct ClosePipe {
    void operator()(FILE* pipe) const { ::pclose(pipe); }
};

// In a separate process, as at the program's start, whose memory has not been used yet.
double firstOf(const std::string& self, const char* what, const Sample& sample) {
    const std::string command = self + ' ' + what + ' ' + sample.folder.string();
    const std::unique_ptr<FILE, ClosePipe> output(::popen(command.c_str(), "r"));
    double value = 0;
    require(output && std::fscanf(output.get(), "%lf", &value) == 1, "a first load has failed");
    return value;
}

void measureFirstLoads(const std::string& self, const Sample& sample) {
    reportPairs(
        "first load of a process / raw read of both files", kFirstRounds,
        [&] { return firstOf(self, "first-load", sample); }, [&] { return firstOf(self, "first-read", sample); });
}

void measureSavesInMemory(Sample& sample, int rounds, const std::string& suffix) {
    sample.lists.writeUtf8(sample.files, sample.codePages);
    const SimpleIniFile list(withoutNul(rawReadOf(sample.listPath())));
    const SimpleIniFile user(withoutNul(rawReadOf(sample.userPath())));
    MemoryFiles memory;
    sample.lists.writeUtf8(memory, sample.codePages);
    ListSaver inMemory(sample.lists.lists(), sample.lists.copies(), sample.lists.settings(), memory, sample.codePages);
    measurePair("save in memory / SimpleIni composing both files" + suffix, {[&] { inMemory.SaveLists(); }},
                {[&] { keep(list.compose().size() + user.compose().size()); }}, rounds);
}

void measureSavesOnDisk(Sample& sample) {
    sample.lists.writeUtf8(sample.files, sample.codePages);
    const std::string listBytes = rawReadOf(sample.listPath());
    const std::string userBytes = rawReadOf(sample.userPath());
    ListSaver saver(sample.lists.lists(), sample.lists.copies(), sample.lists.settings(), sample.files,
                    sample.codePages);
    const std::string list2 = sample.folder / "other-List.ini";
    const std::string user2 = sample.folder / "other-User.ini";
    const auto save = [&] { saver.SaveLists(); };
    const auto writeBoth = [&] {
        writeAndFlush(list2, listBytes);
        writeAndFlush(user2, userBytes);
    };
    const auto replaceBoth = [&] { replaceByHand({{list2, listBytes}, {user2, userBytes}}); };
    measurePair("save / writing and flushing the same bytes", {save}, {writeBoth}, kDiskRounds);
    measurePair("save / replacing both files safely by hand", {save}, {replaceBoth}, kDiskRounds);
    require(saver.ListsSaved(), "the lists could not be saved");
}

// The receiver's number of records.
void measureReceiversLists(const std::string& self, const std::filesystem::path& folder) {
    Sample sample(folder, kMaxRecords);
    sample.lists.writeUtf8(sample.files, sample.codePages);
    measureParsers(sample, kRounds, "");
    measurePair("load / raw read of both files", {[&] { sample.load(); }, [&] { sample.lists.clear(); }},
                {[&] { sample.rawRead(); }}, kRounds);
    measureFirstLoads(self, sample);
    measureSavesInMemory(sample, kRounds, "");
    measureSavesOnDisk(sample);
}

// The maximum count in a list file.
void measureLongLists(const std::filesystem::path& folder) {
    const std::string suffix = " of " + std::to_string(kMostRows) + " rows";
    Sample sample(folder, kMostRows);
    sample.lists.writeUtf8(sample.files, sample.codePages);
    measureParsers(sample, kLongListRounds, suffix);
    measureSavesInMemory(sample, kLongListRounds, suffix);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3) {
        Sample sample(argv[2], 0);
        const bool loads = std::string(argv[1]) == "first-load";
        std::printf("%.3f\n",
                    loads ? microsecondsOf([&] { sample.load(); }) : microsecondsOf([&] { sample.rawRead(); }));
        return 0;
    }
    keepFreedMemory();
    std::string folder = (std::filesystem::current_path() / "storage_pairs.XXXXXX").string();
    require(::mkdtemp(folder.data()) != nullptr, "no temporary folder");
    measureReceiversLists(argv[0], folder);
    measureLongLists(folder);
    std::filesystem::remove_all(folder);
    return 0;
}
