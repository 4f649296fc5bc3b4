// The first process of a user-mode kernel: runs each case of the list on a separate block device and writes the
// device's requests to the work folder. Arguments are environment variables from the kernel's command line.
#include <fcntl.h>
#include <sys/mount.h>
#include <sys/reboot.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <sstream>

#include "fakes/FakeFiles.h"
#include "fakes/FakeServices.h"
#include "fakes/ForwardingFiles.h"
#include "fat/BlockDevice.h"
#include "fat/Contents.h"
#include "fat/Program.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixVolumes.h"
#include "receiver/ReceiverFiles.h"
#include "storage/text/Utf8.h"

namespace {

constexpr const char* kMountPoint = "/mnt/disk";
const std::u16string kRoot = u"/mnt/disk/";
constexpr std::size_t kSector = 512;

struct Case {
    std::string name;
    std::string image;
    std::string fileSystem;
    std::string options;
    std::string operation;
    int fillers = 0;  // folder entries before those of the files
    std::string fault;
};

// Acts before one of the operations that reach the device, counted from 1.
struct Step {
    void count() {
        if (++done == number) {
            act();
        }
    }
    bool wasReached() const { return done >= number; }

    int number;
    std::function<void()> act;
    int done = 0;
};

class SteppedFiles : public ForwardingFiles {
public:
    SteppedFiles(Files& files, Step& step) : ForwardingFiles(files), step_(step) {}
    SteppedFiles(std::unique_ptr<Files> files, Step& step)
        : ForwardingFiles(*files), step_(step), owned_(std::move(files)) {}

    FileRead readBack(std::u16string_view path) override { return step_.count(), ForwardingFiles::readBack(path); }
    bool write(std::u16string_view path, std::string_view bytes, Flush flush) override {
        return step_.count(), ForwardingFiles::write(path, bytes, flush);
    }
    bool append(std::u16string_view path, std::string_view bytes) override {
        ++appends_;
        return step_.count(), ForwardingFiles::append(path, bytes);
    }
    bool rename(std::u16string_view from, std::u16string_view to, Flush flush) override {
        return step_.count(), ForwardingFiles::rename(from, to, flush);
    }
    std::unique_ptr<Files> openFolder(std::u16string_view folder) override {
        step_.count();
        auto opened = PosixFiles().openFolder(folder);
        return opened ? std::make_unique<SteppedFiles>(std::move(opened), step_) : nullptr;
    }
    int appends() const { return appends_; }

private:
    Step& step_;
    int appends_ = 0;
    std::unique_ptr<Files> owned_;
};

bool loadModule(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool loaded = file >= 0 && ::syscall(SYS_finit_module, file, "", 0) == 0;
    ::close(file);
    return loaded;
}

bool prepare() {
    utsname system{};
    ::uname(&system);
    const std::string modules = std::string("/usr/lib/uml/modules/") + system.release + "/kernel/";
    bool ready = ::mount("proc", "/proc", "proc", 0, nullptr) == 0;
    // Some kernels have already mounted it.
    ready = (::mount("devtmpfs", "/dev", "devtmpfs", 0, nullptr) == 0 || errno == EBUSY) && ready;
    ready = ::mount("tmpfs", "/mnt", "tmpfs", 0, nullptr) == 0 && ::mkdir(kMountPoint, S_IRWXU) == 0 && ready;
    for (const char* const module : {"fs/nls/nls_cp437.ko", "fs/nls/nls_ascii.ko", "fs/nls/nls_iso8859-1.ko",
                                     "fs/nls/nls_utf8.ko", "fs/fat/fat.ko", "fs/fat/vfat.ko", "drivers/block/nbd.ko"}) {
        ready = loadModule(modules + module) && ready;
    }
    return ready;
}

bool mountDevice(const Case& one, const std::string& options = "default") {
    const char* const given = options == "default" ? "" : options.c_str();
    return ::mount("/dev/nbd0", kMountPoint, one.fileSystem.c_str(), 0, given) == 0;
}

// As the window and the command-line program save to the receiver. Of a damaged file the readable part must be kept.
bool save(const Case& one, Files& files, const ListFilePair& pair) {
    PosixVolumes mounted;
    FakeVolumes present;  // of any capacity
    present.volumes = {{kRoot, DiskGeometry{1, 1024, 999}}};
    Volumes& volumes = one.fault == "unmounted" ? static_cast<Volumes&>(mounted) : present;
    FakeFiles elsewhere;
    FakeClock clock;
    Backup backup(u"/app/", elsewhere, clock);
    mFindDiskDriver driver(volumes, files);
    std::u16string root;
    ReceiverFiles receiver(driver, root, files, backup);
    if (!receiver.findDisk() || !receiver.replace(pair)) {
        return false;
    }
    return one.operation != "damaged" ||
           elsewhere.files[u"/app/Backup/List.part-20261120T224501Z.ini"] == kOldList.substr(0, kReadablePart);
}

bool write(Files& files, std::u16string_view name, const std::string& bytes) {
    return files.write(kRoot + std::u16string(name), bytes, Flush::Now);
}

// Leaves so many entries of the root folder. Empty files have an entry and no cluster.
bool fillRootFolder(PosixFiles& files, int free) {
    const auto nameOf = [](int number) {
        std::u16string digits;
        for (; number > 0; number /= 10) {
            digits.push_back(static_cast<char16_t>(u'0' + number % 10));
        }
        return kRoot + u"X" + digits;
    };
    constexpr int kFewer = 400;
    int written = 0;
    while (files.write(nameOf(written + 1), "", Flush::Later)) {
        ++written;
    }
    bool removed = written > kFewer;
    for (; free > 0; --free) {
        removed = files.remove(nameOf(written--)) && removed;
    }
    return removed;
}

// Writes the files that exist before the case.
bool putOld(const Case& one, PosixFiles& files) {
    bool done = true;
    for (int i = 0; i < one.fillers; ++i) {
        done = write(files, u"A" + std::u16string(1, static_cast<char16_t>(u'A' + i)), "") && done;
    }
    if (one.operation == "folder") {
        done = write(files, u"List.ini", listOf(toUtf8(kProgrammes[0]))) && write(files, u"User.ini", favourites()) &&
               done;
    } else if (one.operation != "first") {
        done = write(files, u"List.ini", kOldList) && write(files, u"User.ini", kOldUser) && done;
    }
    if (one.operation == "full") {
        constexpr std::uint64_t kLeft = 8 * kKibibyte;
        const auto free = files.freeSpace(kRoot.substr(0, kRoot.size() - 1));
        done = free && *free > kLeft && write(files, u"FILLER", std::string(*free - kLeft, 'f')) && done;
    }
    if (one.operation.starts_with("crowded")) {
        done = fillRootFolder(files, one.operation.back() - '0') && done;
    }
    ::sync();
    return done;
}

// Nothing is retried: the medium keeps its state at the end.
bool run(const Case& one, SteppedFiles& files, BlockDevice& device) {
    if (one.operation != "folder") {
        const bool saved = save(one, files, {kNewList, kNewUser});
        device.mark();
        return saved;
    }
    Program program(files, kRoot);
    bool appended = true;
    for (std::size_t edit = 1; edit < kProgrammes.size(); ++edit) {
        const int before = files.appends();
        program.rename(kProgrammes[edit]);
        device.mark();
        appended = files.appends() == before + 1 && appended;
    }
    program.close();
    device.mark();
    return appended;
}

DeviceFaults faultsOf(const std::string& fault, int n, std::size_t badSector = std::string::npos) {
    using Kind = DeviceFaults::Kind;
    const Kind kind = fault.starts_with("write")   ? Kind::Write
                      : fault.starts_with("flush") ? Kind::Flush
                      : fault.starts_with("cut")   ? Kind::Cut
                                                   : Kind::None;
    return {kind, n, fault.ends_with("for-good"), badSector};
}

void act(const std::string& fault) {
    if (fault == "unmounted") {
        ::umount2(kMountPoint, MNT_DETACH);
    } else if (fault == "read-only") {
        ::mount(nullptr, kMountPoint, nullptr, MS_REMOUNT | MS_RDONLY, nullptr);
    }
}

// n: number of the request or step with the fault. False if there are fewer.
bool runCase(const Case& one, const std::string& image, int n, const std::string& work, std::ostream& results) {
    std::string medium;
    {
        BlockDevice device(image);
        PosixFiles files;
        // With the option "flush" the kernel waits a tenth of a second at the end of each file.
        if (!device.isAttached() || !mountDevice(one) || !putOld(one, files) || ::umount(kMountPoint) != 0) {
            results << one.name << " cannot be set up\n";
            return false;
        }
        medium = device.medium();
    }
    BlockDevice device(medium);
    if (!device.isAttached() || !mountDevice(one, one.options)) {
        results << one.name << " cannot be mounted\n";
        return false;
    }
    const std::size_t list = medium.find(kOldList.substr(0, kSector));
    device.start(faultsOf(one.fault, n, one.operation == "damaged" ? list + kReadablePart : std::string::npos));
    bool saved = false;
    bool reached = false;
    {
        PosixFiles files;
        Step step{n, [&] { act(one.fault); }};
        SteppedFiles stepped(files, step);
        saved = run(one, stepped, device);
        reached =
            device.faultReached() || (faultsOf(one.fault, n).kind == DeviceFaults::Kind::None && step.wasReached());
    }
    ::umount2(kMountPoint, MNT_DETACH);
    const bool below = !PosixFiles().list(kRoot.substr(0, kRoot.size() - 1)).empty();
    for (const std::u16string& name : PosixFiles().list(kRoot.substr(0, kRoot.size() - 1))) {
        PosixFiles().remove(kRoot + name);
    }
    const std::string name = one.name + (one.fault == "none" ? "" : "-" + std::to_string(n));
    const bool left =
        writeLog(work + "/" + name + ".log", one.fault == "none" ? device.log() : BlockLog{device.medium(), {}});
    results << name << (saved ? " saved" : " refused") << (below ? " below" : "") << (left ? "" : " lost") << std::endl;
    return reached;
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void runAll(const std::string& work) {
    std::ofstream results(work + "/results");
    if (!prepare()) {
        results << "the kernel lacks a module or a file system" << std::endl;
        return;
    }
    std::ifstream list(work + "/cases");
    std::string line;
    while (std::getline(list, line)) {
        std::istringstream words(line);
        Case one;
        words >> one.name >> one.image >> one.fileSystem >> one.options >> one.operation >> one.fillers >> one.fault;
        const std::string image = contentOf(work + "/" + one.image);
        for (int n = 1; runCase(one, image, n, work, results) && one.fault != "none"; ++n) {
        }
    }
    results << "end" << std::endl;
}

// Saves two pairs of files in turn until the kernel is killed, and tells the console before each operation.
void saveUntilKilled(const char* disk) {
    const bool mounted = prepare() && ::mount(disk, kMountPoint, "vfat", 0, "") == 0;
    const int console = ::open("/dev/console", O_WRONLY | O_CLOEXEC);
    PosixFiles files;
    const Case one;
    bool saved = mounted && console >= 0 && save(one, files, {kOldList, kOldUser});
    Step step{1, {}};
    step.act = [&] {
        saved = ::write(console, &kOperationMark, 1) == 1 && saved;
        ++step.number;
    };
    SteppedFiles stepped(files, step);
    for (bool isNew = true; saved; isNew = !isNew) {
        saved =
            save(one, stepped, isNew ? ListFilePair{kNewList, kNewUser} : ListFilePair{kOldList, kOldUser}) && saved;
    }
}

}  // namespace

int main() {
    const char* const work = std::getenv("HALCYON_WORK");
    const char* const disk = std::getenv("HALCYON_DISK");
    if (::getpid() == 1 && disk != nullptr) {
        saveUntilKilled(disk);
    } else if (::getpid() == 1 && work != nullptr) {
        runAll(work);
    }
    ::sync();
    ::reboot(RB_POWER_OFF);
    return 1;
}
