// Records that change behind the panel and the surface.
#pragma once

#include "model/card.h"

#include <vector>

namespace kehystin {

/// Made before work that changes values and lists of fields without showing it.
class RecordWatch {
  public:
    RecordWatch() : before_(fields) {}

    /// Brings objects and rows in line with what has changed since. What is being typed into a row
    /// stays, unless the row itself says something else by now.
    void refresh() const;

  private:
    std::vector<Field> before_;
};

} // namespace kehystin
