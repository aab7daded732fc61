// The system's calls of the program, on their way to the system: counted, failed or noted by
// whoever links this in with the linker's option --wrap.
#pragma once

#include <functional>
#include <string>

namespace faults {

/// What the program asked of the disk.
struct Call {
    enum class What { open, read, write, flush, close, cut, rename, remove } what;
    std::string path;       ///< of the file, as it was opened
    std::string other = {}; ///< the new name of a renamed file, or the bytes written
    bool emptied = false;   ///< an opening that made the file or took its contents
    long place = 0;         ///< of the bytes
};

/// Asked before each call; an error number fails the call, 0 lets it through. None for no watch.
extern std::function<int(Call const&)> before_call;
/// Told of each call that was done.
extern std::function<void(Call const&)> after_call;

} // namespace faults
