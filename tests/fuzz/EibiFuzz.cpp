// Any bytes as an EiBi schedule, on any date, and what the program makes of it.
#include "ctl/CtlProgram.h"
#include "ctl/schedules/EibiReader.h"
#include "fuzz/PublishedSchedule.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    CtlProgram program;
    program.clock.time.month = 1 + data[0] % 12;
    program.clock.time.day = 1 + data[1] % 31;
    const std::string bytes = bytesOf(data + 2, size - 2);
    checkEntries(readEibi(bytes, program.clock.time), lineCountOf(bytes));

    program.console.input = bytes;
    const int shown = program.run({"schedule", "show", "-", "--format", "eibi", "--first", "256"});
    promise(shown == 0 || shown == 1 || shown == 3, "a schedule is shown, empty or refused");
    promise(shown == 0 || !program.console.errors.empty(), "a failure has a message");
    return 0;
}
