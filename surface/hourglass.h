// The mouse pointer while work is under way.
#pragma once

#include "platform/system.h"

namespace kehystin {

/// Shows the hourglass, and the arrow again however the work ends.
class Hourglass {
  public:
    Hourglass() { System::current().set_MousePointer(pointer::hourglass); }
    ~Hourglass() { System::current().set_MousePointer(pointer::normal); }
    Hourglass(Hourglass const&) = delete;
    Hourglass& operator=(Hourglass const&) = delete;
};

} // namespace kehystin
