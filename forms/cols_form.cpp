#include "forms/cols_form.h"

#include "forms/dialog_layout.h"

namespace kehystin {

std::unique_ptr<ColsForm> fCols;

ColsForm::ColsForm() : Form("fCols", FormKind::dialog) {
    using namespace layout;
    constexpr double list_width = 3600;
    constexpr double list_height = 3900;
    constexpr double buttons_left = margin + list_width + gap;
    constexpr double inner_width = buttons_left + button_width + margin;
    constexpr double inner_height = margin + list_height + margin + button_height + margin;
    Caption = "Sarakejärjestys";
    set_inner_size(*this, inner_width, inner_height);
    lst.Move(margin, margin, list_width, list_height);
    lst.BackColor = colours::white;
    lst.set_spoken_name(Caption.get());
    cmd_up.Caption = "&Ylös";
    cmd_up.Move(buttons_left, margin, button_width, button_height);
    cmd_down.Caption = "&Alas";
    cmd_down.Move(buttons_left, margin + button_height + gap, button_width, button_height);
    cmd_ok.Caption = "OK";
    cmd_ok.Default = true;
    cmd_cancel.Caption = "&Peruuta";
    cmd_cancel.Cancel = true;
    place_buttons({&cmd_ok, &cmd_cancel}, nullptr, inner_width, inner_height);
}

ColsForm::~ColsForm() {
    begin_unload();
}

} // namespace kehystin
