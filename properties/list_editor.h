// The list editor of a drop-down: a pop-up with the items and what can be done to them.
#pragma once

namespace kehystin {

/// Opens the editor under its row.
void cmd_list_Click();
void cmd_list_add_Click();
void cmd_list_change_Click();
void cmd_list_del_Click();
void cmd_list_up_Click();
void cmd_list_down_Click();
/// Enables the buttons that the chosen item allows.
void lst_list_Click();
/// The text cannot be edited: it says the first item.
void txt_list_Change();
/// The editor closes when the keyboard leaves it.
void bot_list_LostFocus();
/// Escape closes the editor.
void bot_list_KeyPress(char32_t& key);

/// What happens when the joined items are longer than a record holds.
enum class Overlong { warn, cut_silently };

/// Carries the items to the records of all selected fields, to the objects of drop-downs and to the
/// panel.
/// False, after a warning, when the record could not hold all of them.
bool UpdateCombo(Overlong overlong);

} // namespace kehystin
