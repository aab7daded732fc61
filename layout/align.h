// Aligning the selected fields, and the text of titles.
#pragma once

namespace kehystin {

/// "Tasaa vaakatasossa" and "Tasaa pystytasossa": to the extent of the selection. The common edge
/// goes to the panel where there is one.
void cmd_align_left_Click();
void cmd_align_right_Click();
void cmd_align_center_Click();
void cmd_valign_top_Click();
void cmd_valign_bottom_Click();
void cmd_valign_center_Click();

/// "Keskitä otsikot": write the word into the panel, whose row does the work.
void cmd_a_left_Click();
void cmd_a_right_Click();
void cmd_a_center_Click();

} // namespace kehystin
