// The rows of image fields: scaling, picture file, frame.
#pragma once

namespace kehystin {

/// "Skaalaus": a word of the list goes to all selected fields. One that changes how a picture looks
/// asks once, if a selected field has a picture; a No scales nothing.
void txt_scale_Change();

/// "Kehys".
void txt_border_Change();

/// "Kuvatiedosto": asks for one file and gives it to all selected image fields.
void cmd_imgfile_Click();
/// Asks for a file where there is none, and takes the pictures away where there is one.
void txt_imgfile_DblClick();
/// The text cannot be edited: it says what it said.
void txt_imgfile_Change();

} // namespace kehystin
