// The panel's list of titles, from which a manual link is chosen.
#pragma once

namespace kehystin {

/// Refills lst_linkki: each title's caption in order, the title's number beside it. Trims the
/// captions in the records.
void FillLinkList();

} // namespace kehystin
