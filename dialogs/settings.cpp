#include "dialogs/settings.h"

#include "dialogs/header_band.h"
#include "dialogs/help.h"
#include "dialogs/modal.h"
#include "forms/prop_form.h"
#include "mainwindow/last_files.h"
#include "model/session.h"
#include "model/settings.h"
#include "surface/grid.h"

#include <array>

namespace kehystin {

namespace {

constexpr std::string_view help_page = "yleista_asetukset.htm";

/// A density, and the two controls that show it.
struct Density {
    Integer Settings::*value;
    TextBox PropForm::*text;
    ScrollBar PropForm::*spin;
};

constexpr std::array densities = {
    Density{&Settings::gridX, &PropForm::txt_grid_X, &PropForm::scr_grid_X},
    Density{&Settings::gridY, &PropForm::txt_grid_Y, &PropForm::scr_grid_Y},
    Density{&Settings::guideX, &PropForm::txt_guide_X, &PropForm::scr_guide_X},
    Density{&Settings::guideY, &PropForm::txt_guide_Y, &PropForm::scr_guide_Y},
};

struct Switch {
    Integer Settings::*value;
    CheckBox PropForm::*box;
};

constexpr std::array switches = {
    Switch{&Settings::keepLastFiles, &PropForm::chk_showLastFiles},
    Switch{&Settings::saveWindowPos, &PropForm::chk_savePos},
    Switch{&Settings::showVelho, &PropForm::chkShowVelho},
};

void spin_Change(Density const& density) {
    if (session.pro_updating)
        return;
    ((*fProp).*density.text).Text = Format(-((*fProp).*density.spin).Value);
}

/// Only a number that the density can take reaches the spin control, and only the spin control is
/// what OK takes.
void text_Change(Density const& density) {
    PanelUpdate const updating;
    auto& spin = (*fProp).*density.spin;
    double const number = Val(((*fProp).*density.text).Text.get());
    double const whole = round_to_even(number);
    bool const fits = number > -spin.Max - 1 && whole >= -spin.Max && whole <= -spin.Min;
    if (fits)
        spin.Value = -static_cast<int>(whole);
}

void cmd_ok_Click() {
    for (auto const& density : densities)
        settings.*density.value = -((*fProp).*density.spin).Value;
    for (auto const& one : switches)
        settings.*one.value = ((*fProp).*one.box).Value == 1 ? -1 : 0;
    UpdateLastFiles("");
    fProp->Close();
}

void cmd_cancel_Click() {
    fProp->Close();
}

void cmd_help_Click() {
    session.helpTopic = help_page;
    ShowHelp();
}

void Form_Unload() {
    session.helpTopic = "sisallys.htm";
}

void wire() {
    for (auto const& density : densities) {
        ((*fProp).*density.spin).Change = [&density] { spin_Change(density); };
        ((*fProp).*density.text).Change = [&density] { text_Change(density); };
        ((*fProp).*density.text).GotFocus = [&density] { ((*fProp).*density.text).select_all(); };
    }
    fProp->cmd_ok.Click = cmd_ok_Click;
    fProp->cmd_cancel.Click = cmd_cancel_Click;
    fProp->cmd_help.Click = cmd_help_Click;
    fProp->Unload = Form_Unload;
}

void Form_Load() {
    wire();
    session.helpTopic = help_page;
    paint_header_band(*fProp, fProp->lab_info);
    for (auto const& density : densities)
        ((*fProp).*density.text).Text = Format(settings.*density.value);
    for (auto const& one : switches)
        ((*fProp).*one.box).Value = settings.*one.value != 0 ? 1 : 0;
}

} // namespace

void cmd_properties_Click() {
    show_dialog(fProp, Form_Load);
    upd_gg();
}

} // namespace kehystin
