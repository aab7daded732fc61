#include "surface/adding.h"

#include "boxes/failure_report.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "links/link_engine.h"
#include "links/link_list.h"
#include "mainwindow/bars.h"
#include "mainwindow/command_state.h"
#include "mainwindow/document_state.h"
#include "model/card.h"
#include "model/default_looks.h"
#include "model/session.h"
#include "model/settings.h"
#include "platform/host.h"
#include "surface/frames.h"
#include "surface/grid.h"
#include "surface/load_card.h"
#include "surface/visuals.h"

#include <algorithm>
#include <cmath>

namespace kehystin {

namespace {

/// The pointer stands this far right of and below the corner of what it drops, in pixels.
constexpr double pointer_inset = 5;

/// A record that starts as zeros, with the default look of its kind.
Field new_field(Kind const& kind) {
    auto const& look = default_look(kind.style);
    Field one;
    one.style = code_of(kind.style);
    one.caption = kind.has_caption() ? look.caption : "";
    one.group = "";
    one.list = "";
    one.size = kind.size;
    one.value = kind.first_value;
    one.fontName = Trim(look.fontName);
    one.fontSize = Integer(double(look.fontSize));
    one.fontBold = look.fontBold.number();
    one.fontItalic = look.fontItalic.number();
    one.foreColor = look.foreColor;
    one.backColor = look.backColor;
    one.width = look.width;
    one.height = look.height;
    if (kind.look == Look::image) {
        one.scaling = look.scaling;
        one.border = look.border;
    }
    return one;
}

void place_at(Field& one, double x, double y) {
    double left = x - pointer_inset;
    double top = y - pointer_inset;
    if (auto const spacing = snap_spacing()) {
        left = snapped(left, spacing->x);
        top = snapped(top, spacing->y);
    }
    one.left = Integer(left);
    one.top = Integer(top);
}

struct Place {
    double x, y;
};

bool is_free(double left, double top, DefaultField const& look) {
    for (int i = 1; i <= card.fields; ++i) {
        auto const& one = field(i);
        bool const apart = one.left + one.width <= left || left + look.width <= one.left ||
                           one.top + one.height <= top || top + look.height <= one.top;
        if (!apart)
            return false;
    }
    return true;
}

/// Where a field from the keyboard goes, in pixels of the surface.
Place free_place(DefaultField const& look, Area const& seen) {
    auto const spacing = snap_spacing().value_or(Spacing{settings.gridX, settings.gridY});
    double const step_x = std::max(spacing.x, 1);
    double const step_y = std::max(spacing.y, 1);
    auto const first = [](double from, double step) { return std::ceil(from / step) * step; };
    for (double y = first(seen.top, step_y); y + look.height <= seen.top + seen.height; y += step_y)
        for (double x = first(seen.left, step_x); x + look.width <= seen.left + seen.width;
             x += step_x)
            if (is_free(x, y, look))
                return {x, y};
    return {seen.left, seen.top};
}

void take_title_font() {
    auto const& look = default_look(Style::OTS);
    fCard->set_font({look.fontName, look.fontSize, static_cast<bool>(look.fontBold),
                     static_cast<bool>(look.fontItalic), fCard->FontUnderline});
}

/// Makes room for one more field, as zeros, and returns its number: a deleted field may still lie
/// there. It is counted last: where there is no room for it the card stays as it was.
int grow() {
    Integer const number = card.fields + 1;
    auto const needed = static_cast<std::size_t>(int{number}) + 1;
    fields.resize(std::max(fields.size(), needed));
    field(number) = {};
    card.fields = number;
    return number;
}

void drop_field(Kind const& kind, double x, double y) {
    session.pro_focus = 0;
    int const number = grow();
    take_title_font();
    field(number) = new_field(kind);
    place_at(field(number), x, y);
    field(number).tabIndex = number;
    build_dropped_visual(kind, number);
    add_to_selector(number);
    add_frame(number);
    FillLinkList();
    update_links();
    fEditor->cmb_field.ListIndex = fEditor->cmb_field.NewIndex();
    // An image opens the title commands too, though it has no title to align.
    bool const titles = kind.style == Style::OTS || kind.look == Look::image;
    using enum Code;
    UpdateCommandState(keep, on, off, off, titles ? on : off, keep);
    MarkCardChanged();
}

/// After a drop that failed: the field stays as far as it was made, and whoever looks for its line
/// in the selector, its object and its frame finds them if they can be made at all.
void settle_half_made_field(Kind const& kind) {
    int const number = card.fields;
    if (fEditor->cmb_field.ListCount() == number)
        add_to_selector(number);
    try {
        if (!fCard->focus.has(number)) {
            build_dropped_visual(kind, number);
            add_frame(number);
        }
    } catch (RuntimeError const&) {
        // The box of the failure itself has been shown; without object and frame the field only
        // stands in the record.
    }
    MarkCardChanged();
}

} // namespace

void Form_DragDrop(Control& source, double x, double y) {
    auto const* const kind = kind_of(std::string_view(source.Tag.get()));
    if (!kind)
        return;
    int const fields_before = card.fields;
    try {
        with_memory_checked([&] { drop_field(*kind, x, y); });
    } catch (RuntimeError const& error) {
        standard_report(" Kentän lataaminen kortille aiheutti virheen     ", error);
        if (card.fields > fields_before)
            settle_half_made_field(*kind);
    }
}

void drop_by_key(Control& source) {
    auto const* const kind = kind_of(std::string_view(source.Tag.get()));
    if (!kind || !session.cardFormLoaded)
        return;
    auto const place = free_place(default_look(kind->style), host().visible_part(*fCard));
    // Where a field covers the corner, a mouse could not drop one: the keyboard has no other place.
    Form_DragDrop(source, place.x + pointer_inset, place.y + pointer_inset);
}

void cmd_field_add_Click() {
    if (!fEditor->cmd_fldBar.Checked)
        cmd_fldBar_Click();
    auto text = lines({" Lisää kenttä kortille raahaamalla sen kuvake ",
                       " kenttälistalta hiirellä haluamaasi paikkaan kortilla.     ", "",
                       "          Kenttävaihtoehdot", "", ""});
    for (auto const& kind : kinds)
        text += lines(
            {"           ·  " + UCase(kind.name.substr(0, 1)) + std::string(kind.name.substr(1)),
             ""});
    MsgBox(text, box::information, " Kentän lisääminen");
}

} // namespace kehystin
