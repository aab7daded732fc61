// Any bytes as a card file in the program: opened, shown, linked, saved and read again, without a
// crash and without a record that could not have come from a file.
#include "app/program.h"
#include "cardfile/document_commands.h"
#include "cardfile/reader.h"
#include "cardfile/writer.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "links/link_engine.h"
#include "model/card.h"
#include "model/session.h"
#include "tests/fuzz/fuzz_host.h"

#include <cstdint>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace {

using namespace kehystin;

struct RunningProgram {
    FuzzHost host;
    Program program{host};
    std::string path;
    int descriptor;

    RunningProgram() : descriptor(memfd_create("card", 0)) {
        path = "/proc/self/fd/" + std::to_string(descriptor);
        program.Main();
    }
};

void put(int descriptor, std::uint8_t const* data, std::size_t size) {
    if (ftruncate(descriptor, 0) != 0 ||
        pwrite(descriptor, data, size, 0) != static_cast<ssize_t>(size))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static RunningProgram running;
    put(running.descriptor, data, size);
    session.cardModified = false;
    session.startFile = running.path;
    auto const name_before = card.name;
    cmd_open_Click();
    if (!session.cardFormLoaded) {
        // Not opened: not a trace of it in the records.
        if (!(card.name == name_before))
            std::abort();
        return 0;
    }
    if (card.fields < 0 || card.fields > limits::fields ||
        fields.size() != static_cast<std::size_t>(int{card.fields}) + 1)
        std::abort();
    update_links();
    session.cardFile = running.path;
    SaveCardFile();
    ReadCardFile(running.path);
    cmd_close_Click();
    return 0;
}
