#include "mainwindow/tips.h"

#include "mainwindow/icon_bar.h"
#include "model/session.h"
#include "platform/system.h"

#include <cstdlib>
#include <string>

namespace kehystin {

namespace {

constexpr int idle_interval = 500;
constexpr int showing_interval = 1; // a tip that stands follows the mouse at once

/// The tip of a control; empty when it has none.
std::string tip_of(Control const& control) {
    if (control.name() == fEditor->ico.prototype().name())
        for (auto const& icon : icon_table())
            if (icon.number == std::atoi(control.Tag.get().c_str()))
                return std::string(icon.tip);
    for (auto const button : fEditor->drag_buttons)
        if (&control == &((*fEditor).*button))
            return " " + std::string(control.spoken_name()) + " ";
    return {};
}

} // namespace

void tipTimer_Timer() {
    // Under a modal form nothing is pointed at, wherever the mouse was left.
    auto const* const control =
        System::current().active_modal() ? nullptr : host().control_under_mouse();
    if (control == session.tip_control)
        return;
    session.tip_control = control;
    auto const tip = control ? tip_of(*control) : std::string();
    if (!tip.empty()) {
        auto const [x, y] = host().mouse_position();
        ShowTip(tip, x, y);
        fEditor->tipTimer.Interval = showing_interval;
        session.tipShown = true;
    } else if (session.tipShown) {
        close_tip();
    }
}

void ShowTip(std::string_view text, double x, double y) {
    if (!fTip)
        fTip = std::make_unique<TipForm>();
    auto const screen = host().metrics();
    auto& label = fTip->lblTip;
    label.Caption = " " + Trim(text) + " ";
    label.Width = fTip->TextWidth(label.Caption.get());
    label.Height = fTip->TextHeight(label.Caption.get());
    double const frame = 2 * screen.TwipsPerPixelX;
    fTip->Width = label.Width + frame;
    fTip->Height = label.Height + frame;
    double across = 2;
    if ((x + across) * screen.TwipsPerPixelX + fTip->Width >= screen.width * screen.TwipsPerPixelX)
        across = -2 - fTip->Width / screen.TwipsPerPixelX;
    double down = 20;
    if ((y + down) * screen.TwipsPerPixelY + fTip->Height >= screen.height * screen.TwipsPerPixelY)
        down = -2 - fTip->Height / screen.TwipsPerPixelY;
    fTip->Move((x + across) * screen.TwipsPerPixelX, (y + down) * screen.TwipsPerPixelY);
    fTip->Visible = true;
}

void close_tip() {
    fTip.reset();
    session.tipShown = false;
    fEditor->tipTimer.Interval = idle_interval;
}

} // namespace kehystin
