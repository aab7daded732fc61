// Tooltips of the icon bar and of the field bar.
#pragma once

#include <string_view>

namespace kehystin {

/// Looks what the mouse rests on and shows or closes the tip.
void tipTimer_Timer();

/// Shows a tip beside the mouse, which stands at that point of the screen in pixels.
void ShowTip(std::string_view text, double x, double y);
/// Takes the tip away, if one stands.
void close_tip();

} // namespace kehystin
