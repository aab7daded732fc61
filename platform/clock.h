// The clock of the machine.
#pragma once

#include "platform/base.h"

namespace platform {

/// Now and today, by the host's clock.
Date Now();
Date Today();

} // namespace platform
