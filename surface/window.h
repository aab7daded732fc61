// The card's window: opening, closing, resizing, and clicks that must leave no trace.
#pragma once

namespace kehystin {

/// Wires all events of a new surface to their handlers.
void wire_card_form();

void Form_Load();
void Form_Unload();
/// A close by the user asks first and is then left to closeTimer; the window itself never closes
/// from its own event.
void Form_QueryUnload(bool user, bool& cancel);
/// Keeps the window at 900 twips at least, selects the card, and hands its size to the panel.
void Form_Resize();
/// Waits for the left mouse button to come up: the only sign that the border was let go.
void resizeTimer_Timer();

void chk_Click(int index);
void opt_Click(int index);
void img_DblClick(int index);

} // namespace kehystin
