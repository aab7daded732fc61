// Selection frames: an outline with one pixel to spare around each field.
#pragma once

#include "model/card.h"
#include "platform/controls.h"

namespace kehystin {

/// Makes the hidden frame of a field, in the colour of the lock.
void add_frame(int number);

/// Frames are white while fields are locked and red otherwise; the padlock shows with them.
void show_lock_state();

/// "Lukitse kentät": flips the lock.
void cmd_lock_Click();

/// The fields are unlocked, as behind every new or opened card.
void unlock_fields();

} // namespace kehystin
