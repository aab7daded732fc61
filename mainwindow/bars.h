// The bars of the main window, shown and hidden by their menu entries.
#pragma once

namespace kehystin {

void cmd_fldBar_Click();
void cmd_proBar_Click();
void cmd_icoBar_Click();
void cmd_stsBar_Click();

/// Brings field bar and panel up if they are hidden, as every new or opened card does.
void show_card_bars();
/// Where what had the keyboard has gone from sight, the icon bar has it, or the panel.
void keep_keyboard();

} // namespace kehystin
