#include "forms/info_form.h"

#include "base/maker.h"
#include "forms/dialog_layout.h"

namespace kehystin {

std::unique_ptr<InfoForm> fInfo;

namespace {

using namespace layout;

constexpr double picture_size = 720;
constexpr double text_left = margin + picture_size + margin;
constexpr double text_width = 4620;
constexpr double inner_width = text_left + text_width + margin;
constexpr double name_height = 390;
constexpr double line_height = 240;
constexpr double description_top = margin + name_height + line_height + margin;
constexpr double addresses_top = description_top + 2 * row + margin;
constexpr double inner_height = addresses_top + 2 * row + margin + button_height + margin;

/// An address that a click opens, with what it is before it.
void place_address(Label& caption, Label& address, double top, std::string_view text) {
    constexpr Colour link = 0xbf6f2f; // the blue of links everywhere in the program
    constexpr double caption_width = 1200;
    constexpr double letter = 105; // a click beside a short address is no click on it
    caption.Move(text_left, top, caption_width, line_height);
    address.Caption = std::string(text);
    address.Move(text_left + caption_width, top, letter * static_cast<double>(text.size()),
                 line_height);
    address.ForeColor = link;
    address.FontUnderline = true;
    address.is_link = true;
    caption.caption_of = &address;
}

} // namespace

InfoForm::InfoForm() : Form("fInfo", FormKind::dialog) {
    Caption = " Info";
    set_inner_size(*this, inner_width, inner_height);
    picKehystin.Picture = Picture::named("kehystin");
    picKehystin.BorderStyle = 0;
    picKehystin.Move(margin, margin, picture_size, picture_size);
    labNimi.Caption = std::string(maker::name);
    labNimi.FontSize = 14;
    labNimi.FontBold = true;
    labNimi.Move(text_left, margin, text_width, name_height);
    labVersio.Move(text_left, margin + name_height, text_width, line_height);
    labKuvaus.Caption = "Luo ja muokkaa korttimalleja Norvak ohjelmaan";
    labKuvaus.Move(text_left, description_top, text_width, line_height);
    labTekija.Caption = "© 2026 Kehystimen kehittäjät";
    labTekija.Move(text_left, description_top + row, text_width, line_height);
    labInternet.Caption = "Internet:";
    labSahkoposti.Caption = "Sähköposti:";
    place_address(labInternet, lab_www, addresses_top, maker::web_address);
    place_address(labSahkoposti, labEmail, addresses_top + row, maker::support_address);
    for (auto* const label : {&labNimi, &labVersio, &labKuvaus, &labTekija, &labInternet, &lab_www,
                              &labSahkoposti, &labEmail})
        label->BackStyle = 0;
    cmd_ok.Caption = "OK";
    cmd_ok.Default = true;
    cmd_ok.TabIndex = 0; // the keyboard begins there
    cmd_ok.Cancel = true;
    place_buttons({&cmd_ok}, nullptr, inner_width, inner_height);
}

InfoForm::~InfoForm() {
    begin_unload();
}

} // namespace kehystin
