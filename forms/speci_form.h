// fSpeciField: which field of the card has which role in the register.
#pragma once

#include "platform/form.h"

#include <array>
#include <memory>
#include <vector>

namespace kehystin {

using namespace platform;

/// The tree chooses one of seven panels, which all stand in the same place.
class SpeciForm : public Form {
  public:
    SpeciForm();
    ~SpeciForm() override;

    Label Label40{this, "Label40"};
    TreeView tree{this, "tree"};
    Frame frmAsetus{this, "frmAsetus"};

    // Customer or member number.
    Frame botAsiakas{this, "botAsiakas"};
    Label Label6{&botAsiakas, "Label6"};
    ComboBox cmbAsiakas{&botAsiakas, "cmbAsiakas"};
    Label Label10{&botAsiakas, "Label10"};
    CheckBox chkGeneroi{&botAsiakas, "chkGeneroi"};
    Frame frmNumero{&botAsiakas, "frmNumero"};
    Label labArvoalue{&frmNumero, "labArvoalue"};
    TextBox txtAsiakasMin{&frmNumero, "txtAsiakasMin"};
    ScrollBar scrAsiakasMin{&frmNumero, "scrAsiakasMin"};
    TextBox txtAsiakasMax{&frmNumero, "txtAsiakasMax"};
    ScrollBar scrAsiakasMax{&frmNumero, "scrAsiakasMax"};
    Label labAskel{&frmNumero, "labAskel"};
    TextBox txtAsiakasStep{&frmNumero, "txtAsiakasStep"};
    ScrollBar scrAsiakasStep{&frmNumero, "scrAsiakasStep"};
    CheckBox chkValiarvot{&frmNumero, "chkValiarvot"};
    CheckBox chkEtunollat{&frmNumero, "chkEtunollat"};
    TextBox txtAsiakasNum{&frmNumero, "txtAsiakasNum"};
    ScrollBar scrAsiakasNum{&frmNumero, "scrAsiakasNum"};
    Label labNroMalli{&frmNumero, "labNroMalli"};
    Label labMalli{&frmNumero, "labMalli"};

    // Dates and times, 1 to 4.
    Frame botPaivays{this, "botPaivays"};
    Label Label8{&botPaivays, "Label8"};
    Label labKentta{&botPaivays, "labKentta"};
    Label labPikavalinta{&botPaivays, "labPikavalinta"};
    Collection<ComboBox> cmbDate{&botPaivays, "cmbDate"};
    Collection<ComboBox> cmbPaivays{&botPaivays, "cmbPaivays"};

    // Internet and e-mail.
    Frame botInternet{this, "botInternet"};
    Label Label2{&botInternet, "Label2"};
    ComboBox cmbEmail{&botInternet, "cmbEmail"};
    Label Label3{&botInternet, "Label3"};
    ComboBox cmbHttp{&botInternet, "cmbHttp"};

    // Invoices.
    Frame botLaskutus{this, "botLaskutus"};
    Label Label4{&botLaskutus, "Label4"};
    ComboBox cmbLasku{&botLaskutus, "cmbLasku"};
    ComboBox cmbViite{&botLaskutus, "cmbViite"};
    ComboBox cmbErapaiva{&botLaskutus, "cmbErapaiva"};
    ComboBox cmbSumma{&botLaskutus, "cmbSumma"};

    // Products.
    Frame botTuote{this, "botTuote"};
    Label Label7{&botTuote, "Label7"};
    ComboBox cmbKoodi{&botTuote, "cmbKoodi"};
    ComboBox cmbTuote{&botTuote, "cmbTuote"};
    ComboBox cmbHinta{&botTuote, "cmbHinta"};

    // Addresses.
    Frame botOsoite{this, "botOsoite"};
    Label Label5{&botOsoite, "Label5"};
    ComboBox cmbPostinumero{&botOsoite, "cmbPostinumero"};
    ComboBox cmbToimipaikka{&botOsoite, "cmbToimipaikka"};
    ComboBox cmbMaa{&botOsoite, "cmbMaa"};
    Label Label9{&botOsoite, "Label9"};
    CheckBox chkAutoZip{&botOsoite, "chkAutoZip"};

    // Names.
    Frame botPerhe{this, "botPerhe"};
    Label Label1{&botPerhe, "Label1"};
    ComboBox cmbSukunimi{&botPerhe, "cmbSukunimi"};
    ComboBox cmbEtunimi{&botPerhe, "cmbEtunimi"};
    ComboBox cmbLaskuselite{&botPerhe, "cmbLaskuselite"};

    Button cmdOK{this, "cmdOK"};
    Button cmdPeruuta{this, "cmdPeruuta"};
    Button cmdOhje{this, "cmdOhje"};

    /// What stands before the boxes of the roles: labRooli, by the number of the role.
    std::vector<std::unique_ptr<Label>> role_labels;

    /// The number that the sample shows.
    Integer malliArvo;
    /// Where the spin controls of the number settings stood last: lowest, highest, step, digits.
    std::array<int, 4> spin_places{};

    std::array<Frame*, 7> panels() {
        return {&botAsiakas, &botPaivays, &botInternet, &botLaskutus,
                &botTuote,   &botOsoite,  &botPerhe};
    }
};

/// Null while the dialog is closed.
extern std::unique_ptr<SpeciForm> fSpeciField;

} // namespace kehystin
