#include "links/link_engine.h"

#include "commands/command_state.h"
#include "commands/failure_report.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "links/title_search.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/host.h"

namespace kehystin {

namespace {

constexpr int reach = 120; // pixels

struct LinePlace {
    double x1, y1, x2, y2;
};

/// A title at the left of its field gives a line between their facing edges; any other gives a
/// line straight down from the title's lower corner. The single +1 of the first case is intended.
LinePlace place_of_line(Field const& title, Field const& data) {
    if (title.right() < data.left)
        return {title.right() + 1.0, title.top + title.height / 2 + 1, data.left - 1.0,
                data.top + data.height / 2};
    double const x = title.left <= data.left ? title.right() + 1.0 : title.left - 1.0;
    return {x, title.bottom() + 1.0, x, data.top - 1.0};
}

/// The line is there and counts also where its ends cannot be computed.
void draw_line(Field const& title, Field const& data) {
    auto& line = fCard->link.Load(session.link_count + 1);
    session.link_count += 1;
    auto const place = place_of_line(title, data);
    line.X1 = place.x1;
    line.Y1 = place.y1;
    line.X2 = place.x2;
    line.Y2 = place.y2;
}

void record_link(int title, int data) {
    auto const caption = field(title).caption.trim();
    field(data).group = caption;
    // A manual link may name another data field, whose list means something else.
    if (field(title).is_title()) {
        auto& list = field(title).list;
        list.assign_bytes(std::string(trimmed_view(list.bytes())) + std::to_string(data) + "|");
    }
}

/// The title of a data field, or 0 when it has none.
int find_title(TitleSearch& search, int number) {
    auto& data = field(number);
    if (data.linkitys) {
        if (data.linkki < 1 || data.linkki > card.fields)
            throw RuntimeError(ErrorNumber::subscript_out_of_range);
        return data.linkki;
    }
    int const title = search.nearest_to(data);
    if (title != 0)
        data.linkki = title;
    return title;
}

void remove_lines() {
    for (int i = 1; i <= session.link_count; ++i)
        fCard->link.Unload(i);
    session.link_count = 0;
}

void link_fields() {
    for (int i = 1; i <= card.fields; ++i) {
        field(i).group = "";
        if (field(i).is_title())
            field(i).list = "";
    }
    TitleSearch search(session.link_reach);
    for (int j = 1; j <= card.fields; ++j) {
        if (field(j).is_title())
            continue;
        int const title = find_title(search, j);
        if (title == 0)
            continue;
        draw_line(field(title), field(j));
        record_link(title, j);
    }
}

void drop_last_separators() {
    for (int i = 1; i <= card.fields; ++i) {
        if (!field(i).is_title())
            continue;
        auto& list = field(i).list;
        auto text = trimmed_view(list.bytes());
        if (text.ends_with('|'))
            text.remove_suffix(1);
        list.assign_bytes(std::string(text));
    }
}

} // namespace

void update_links() {
    // Without a surface there is nothing to link or to draw on.
    if (!fEditor->cmd_link_automatic.Checked || !session.cardFormLoaded)
        return;
    try {
        using enum Code;
        session.link_reach = reach;
        fCard->link.prototype().BorderColor =
            card.color == colours::red ? colours::blue : colours::red;
        remove_lines();
        link_fields();
        drop_last_separators();
        UpdateCommandState(keep, keep, keep, keep, keep, session.link_count == 0 ? off : on);
        if (fEditor->cmd_linkBar.Checked)
            for (int i = 1; i <= session.link_count; ++i)
                fCard->link(i).Visible = true;
    } catch (RuntimeError const& error) {
        standard_report(" Linkkien päivitys aiheutti virheen     ", error);
    }
}

void cmd_link_automatic_Click() {
    fEditor->cmd_link_automatic.Checked = !fEditor->cmd_link_automatic.Checked;
    update_links();
}

void cmd_linkBar_Click() {
    fEditor->cmd_linkBar.Checked = !fEditor->cmd_linkBar.Checked;
    if (session.link_count == 0) {
        MsgBox(
            lines({" Kortilla ei ole yhtään linkkiä.", "",
                   " Linkki on automaattinen yhteys otsikkokentän ja datakentän välillä.     ",
                   " Mikäli jompi kumpi kenttätyyppi puuttuu kortilta tai kenttien sijoittelu     ",
                   " ei vastaa linkkien vaatimuksia, linkkejä ei synny.", "",
                   " Saadaksesi linkkejä, lisää kenttiä kortille tai siirrä nykyisiä kenttiä.",
                   ""}),
            box::information, " Linkit...");
        return;
    }
    bool const automatic = fEditor->cmd_link_automatic.Checked;
    fEditor->cmd_link_automatic.Checked = true;
    update_links();
    fEditor->cmd_link_automatic.Checked = automatic;
}

} // namespace kehystin
