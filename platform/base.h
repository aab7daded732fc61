// What the form system takes from below: text, numbers, colours, dates, errors, units. In its
// namespace they are as its own.
#pragma once

#include "base/colour.h"
#include "base/date.h"
#include "base/errors.h"
#include "base/fixed_text.h"
#include "base/numbers.h"
#include "base/text.h"
#include "base/units.h"

namespace platform {

namespace base = kehystin::base;
using namespace base;

} // namespace platform
