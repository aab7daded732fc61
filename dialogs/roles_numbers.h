// The customer number in the dialog of the field roles: how the register makes new numbers.
#pragma once

namespace kehystin {

/// Wires the number settings of fSpeciField.
void wire_number_settings();

/// The part of a click on cmbAsiakas that switches the settings: without a field there is no
/// number.
void cmbAsiakas_Click();

/// Raises what is too small in the card's number settings to the least that can stand there.
void repair_number_settings();
/// Shows the card's number settings, but not yet the sample.
void load_number_settings();
/// Shows the card's lowest number in the sample; raises overflow when the sample cannot hold it.
void load_sample();
/// Writes the settings to the card. Raises overflow before anything is written when one of the
/// numbers does not fit.
void store_number_settings();
/// Gives the keyboard to the first number that does not fit, if any, or to what switches it on.
void lead_to_misfit();

} // namespace kehystin
