// The rows that edit the card alone. Its width and height: number_rows.
#pragma once

namespace kehystin {

/// "Nimi": each key goes to the card's name and to the caption of its window.
void txt_name_Change();

/// "Läpinäkyvä": titles, marks and images show the card behind them, or their own colour.
void txt_transp_Change();

/// "Taustakuva": a picture file for the card. A file that is no picture is told and changes
/// nothing.
void cmd_picture_Click();
/// Takes the picture away.
void txt_picture_DblClick();
/// The text cannot be edited: it says what it said.
void txt_picture_Change();

} // namespace kehystin
