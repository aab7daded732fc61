// fInfo: what the program is, and who makes it.
#pragma once

#include "platform/form.h"

#include <memory>

namespace kehystin {

using namespace platform;

class InfoForm : public Form {
  public:
    InfoForm();
    ~InfoForm() override;

    PictureBox picKehystin{this, "picKehystin"};
    Label labNimi{this, "labNimi"};
    Label labVersio{this, "labVersio"};
    Label labKuvaus{this, "labKuvaus"};
    Label labTekija{this, "labTekija"};
    Label labInternet{this, "labInternet"};
    Label lab_www{this, "lab_www"};
    Label labSahkoposti{this, "labSahkoposti"};
    Label labEmail{this, "labEmail"};

    Button cmd_ok{this, "cmd_ok"};
};

/// Null while the box is closed.
extern std::unique_ptr<InfoForm> fInfo;

} // namespace kehystin
