// The rows that edit the card itself.
#pragma once

namespace kehystin {

/// "Nimi": each key goes to the card's name and to the caption of its window.
void txt_name_Change();

} // namespace kehystin
