// The checks before a card is written: what the register program would stumble over.
#pragma once

namespace kehystin {

// Each marks the fields it means in red while its box stands, and gives them their own colours
// back. False stops the save. They trim the texts they read in the records.

/// No data field without a title.
bool chk_nodata();
/// Titles without data fields are asked about, and marked "NOLINK" if they are to stay so.
bool chk_nolink();
/// More than 50 linked titles are asked about.
bool chk_maxdata();
/// Check and option fields that show no label are asked about.
bool chk_selots();
/// Linked titles of the same caption are asked about.
bool chk_sameots();

/// All of them in their order. The number by which a save tells its failure is in `step`. False as
/// soon as one stops the save.
bool run_save_checks(int& step);

/// Moves the titles marked "NOLINK" to the front of the field array, keeping the order of the rest.
/// Nothing calls it: a save leaves the fields in their order.
void order_nolink();

} // namespace kehystin
