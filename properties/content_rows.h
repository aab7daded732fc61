// The rows of what stands in a field: caption and default value.
#pragma once

namespace kehystin {

/// "Otsikko": each key goes to the caption of all selected fields.
void txt_caption_Change();

/// "Alkuarvo": free text for text fields; "Valittu" or not for check and option fields, where one
/// option at most is on over the whole card; for a drop-down the item of that text, or none for an
/// empty one.
void txt_value_Change();

} // namespace kehystin
