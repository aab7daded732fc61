// The dialog of the column order.
#pragma once

namespace kehystin {

/// "Sarakejärjestys...": the user puts the titles in order. With OK the records follow, also when
/// no title has moved, and the surface is built anew.
void cmd_cols_Click();

} // namespace kehystin
