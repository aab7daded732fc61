#include "tests/faults/failing_calls.h"

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <map>
#include <sys/types.h>
#include <unistd.h>

namespace faults {

std::function<int(Call const&)> before_call;
std::function<void(Call const&)> after_call;

namespace {

std::map<int, std::string> paths; ///< of the open descriptors

std::string path_of(int descriptor) {
    auto const found = paths.find(descriptor);
    return found == paths.end() ? std::string() : found->second;
}

/// True, with errno set, where the call is to fail.
bool fails(Call const& call) {
    int const error = before_call && !call.path.empty() ? before_call(call) : 0;
    if (error != 0)
        errno = error;
    return error != 0;
}

void note(Call const& call) {
    int const before = errno;
    if (after_call && !call.path.empty())
        after_call(call);
    errno = before;
}

} // namespace
} // namespace faults

using faults::Call;

// The linker gives these names.
// NOLINTBEGIN
extern "C" {
int __real_open(char const* path, int flags, ...);
int __real_close(int descriptor);
ssize_t __real_read(int descriptor, void* to, size_t size);
ssize_t __real_write(int descriptor, void const* from, size_t size);
int __real_fsync(int descriptor);
int __real_ftruncate(int descriptor, off_t size);
int __real_rename(char const* from, char const* to);
int __real_unlink(char const* path);

int __wrap_open(char const* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    int const mode = (flags & O_CREAT) != 0 ? va_arg(arguments, int) : 0;
    va_end(arguments);
    bool const is_there = ::access(path, F_OK) == 0;
    bool const emptied = (flags & O_TRUNC) != 0 || ((flags & O_CREAT) != 0 && !is_there);
    Call const call{Call::What::open, path, {}, emptied};
    if (faults::fails(call))
        return -1;
    int const descriptor = __real_open(path, flags, mode);
    if (descriptor >= 0) {
        faults::paths[descriptor] = path;
        faults::note(call);
    }
    return descriptor;
}

int __wrap_close(int descriptor) {
    Call const call{Call::What::close, faults::path_of(descriptor)};
    faults::paths.erase(descriptor);
    bool const failed = faults::fails(call);
    int const error = errno;
    int const result = __real_close(descriptor); // the number is free also where closing fails
    if (failed)
        errno = error;
    return failed ? -1 : result;
}

ssize_t __wrap_read(int descriptor, void* to, size_t size) {
    if (faults::fails({Call::What::read, faults::path_of(descriptor)}))
        return -1;
    return __real_read(descriptor, to, size);
}

ssize_t __wrap_write(int descriptor, void const* from, size_t size) {
    Call call{Call::What::write, faults::path_of(descriptor)};
    if (faults::fails(call)) {
        // A full disk takes what it has room for.
        if (errno == ENOSPC) {
            auto const put = __real_write(descriptor, from, size / 2);
            call.other.assign(static_cast<char const*>(from), static_cast<size_t>(put));
            faults::note(call);
            errno = ENOSPC;
        }
        return -1;
    }
    call.place = static_cast<long>(::lseek(descriptor, 0, SEEK_CUR));
    auto const put = __real_write(descriptor, from, size);
    if (put > 0) {
        call.other.assign(static_cast<char const*>(from), static_cast<size_t>(put));
        faults::note(call);
    }
    return put;
}

int __wrap_fsync(int descriptor) {
    Call const call{Call::What::flush, faults::path_of(descriptor)};
    if (faults::fails(call))
        return -1;
    int const result = __real_fsync(descriptor);
    faults::note(call);
    return result;
}

int __wrap_ftruncate(int descriptor, off_t size) {
    Call const call{Call::What::cut, faults::path_of(descriptor)};
    if (faults::fails(call))
        return -1;
    int const result = __real_ftruncate(descriptor, size);
    faults::note(call);
    return result;
}

int __wrap_rename(char const* from, char const* to) {
    Call const call{Call::What::rename, from, to};
    if (faults::fails(call))
        return -1;
    int const result = __real_rename(from, to);
    if (result == 0)
        faults::note(call);
    return result;
}

int __wrap_unlink(char const* path) {
    Call const call{Call::What::remove, path};
    if (faults::fails(call))
        return -1;
    int const result = __real_unlink(path);
    if (result == 0)
        faults::note(call);
    return result;
}
}
// NOLINTEND
