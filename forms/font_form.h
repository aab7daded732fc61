// fFont: family, size, style and the two colours of a sample.
#pragma once

#include "forms/picture_panel.h"
#include "platform/form.h"

#include <memory>

namespace kehystin {

using namespace platform;

class FontForm : public Form {
  public:
    static constexpr int smallest_size = 4;
    static constexpr int largest_size = 30;

    FontForm();
    ~FontForm() override;

    Label lab_font{this, "lab_font"};
    ListBox lst_font{this, "lst_font"};
    TextBox txt_font{this, "txt_font"};
    Label lab_style{this, "lab_style"};
    ListBox lst_style{this, "lst_style"};
    TextBox txt_style{this, "txt_style"};
    Label lab_size{this, "lab_size"};
    ListBox lst_size{this, "lst_size"};
    TextBox txt_size{this, "txt_size"};
    PicturePanel bot{this, "bot"};
    Label ots{&bot, "ots"};
    /// The buttons stand beside the swatches and do the same, for the keyboard.
    Button cmd_bc{this, "cmd_bc"};
    PicturePanel BC{this, "BC"};
    Button cmd_fc{this, "cmd_fc"};
    PicturePanel FC{this, "FC"};
    Button cmd_ok{this, "cmd_ok"};
    Button cmd_cancel{this, "cmd_cancel"};
};

/// Null while the dialog is closed.
extern std::unique_ptr<FontForm> fFont;

} // namespace kehystin
