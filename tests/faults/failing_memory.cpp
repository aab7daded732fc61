#include "tests/faults/failing_memory.h"

#include <cstdlib>
#include <new>

namespace faults {

Memory memory;

} // namespace faults

/// The sanitizer has forms of new of its own that the replaced delete gives back.
extern "C" char const* __asan_default_options() { // NOLINT: the sanitizer gives the name
    return "alloc_dealloc_mismatch=0";
}

void* operator new(std::size_t size) {
    auto& memory = faults::memory;
    if (memory.watched && ++memory.allocations == memory.failing)
        throw std::bad_alloc();
    if (auto* const place = std::malloc(size != 0 ? size : 1))
        return place;
    throw std::bad_alloc();
}
void operator delete(void* place) noexcept {
    std::free(place);
}
void operator delete(void* place, std::size_t) noexcept {
    std::free(place);
}
