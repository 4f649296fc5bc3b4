// Any bytes as an HFCC schedule with its list of broadcasters, and what the program makes of it.
#include "ctl/CtlProgram.h"
#include "ctl/schedules/HfccReader.h"
#include "fuzz/PublishedSchedule.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string all = bytesOf(data, size);
    const std::size_t cut = std::min(all.find('\x01'), all.size());
    const std::string bytes = all.substr(0, cut);
    const std::string broadcasters = cut < all.size() ? all.substr(cut + 1) : "";
    CtlProgram program;
    checkEntries(readHfcc(bytes, broadcasters, program.clock.time), lineCountOf(bytes));

    program.files.files[u"/home/schedule"] = bytes;
    program.files.files[u"/home/broadcas.txt"] = broadcasters;
    const int shown = program.run({"schedule", "show", "schedule", "--first", "256"});
    promise(shown == 0 || shown == 1 || shown == 3, "a schedule is shown, empty or refused");
    promise(shown == 0 || !program.console.errors.empty(), "a failure has a message");
    return 0;
}
