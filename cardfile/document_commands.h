// New, open, save, save as and close.
#pragma once

#include "card/card.h"

#include <optional>
#include <string>

namespace kehystin {

void cmd_new_Click();
void cmd_open_Click();
void cmdTallenna_Click();
void cmdTallennaNimella_Click();
void cmd_close_Click();

/// Opens the card that was kept in the file `kept` as the modified card of `file`, which may be
/// empty, after the question about unsaved changes. The card as it was read, before its links were
/// renewed; nothing when it is not open then.
std::optional<CardData> open_kept_card(std::string const& kept, std::string const& file,
                                       bool new_id);

/// Opens the file of a place in the list of files opened last.
void lastFile_Click(int index);

} // namespace kehystin
