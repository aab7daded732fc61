// fProp: the settings.
#pragma once

#include "platform/form.h"

#include <memory>

namespace kehystin {

using namespace platform;

/// The spin controls hold the densities negated: their upper arrows then count up.
class PropForm : public Form {
  public:
    PropForm();
    ~PropForm() override;

    Label lab_info{this, "lab_info"};

    Frame Frame1{this, "Frame1"};
    Label lab_grid_X{&Frame1, "lab_grid_X"};
    TextBox txt_grid_X{&Frame1, "txt_grid_X"};
    ScrollBar scr_grid_X{&Frame1, "scr_grid_X"};
    Label lab_grid_Y{&Frame1, "lab_grid_Y"};
    TextBox txt_grid_Y{&Frame1, "txt_grid_Y"};
    ScrollBar scr_grid_Y{&Frame1, "scr_grid_Y"};

    Frame Frame2{this, "Frame2"};
    Label lab_guide_X{&Frame2, "lab_guide_X"};
    TextBox txt_guide_X{&Frame2, "txt_guide_X"};
    ScrollBar scr_guide_X{&Frame2, "scr_guide_X"};
    Label lab_guide_Y{&Frame2, "lab_guide_Y"};
    TextBox txt_guide_Y{&Frame2, "txt_guide_Y"};
    ScrollBar scr_guide_Y{&Frame2, "scr_guide_Y"};

    CheckBox chk_showLastFiles{this, "chk_showLastFiles"};
    CheckBox chk_savePos{this, "chk_savePos"};
    CheckBox chkShowVelho{this, "chkShowVelho"};

    Button cmd_ok{this, "cmd_ok"};
    Button cmd_cancel{this, "cmd_cancel"};
    Button cmd_help{this, "cmd_help"};
};

/// Null while the dialog is closed.
extern std::unique_ptr<PropForm> fProp;

} // namespace kehystin
