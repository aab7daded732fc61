// A picture box that only shows: a page of a dialog, a swatch, what a sample stands in.
#pragma once

#include "platform/controls.h"

namespace kehystin {

/// Walking with the keyboard passes it by, for it has nothing to be done with keys.
class PicturePanel : public platform::PictureBox {
  public:
    using PictureBox::PictureBox;
    bool takes_focus() const override { return false; }
};

} // namespace kehystin
