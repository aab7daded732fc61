#include "mainwindow/status_bar.h"

#include "boxes/failure_report.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"

namespace kehystin {

namespace {

constexpr std::string_view place_template = " Sijainti:  X, Y  ";
constexpr std::string_view size_template = " Koko:  W x H  ";
constexpr std::string_view caption_template = " Otsikon merkit:  X / max 100  ";

std::string card_panel() {
    if (!session.cardFormLoaded)
        return " Ei korttia  ";
    auto const name = card.name.trim();
    return name.empty() ? " (nimetön)  " : " " + name + "  ";
}

void show_templates(std::string_view second_panel) {
    auto& bar = fEditor->stsBar;
    bar.set_Panels(2, second_panel);
    bar.set_Panels(3, place_template);
    bar.set_Panels(4, size_template);
    bar.set_Panels(5, caption_template);
}

void show_field(int number) {
    auto& bar = fEditor->stsBar;
    auto const& one = field(number);
    auto const& caption = fEditor->txt_caption;
    bar.set_Panels(2, " Kenttä:  " + Format(number) + " / " + Format(card.fields) + "  ");
    bar.set_Panels(3, " Sijainti:  " + Format(one.left) + ", " + Format(one.top) + "  ");
    bar.set_Panels(4, " Koko:  " + Format(one.width) + " x " + Format(one.height) + " pikseliä  ");
    bar.set_Panels(5, caption.Visible ? " Otsikon merkit:  " +
                                            std::to_string(Len(caption.Text.get())) + " / max 100  "
                                      : std::string(caption_template));
}

} // namespace

void upd_sts() {
    try {
        auto const selected = selected_fields();
        fEditor->stsBar.set_Panels(1, card_panel());
        if (selected.empty())
            show_templates(" Ei valittuja kenttiä  ");
        else if (selected.size() == 1)
            show_field(selected.front());
        else
            show_templates(" Useita kenttiä valittu  ");
    } catch (RuntimeError const& error) {
        standard_report(" Statuspalkin päivitys aiheuti virheen     ", error);
    }
}

} // namespace kehystin
