// The menu tree as one table: captions, start states, shortcuts, and the group by which the state
// of the commands switches an entry.
#pragma once

#include "forms/editor_form.h"

#include <span>
#include <string_view>

namespace kehystin {

enum class Start { on, off, hidden, hidden_off };
enum class Mark { none, checked };
/// The code of UpdateCommandState that an entry follows.
enum class Group { none, needs_card, del, horiz, vert, titles, links };

struct MenuEntry {
    Menu EditorForm::*entry;
    std::string_view caption;
    Start start = Start::on;
    Mark mark = Mark::none;
    std::string_view shortcut = {};
    Group group = Group::none;
};

std::span<MenuEntry const> menu_table();

/// Gives the main window's menus their captions, shortcuts and start states.
void build_menus();

} // namespace kehystin
