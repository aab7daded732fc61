#include "platform/clock.h"

#include "platform/host.h"

#include <cmath>

namespace platform {

Date Now() {
    return host().now();
}

Date Today() {
    return std::floor(Now());
}

} // namespace platform
