// fCols: the titles of a card in the order of its columns.
#pragma once

#include "platform/form.h"

#include <memory>

namespace kehystin {

using namespace platform;

class ColsForm : public Form {
  public:
    ColsForm();
    ~ColsForm() override;

    /// The titles; beside each stands its number on the card.
    ListBox lst{this, "lst"};
    Button cmd_up{this, "cmd_up"};
    Button cmd_down{this, "cmd_down"};
    Button cmd_ok{this, "cmd_ok"};
    Button cmd_cancel{this, "cmd_cancel"};
};

/// Null while the dialog is closed.
extern std::unique_ptr<ColsForm> fCols;

} // namespace kehystin
