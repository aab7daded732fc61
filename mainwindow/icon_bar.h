// The icon bar: which icons stand, what they show, what a click runs, and their tips.
#pragma once

#include "forms/editor_form.h"

#include <span>
#include <string_view>

namespace kehystin {

enum class IconClick { none, runs_entry };
enum class GreyState { none, follows_entry };
/// Whether the icon's command switches something on and off.
enum class IconKind { command, toggle };

struct Icon {
    int number;
    Menu EditorForm::*entry;   ///< null for an icon without a command
    std::string_view picture;  ///< the grey one has a 0 behind its name
    std::string_view tip = {}; ///< empty: the icon has none
    IconClick click = IconClick::runs_entry;
    GreyState grey = GreyState::follows_entry;
    IconKind kind = IconKind::command;
};

/// All icons that have a picture, in ascending number.
std::span<Icon const> icon_table();

/// Number of a separator in the list of icons.
inline constexpr int icon_separator = 30;
inline constexpr int icon_save = 3;
inline constexpr int icon_links = 11;

/// Fills the list of the settings with the icons that a new user gets.
void SetDefaultIcons();
/// Builds the bar from the list of the settings. Changes iconCount and icoWrap.
void set_ico();
/// Enables and draws the icons that stand as their menu entries are.
void refresh_icons();
/// The same for the icon of one number, if it stands.
void refresh_icon(int number);

/// Runs the command of the icon in that place of the bar.
void ico_Click(int index);

} // namespace kehystin
