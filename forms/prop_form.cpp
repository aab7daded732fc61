#include "forms/prop_form.h"

#include "forms/dialog_layout.h"
#include "model/settings.h"

namespace kehystin {

std::unique_ptr<PropForm> fProp;

namespace {

using namespace layout;

constexpr double content_width = 5880; // wide enough for the longest of the three switches
constexpr double inner_width = content_width + 2 * margin;
constexpr double frame_top = header_band + margin;
constexpr double frame_width = (content_width - gap) / 2;
constexpr double first_row = 360;
constexpr double row_step = box + gap;
constexpr double frame_height = first_row + row_step + box + margin;
constexpr double checks_top = frame_top + frame_height + margin;
constexpr double inner_height = checks_top + 3 * row + margin + button_height + margin;

void place_density(Label& label, TextBox& text, ScrollBar& spin, double top, int lowest) {
    constexpr double text_left = 1500;
    constexpr double text_width = 900;
    constexpr double spin_width = 270;
    constexpr double lower_text = 60; // the label's line stands level with the box's
    label.Move(margin, top + lower_text, text_left - margin - gap, box - lower_text);
    text.Move(text_left, top, text_width, box);
    text.BackColor = colours::white;
    spin.Move(text_left + text_width + 30, top, spin_width, box);
    for (Control* const part : {static_cast<Control*>(&text), static_cast<Control*>(&spin)})
        part->set_spoken_name(label.Caption.get());
    label.caption_of = &text;
    spin.Min = -largest_density;
    spin.Max = -lowest;
    spin.Value = -lowest;
}

} // namespace

PropForm::PropForm() : Form("fProp", FormKind::dialog) {
    Caption = " Asetukset";
    set_inner_size(*this, inner_width, inner_height);
    lab_info.Caption = " Kehystimen asetukset";
    Frame1.Caption = " Ruudukko ";
    Frame1.Move(margin, frame_top, frame_width, frame_height);
    Frame2.Caption = " Apuviivat ";
    Frame2.Move(margin + frame_width + gap, frame_top, frame_width, frame_height);
    for (auto* const label : {&lab_grid_X, &lab_guide_X})
        label->Caption = "Vaakatiheys";
    for (auto* const label : {&lab_grid_Y, &lab_guide_Y})
        label->Caption = "Pystytiheys";
    place_density(lab_grid_X, txt_grid_X, scr_grid_X, first_row, least_grid);
    place_density(lab_grid_Y, txt_grid_Y, scr_grid_Y, first_row + row_step, least_grid);
    place_density(lab_guide_X, txt_guide_X, scr_guide_X, first_row, least_guide);
    place_density(lab_guide_Y, txt_guide_Y, scr_guide_Y, first_row + row_step, least_guide);

    chk_showLastFiles.Caption = " Näytä aiemmin avatut tiedostot Tiedosto valikossa";
    chk_savePos.Caption = " Tallenna ohjelmaikkunan koko ja paikka";
    chkShowVelho.Caption = " Näytä velho uutta korttia luotaessa";
    double top = checks_top;
    for (auto* const check : {&chk_showLastFiles, &chk_savePos, &chkShowVelho}) {
        check->Move(margin, top, content_width, row);
        top += row;
    }
    cmd_ok.Caption = "OK";
    cmd_ok.Default = true;
    cmd_cancel.Caption = "&Peruuta";
    cmd_cancel.Cancel = true;
    cmd_help.Caption = "&Ohje";
    place_buttons({&cmd_ok, &cmd_cancel}, &cmd_help, inner_width, inner_height);
}

PropForm::~PropForm() {
    begin_unload();
}

} // namespace kehystin
