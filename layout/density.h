// How densely the fields of a card stand, and titles beside their fields.
#pragma once

namespace kehystin {

/// "Tiivistä" and "Harvenna pystytiheyttä": sort the records by their place from the top, stack all
/// data fields in one column with the gap of the first two, two pixels less or more, and let the
/// titles follow.
void cmd_dense_Click();
void cmd_expand_Click();

/// "Keskitä linkitetyt kentät": after a question, puts each title of several data fields beside the
/// first of them.
void cmd_valign_link_Click();

} // namespace kehystin
