#include "properties/card_rows.h"

#include "forms/editor_form.h"
#include "model/session.h"
#include "panel/row_texts.h"
#include "platform/files.h"
#include "platform/host.h"
#include "properties/apply.h"
#include "surface/hourglass.h"
#include "surface/images.h"
#include "surface/visuals.h"

namespace kehystin {

namespace {

constexpr std::string_view no_picture = "Ei";

void show_picture_name() {
    PanelUpdate const filling;
    auto const path = card.picture.trimmed();
    show_picture_text(names_a_file(path) ? file_part(path) : std::string(no_picture));
}

} // namespace

void txt_name_Change() {
    if (session.pro_updating || !session.cardFormLoaded)
        return;
    card.name = Trim(in_one_line(fEditor->txt_name.Text.get()));
    fCard->Caption = " " + card.name.trimmed();
    finish_change(Links::keep);
}

void txt_transp_Change() {
    if (session.pro_updating || !session.cardFormLoaded)
        return;
    auto const transparent = boolean_word(fEditor->txt_transp.Text.get());
    if (!transparent)
        return;
    card.transp = *transparent ? -1 : 0;
    for (int i = 1; i <= card.fields; ++i) {
        show_background(i);
        show_image_background(i);
    }
    finish_change(Links::keep);
}

void cmd_picture_Click() {
    auto const path = choose_picture();
    if (path.empty())
        return;
    try {
        Hourglass const pointer;
        auto const stored = decltype(Card::picture)(path);
        auto const picture = LoadPicture(stored.trimmed());
        card.picture = stored.trimmed();
        fCard->Picture = picture;
        show_picture_name();
        finish_change(Links::keep);
    } catch (RuntimeError const& error) {
        report_unreadable_picture(error);
    }
}

void txt_picture_DblClick() {
    if (!session.cardFormLoaded)
        return;
    card.picture = "";
    fCard->Picture = Picture();
    show_picture_name();
    finish_change(Links::keep);
}

void txt_picture_Change() {
    if (session.pro_updating)
        return;
    PanelUpdate const filling;
    fEditor->txt_picture.Text = fEditor->txt_picture.Tag.get();
}

} // namespace kehystin
