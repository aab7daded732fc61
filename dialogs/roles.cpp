#include "dialogs/roles.h"

#include "boxes/failure_report.h"
#include "dialogs/help.h"
#include "dialogs/modal.h"
#include "dialogs/roles_boxes.h"
#include "dialogs/roles_numbers.h"
#include "forms/speci_form.h"
#include "mainwindow/document_state.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/host.h"

#include <string_view>

namespace kehystin {

namespace {

void tree_NodeClick() {
    auto& form = *fSpeciField;
    int const chosen = form.tree.ListIndex;
    form.frmAsetus.Caption = " " + form.tree.chosen_text() + " ";
    for (auto* const panel : form.panels())
        panel->Visible = false;
    form.panels().at(static_cast<std::size_t>(chosen))->Visible = true;
}

/// The nodes, in the order of the panels.
void LoadTreeView() {
    auto& tree = fSpeciField->tree;
    for (std::string_view const text :
         {"Asiakas- tai jäsennumero", "Päivämäärä tai kellonaika", "Internet ja sähköposti",
          "Laskutus", "Tuoterekisteri", "Osoitekentät", "Nimikentät"})
        tree.AddItem(text);
    tree.ListIndex = 0;
}

void store() {
    store_number_settings(); // first: it alone can fail
    store_role_boxes();
    store_quick_choices();
    card.autoZip = fSpeciField->chkAutoZip.Value != 0;
}

void cmdOK_Click() {
    try {
        if (session.cardFormLoaded) {
            store();
            MarkCardChanged();
        }
    } catch (RuntimeError const& error) {
        standard_report(" Kenttämääritysten tallentaminen aiheutti virheen     ", error);
        lead_to_misfit();
        return;
    }
    fSpeciField->Close();
}

void cmdPeruuta_Click() {
    fSpeciField->Close();
}

void wire() {
    fSpeciField->tree.Click = tree_NodeClick;
    wire_role_boxes();
    wire_number_settings();
    fSpeciField->cmdOK.Click = cmdOK_Click;
    fSpeciField->cmdPeruuta.Click = cmdPeruuta_Click;
    fSpeciField->cmdOhje.Click = ShowHelp;
}

void place() {
    constexpr double left_of_the_middle = 300;
    auto& form = *fSpeciField;
    auto const screen = host().metrics();
    form.Left = screen.width * screen.TwipsPerPixelX / 2 - form.Width / 2 - left_of_the_middle;
    form.Top = screen.height * screen.TwipsPerPixelY / 2 - form.Height / 2;
}

/// A lowest number that the sample cannot show must not keep the rest from its dialog.
void load_sample_or_tell() {
    try {
        load_sample();
    } catch (RuntimeError const& error) {
        standard_report(" Kenttämääritysten lataaminen aiheutti virheen     ", error);
    }
}

void Form_Load() {
    auto& form = *fSpeciField;
    place();
    for (auto* const panel : form.panels())
        panel->BackColor = form.BackColor;
    wire();
    LoadTreeView();
    fill_quick_choices();
    load_role_boxes();
    repair_number_settings();
    load_number_settings();
    load_quick_choices();
    load_sample_or_tell();
    if (card.autoZip)
        form.chkAutoZip.Value = 1;
    session.helpTopic = "tyokalutKenttamaaritykset.htm";
}

} // namespace

void cmdSpecifield_Click() {
    show_dialog(fSpeciField, Form_Load);
}

} // namespace kehystin
