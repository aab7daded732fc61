#include "links/link_engine.h"

#include "boxes/failure_report.h"
#include "card/linking.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "mainwindow/command_state.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/host.h"

namespace kehystin {

namespace {

void remove_lines() {
    for (int i = 1; i <= session.link_count; ++i)
        fCard->link.Unload(i);
    session.link_count = 0;
}

/// A line without ends is there and counts all the same.
void draw_line(Link const& link) {
    auto& line = fCard->link.Load(session.link_count + 1);
    session.link_count += 1;
    if (!link.ends)
        return;
    line.X1 = link.ends->x1;
    line.Y1 = link.ends->y1;
    line.X2 = link.ends->x2;
    line.Y2 = link.ends->y2;
}

} // namespace

void update_links() {
    // Without a surface there is nothing to link or to draw on.
    if (!fEditor->cmd_link_automatic.Checked || !session.cardFormLoaded)
        return;
    auto const renew = [] {
        using enum Code;
        session.link_reach = usual_reach;
        fCard->link.prototype().BorderColor =
            card.color == colours::red ? colours::blue : colours::red;
        remove_lines();
        auto const linking = link_card(open_card, session.link_reach);
        for (auto const& link : linking.links)
            draw_line(link);
        if (linking.failure)
            throw *linking.failure;
        UpdateCommandState(keep, keep, keep, keep, keep, session.link_count == 0 ? off : on);
        if (fEditor->cmd_linkBar.Checked)
            for (int i = 1; i <= session.link_count; ++i)
                fCard->link(i).Visible = true;
    };
    try {
        with_memory_checked(renew);
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
    // A run makes the lines anew, shown or hidden; the mark lets it, also where links are not kept.
    bool const automatic = fEditor->cmd_link_automatic.Checked;
    fEditor->cmd_link_automatic.Checked = true;
    update_links();
    fEditor->cmd_link_automatic.Checked = automatic;
}

} // namespace kehystin
