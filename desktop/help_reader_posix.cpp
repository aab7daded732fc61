#include "desktop/help_reader_system.h"

#include <chm_lib.h>

#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>

namespace desktop::help_reader {

namespace {

void limit(auto resource, rlim_t most) {
    rlimit const wanted{most, most};
    setrlimit(resource, &wanted);
}

} // namespace

void limitMyself() {
    constexpr rlim_t memory = 256 * 1024 * 1024;
    constexpr rlim_t seconds = 2;
    limit(RLIMIT_AS, memory);
    limit(RLIMIT_CPU, seconds);
    prctl(PR_SET_DUMPABLE, 0); // no core file
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}

chmFile* openHelpFile(char const* path) {
    return chm_open(path);
}

} // namespace desktop::help_reader
