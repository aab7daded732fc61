#include "mainwindow/command_state.h"

#include "mainwindow/icon_bar.h"
#include "mainwindow/menu_table.h"

namespace kehystin {

namespace {

void switch_group(Group group, Code code) {
    if (code == Code::keep)
        return;
    for (auto const& row : menu_table())
        if (row.group == group)
            ((*fEditor).*row.entry).Enabled = code == Code::on;
}

} // namespace

void UpdateCommandState(Code card, Code del, Code horiz, Code vert, Code titles, Code links) {
    switch_group(Group::needs_card, card);
    switch_group(Group::del, del);
    switch_group(Group::horiz, horiz);
    switch_group(Group::vert, vert);
    switch_group(Group::titles, titles);
    // Off closes the submenu of the title commands; on opens the one of the alignments instead, so
    // that the title commands are reached through their icons only.
    if (titles == Code::off)
        fEditor->cmd_align_ots.Enabled = false;
    else if (titles == Code::on)
        fEditor->cmd_align.Enabled = true;
    switch_group(Group::links, links);
    refresh_icons();
}

void command_state_of_rebuilt_card() {
    using enum Code;
    UpdateCommandState(on, off, off, off, off, keep);
}

} // namespace kehystin
