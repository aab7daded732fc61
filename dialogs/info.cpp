#include "dialogs/info.h"

#include "base/maker.h"
#include "boxes/failure_report.h"
#include "dialogs/modal.h"
#include "forms/info_form.h"
#include "model/session.h"
#include "platform/base.h"
#include "platform/host.h"

namespace kehystin {

namespace {

/// The program's version record.
struct Version {
    int major = KEHYSTIN_VERSION_MAJOR;
    int minor = KEHYSTIN_VERSION_MINOR;
    int revision = KEHYSTIN_VERSION_REVISION;
};

void lab_www_Click() {
    if (!OpenLink(std::string(maker::web_address)))
        MsgBox(lines({" Järjestelmä ei saa suoraa Internet-yhteyttä muodostettua.    ",
                      " Asenna www-selain tai ota yhteys toisesta järjestelmästä.", ""}),
               box::information, session.appTitle);
}

void labEmail_Click() {
    if (!OpenLink("mailto:" + std::string(maker::support_address)))
        MsgBox(lines({" Järjestelmä ei saa avattua oletussähköpostiohjelmaa.    ", ""}),
               box::information, session.appTitle);
}

void cmd_ok_Click() {
    fInfo->Close();
}

void Form_Load() {
    fInfo->lab_www.Click = lab_www_Click;
    fInfo->labEmail.Click = labEmail_Click;
    fInfo->cmd_ok.Click = cmd_ok_Click;
    Version const version;
    fInfo->labVersio.Caption = "Versio " + Format(version.major) + "." + Format(version.minor) +
                               " Revisio " + Format(version.revision);
}

} // namespace

bool OpenLink(std::string const& target) {
    return host().open_link(target);
}

void cmd_info_Click() {
    show_dialog(fInfo, Form_Load);
}

} // namespace kehystin
