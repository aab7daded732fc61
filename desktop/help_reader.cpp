#include "desktop/help_reader.h"

#include "desktop/help_reader_system.h"

#include <chm_lib.h>

#include <cstdio>
#include <string_view>
#include <vector>

namespace {

using namespace desktop::help_reader;

bool write(void const* bytes, std::size_t size) {
    return std::fwrite(bytes, 1, size, stdout) == size;
}

/// Goes on to the next one while there is somebody to read it.
int writeUnit(chmFile* file, chmUnitInfo* unit, void*) {
    std::string_view const path(unit->path);
    std::vector<unsigned char> bytes;
    bool readable = unit->length <= largestObject;
    if (readable) {
        bytes.resize(unit->length);
        auto const length = static_cast<LONGINT64>(unit->length);
        readable = chm_retrieve_object(file, unit, bytes.data(), 0, length) == length;
    }
    Heading const heading{static_cast<std::uint32_t>(path.size()),
                          readable ? static_cast<std::uint32_t>(bytes.size()) : unreadable};
    bool const written = write(&heading, sizeof heading) && write(path.data(), path.size()) &&
                         (!readable || write(bytes.data(), bytes.size()));
    return written ? CHM_ENUMERATOR_CONTINUE : CHM_ENUMERATOR_FAILURE;
}

} // namespace

int desktop::help_reader::run(char const* path) {
    limitMyself();
    auto* const file = openHelpFile(path);
    if (!file)
        return 1;
    constexpr int manyBlocks = 256; // the files do not lie in the order of their names
    chm_set_param(file, CHM_PARAM_MAX_BLOCKS_CACHED, manyBlocks);
    constexpr int files = CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES;
    bool const whole = chm_enumerate(file, files, writeUnit, nullptr) != 0;
    return whole && std::fflush(stdout) == 0 ? 0 : 1;
}
