// The rows of links: which titles can be linked, and which title a field belongs to.
#pragma once

namespace kehystin {

/// "Linkitettävä": keeps the selected titles out of automatic linking, or lets them in.
void txt_link_Change();

/// "Linkitys": a text with "AUTO" in it is automatic, any other manual. A field that becomes manual
/// begins with the title that it has.
void txt_linkitys_Change();
/// An item of the list was chosen; the keyboard goes on to "Linkki" if that can be edited.
void lst_linkitys_Click();

/// "Linkki": typed text links nothing.
void txt_linkki_Change();
/// A title was chosen: all selected fields are linked to it, also if its caption stands already.
void lst_linkki_Click();
/// Text that names no link is replaced by the title's caption.
void txt_linkki_LostFocus();

} // namespace kehystin
