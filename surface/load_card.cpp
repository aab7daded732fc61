#include "surface/load_card.h"

#include "boxes/failure_report.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "links/link_engine.h"
#include "mainwindow/card_size.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/files.h"
#include "platform/host.h"
#include "surface/frames.h"
#include "surface/hourglass.h"
#include "surface/visuals.h"
#include "surface/window.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace kehystin {

namespace {

/// Keeps the resize handlers out while code sets the window's size.
class Sizing {
  public:
    Sizing() { session.isSizing = true; }
    ~Sizing() { session.isSizing = false; }
    Sizing(Sizing const&) = delete;
    Sizing& operator=(Sizing const&) = delete;
};

/// A missing picture is passed over in silence.
Picture picture_of_card(Background const& known, std::string* fault) {
    auto const path = card.picture.trim();
    if (!known.standing.empty() && known.standing.name() == path)
        return known.standing;
    if (path == known.left_out || !names_a_file(path))
        return {};
    try {
        return with_memory_checked([&] { return LoadPicture(path); });
    } catch (RuntimeError const& error) {
        if (fault)
            *fault = error.text();
        throw;
    }
}

void open_window(Background const& background, std::string* picture_fault) {
    unload_card_form();
    Sizing const sizing;
    fCard = std::make_unique<CardForm>();
    wire_card_form();
    Form_Load();
    fCard->Caption = " " + card.name.trim();
    fCard->BackColor = card.color;
    auto const screen = host().metrics();
    fCard->Width = card.width * screen.TwipsPerPixelX;
    fCard->Height = card.height * screen.TwipsPerPixelY;
    size_card_frame(card.width, card.height);
    fCard->Picture = picture_of_card(background, picture_fault);
    fCard->picture_left_out = background.left_out;
}

void build_fields() {
    for (int i = 1; i <= card.fields; ++i) {
        auto const* const kind = field(i).kind();
        if (!kind)
            continue;
        add_to_selector(i);
        build_visual(*kind, i);
        add_frame(i);
    }
}

/// Ascending tabIndex, of equal ones the lower field first.
void apply_tab_order() {
    std::vector<int> order(static_cast<std::size_t>(int{card.fields}));
    std::iota(order.begin(), order.end(), 1);
    std::stable_sort(order.begin(), order.end(),
                     [](int a, int b) { return field(a).tabIndex < field(b).tabIndex; });
    for (int const number : order)
        if (auto const* const kind = field(number).kind())
            fCard->visual(kind->style, number).TabIndex = int{field(number).tabIndex};
}

void build_surface(Background const& background, std::string* picture_fault) {
    open_window(background, picture_fault);
    fEditor->cmb_field.Clear();
    fEditor->cmb_field.AddItem("Kortti");
    build_fields();
    apply_tab_order();
    fEditor->cmb_field.Enabled = true;
    fEditor->cmb_field.ListIndex = -1;
    fEditor->cmb_field.BackColor = colours::white;
    fEditor->peitto.Visible = false;
    fCard->Visible = true;
    update_links();
    show_lock_state();
}

} // namespace

bool load_card(Background const& background, std::string* picture_fault) {
    PanelUpdate const rebuilding;
    Hourglass const pointer;
    try {
        with_memory_checked([&] { build_surface(background, picture_fault); });
        return true;
    } catch (RuntimeError const& error) {
        // Half a surface would show a card that nobody could save.
        unload_card_form();
        standard_report(" Korttimallin lataaminen aiheutti virheen     ", error,
                        " Korttimallin lataus on keskeytetty.     ");
        return false;
    }
}

void unload_card_form() {
    if (!session.cardFormLoaded)
        return;
    Form_Unload();
    fCard.reset();
    session.link_count = 0;
}

void add_to_selector(int number) {
    if (auto const* const kind = field(number).kind())
        fEditor->cmb_field.AddItem("Kenttä (" + Format(number) + ")  " + std::string(kind->word));
}

} // namespace kehystin
