#include "desktop/help_reader_system.h"

#include "disk/disk.h"

#include <windows.h>

#include <chm_lib.h>

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <string>

namespace desktop::help_reader {

void limitMyself() {
    constexpr SIZE_T memory = 256 * 1024 * 1024;
    constexpr LONGLONG seconds = 2;
    constexpr LONGLONG hundredNanoseconds = 10'000'000; // in a second
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    _setmode(_fileno(stdout), _O_BINARY);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags =
        JOB_OBJECT_LIMIT_PROCESS_MEMORY | JOB_OBJECT_LIMIT_PROCESS_TIME;
    limits.BasicLimitInformation.PerProcessUserTimeLimit.QuadPart = seconds * hundredNanoseconds;
    limits.ProcessMemoryLimit = memory;
    auto* const job = CreateJobObjectW(nullptr, nullptr);
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    AssignProcessToJobObject(job, GetCurrentProcess());
}

chmFile* openHelpFile(char const* path) {
    auto name = disk::path_of(path).wstring();
    return chm_open(name.data());
}

} // namespace desktop::help_reader
