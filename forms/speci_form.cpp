#include "forms/speci_form.h"

#include "forms/dialog_layout.h"
#include "platform/host.h"

namespace kehystin {

std::unique_ptr<SpeciForm> fSpeciField;

namespace {

using namespace layout;

constexpr double panel_left = 2880;
constexpr double panel_top = 540;
constexpr double panel_width = 5760;
constexpr double panel_height = 4590;
constexpr double frame_left = panel_left - gap;
constexpr double frame_top = margin;
constexpr double frame_bottom = panel_top + panel_height + gap;
constexpr double inner_width = panel_left + panel_width + gap + margin;
constexpr double inner_height = frame_bottom + margin + button_height + margin;

constexpr double text_line = 210;
constexpr double label_drop = 60; // a label's line stands level with that of the box beside it
constexpr double row_step = box + gap;
constexpr double box_left = 1680;
constexpr double box_width = panel_width - box_left;

/// Puts an explanation across a panel and returns where what follows it begins.
double place_text(Label& label, double top, int lines, std::string_view text) {
    label.Caption = std::string(text);
    label.Move(0, top, panel_width, lines * text_line);
    return top + lines * text_line + gap;
}

struct RoleRow {
    int role;
    std::string_view label;
    ComboBox& combo;
};

/// Rows of label and box, from a place on; returns where what follows begins.
double place_rows(SpeciForm& form, Frame& panel, double top, std::initializer_list<RoleRow> rows) {
    for (auto const& row : rows) {
        auto& label =
            *form.role_labels.emplace_back(std::make_unique<Label>(&panel, "labRooli", row.role));
        label.Caption = std::string(row.label);
        label.Move(0, top + label_drop, box_left - gap, box - label_drop);
        row.combo.Move(box_left, top, box_width, box);
        row.combo.BackColor = colours::white;
        row.combo.set_spoken_name(row.label);
        label.caption_of = &row.combo;
        top += row_step;
    }
    return top + margin - gap;
}

constexpr double number_left = 1320; // text boxes of the number settings
constexpr double number_width = 1020;
constexpr double spin_width = 270;
constexpr double second_left = 2940;

void place_number(TextBox& text, ScrollBar& spin, double left, double top,
                  std::string_view spoken_name) {
    constexpr int range = 1000;
    text.Move(left, top, number_width, box);
    text.BackColor = colours::white;
    spin.Move(left + number_width + 30, top, spin_width, box);
    text.set_spoken_name(spoken_name);
    spin.set_spoken_name(spoken_name);
    spin.Min = -range;
    spin.Max = range;
}

void build_number_settings(SpeciForm& form, double top) {
    constexpr double first_row = 360;
    double const left = margin;
    form.frmNumero.Caption = " Numeroasetukset ";
    form.frmNumero.Move(0, top, panel_width, panel_height - top);
    double row_top = first_row;
    auto const place_label = [&](Label& label, std::string_view caption) {
        label.Caption = std::string(caption);
        label.Move(left, row_top + label_drop, number_left - left - gap, box - label_drop);
    };
    place_label(form.labArvoalue, "Arvoalue");
    place_number(form.txtAsiakasMin, form.scrAsiakasMin, number_left, row_top, "Arvoalueen alku");
    place_number(form.txtAsiakasMax, form.scrAsiakasMax, second_left, row_top, "Arvoalueen loppu");
    form.labArvoalue.caption_of = &form.txtAsiakasMin;
    row_top += row_step;
    place_label(form.labAskel, "Askel");
    form.labAskel.caption_of = &form.txtAsiakasStep;
    place_number(form.txtAsiakasStep, form.scrAsiakasStep, number_left, row_top,
                 form.labAskel.Caption.get());
    form.chkValiarvot.Caption = "Salli väliarvot";
    form.chkValiarvot.Move(second_left, row_top, 2400, box);
    row_top += row_step;
    form.chkEtunollat.Caption = "Etunollat";
    form.chkEtunollat.Move(left, row_top, number_left - left - gap / 2, box);
    place_number(form.txtAsiakasNum, form.scrAsiakasNum, number_left, row_top,
                 form.chkEtunollat.Caption.get());
    row_top += row_step;
    place_label(form.labNroMalli, "Malli");
    form.labMalli.BorderStyle = 1;
    form.labMalli.Alignment = static_cast<int>(Alignment::centre);
    form.labMalli.Move(number_left, row_top + label_drop / 2,
                       second_left + number_width + 30 + spin_width - number_left, 255);
}

void build_customers(SpeciForm& form) {
    double top = place_text(
        form.Label6, 0, 4,
        "Valitse alasvetovalikoista kenttä, joka sisältää tietueen asiakas-, jäsen-, tai muun "
        "vastaavan numeron. Kentän sisältämä tieto voidaan siirtää laskutulostukseen "
        "automaattisesti.");
    top = place_rows(form, form.botAsiakas, top, {{3, "Numerokenttä", form.cmbAsiakas}});
    top = place_text(form.Label10, top, 2,
                     "Haluatko että ohjelma antaa uudelle tietueelle automaattisesti numeron kun "
                     "lisäät uuden tietueen rekisteriin?");
    top -= gap / 2;
    form.chkGeneroi.Caption = "Kyllä, lisää numero automaattisesti";
    form.chkGeneroi.Move(0, top, panel_width, row);
    build_number_settings(form, top + row + gap);
}

void build_dates(SpeciForm& form) {
    constexpr double quick_width = 2100;
    constexpr double quick_left = panel_width - quick_width;
    double top = place_text(
        form.Label8, 0, 4,
        "Valitse alasvetovalikoista kentät, jotka sisältävät päivämääriä tai kellonaikoja. Ohjelma "
        "lajittelee määritellyt sarakkeet päiväyksen mukaan. Voit myös asettaa erilaisia "
        "pikavalintoja kyseisille kentille.");
    form.labKentta.Caption = "Kenttä";
    form.labKentta.Move(0, top, quick_left - gap, 240);
    form.labPikavalinta.Caption = "Pikavalinta";
    form.labPikavalinta.Move(quick_left, top, quick_width, 240);
    top += 270;
    for (int i = 1; i <= 4; ++i) {
        auto& date = form.cmbDate.Load(i);
        date.Move(0, top, quick_left - gap, box);
        auto& quick = form.cmbPaivays.Load(i);
        quick.Move(quick_left, top, quick_width, box);
        for (auto* const combo : {&date, &quick}) {
            combo->BackColor = colours::white;
            combo->Visible = true;
        }
        date.set_spoken_name(form.labKentta.Caption.get() + " " + std::to_string(i));
        quick.set_spoken_name(form.labPikavalinta.Caption.get() + " " + std::to_string(i));
        top += row_step;
    }
}

void build_internet(SpeciForm& form) {
    double top = place_text(
        form.Label2, 0, 3,
        "Valitse alasvetovalikosta kenttä, joka sisältää tietueen sähköpostiosoitteen. Ohjelma "
        "käyttää tietoa sähköpostin vastaanottajia määriteltäessä.");
    top = place_rows(form, form.botInternet, top, {{1, "Sähköposti", form.cmbEmail}});
    top = place_text(
        form.Label3, top + gap, 3,
        "Valitse alasvetovalikosta kenttä, joka sisältää tietueen internet-osoitteen. Ohjelma voi "
        "avata kenttään kirjatun osoitteen internet-selaimessa automaattisesti.");
    place_rows(form, form.botInternet, top, {{2, "URL-osoite", form.cmbHttp}});
}

void build_invoices(SpeciForm& form) {
    double const top = place_text(
        form.Label4, 0, 4,
        "Valitse alasvetovalikoista kentät, jotka sisältävät tietueen laskutustiedot. Ohjelma voi "
        "siirtää määritellyt tiedot tietueista automaattisesti laskutulostukseen ja "
        "sähköpostilaskuun.");
    place_rows(form, form.botLaskutus, top,
               {{4, "Laskunumero", form.cmbLasku},
                {5, "Viitenumero", form.cmbViite},
                {6, "Eräpäivä", form.cmbErapaiva},
                {7, "Summa", form.cmbSumma}});
}

void build_products(SpeciForm& form) {
    double const top = place_text(
        form.Label7, 0, 4,
        "Valitse alasvetovalikoista kentät, jotka sisältävät tietueen tuotetiedot. Ohjelma voi "
        "käyttää määriteltyä tuoterekisteriä ALV-laskelmien tietokantana ja täydentää laskemia "
        "automaattisesti.");
    place_rows(form, form.botTuote, top,
               {{12, "Koodi", form.cmbKoodi},
                {13, "Kuvaus", form.cmbTuote},
                {14, "Hinta", form.cmbHinta}});
}

void build_addresses(SpeciForm& form) {
    double top = place_text(
        form.Label5, 0, 4,
        "Valitse alasvetovalikoista kentät, jotka sisältävät tietueen osoitetiedot. Ohjelma voi "
        "täydentää postitoimipaikan ja maan automaattisesti annetun suomalaisen postinumeron "
        "perusteella.");
    top = place_rows(form, form.botOsoite, top,
                     {{15, "Postinumero", form.cmbPostinumero},
                      {16, "Postitoimipaikka", form.cmbToimipaikka},
                      {17, "Maa", form.cmbMaa}});
    top = place_text(form.Label9, top + gap, 2,
                     "Haluatko että ohjelma täydentää antamaasi postinumeroa vastaavan "
                     "postitoimipaikan ja maan automaattisesti?");
    form.chkAutoZip.Caption = "Kyllä, täydennä osoitetiedot automaattisesti";
    form.chkAutoZip.Move(0, top - gap / 2, panel_width, row);
}

void build_names(SpeciForm& form) {
    double const top = place_text(
        form.Label1, 0, 4,
        "Valitse alasvetovalikoista kentät, jotka sisältävät tietueen nimitiedot. Määriteltyjen "
        "kenttien avulla voit muodostaa perheitä ja tulostaa perhekohtaisia laskuja.");
    place_rows(form, form.botPerhe, top,
               {{18, "Sukunimi", form.cmbSukunimi},
                {19, "Etunimi", form.cmbEtunimi},
                {27, "Maksuselite", form.cmbLaskuselite}});
}

void build_buttons(SpeciForm& form) {
    form.cmdOK.Caption = "OK";
    form.cmdOK.Default = true;
    form.cmdPeruuta.Caption = "Peruuta";
    form.cmdPeruuta.Cancel = true;
    form.cmdOhje.Caption = "&Ohje";
    place_buttons({&form.cmdOK, &form.cmdPeruuta}, &form.cmdOhje, inner_width, inner_height);
    for (auto* const button : {&form.cmdOK, &form.cmdPeruuta, &form.cmdOhje})
        button->TabIndex =
            static_cast<int>(form.tab_order().size()); // behind the dates, made later
}

void use_font(SpeciForm& form, std::string const& name) {
    if (!host().accepts_font(name))
        return;
    for (auto* const control : form.controls())
        if (auto* const text = dynamic_cast<TextControl*>(control))
            text->FontName = name;
}

} // namespace

SpeciForm::SpeciForm() : Form("fSpeciField", FormKind::dialog) {
    Caption = " Kenttämääritykset";
    set_inner_size(*this, inner_width, inner_height);
    Label40.Caption = "Kenttätyyppi";
    Label40.Move(margin, frame_top, frame_left - 2 * margin, 240);
    tree.Move(margin, panel_top - gap, frame_left - margin - gap, frame_bottom - panel_top + gap);
    tree.BackColor = colours::white;
    tree.set_spoken_name(Label40.Caption.get());
    Label40.caption_of = &tree;
    frmAsetus.Caption = " Valittu asetus ";
    frmAsetus.Move(frame_left, frame_top, panel_width + 2 * gap, frame_bottom - frame_top);
    for (auto* const panel : panels()) {
        panel->BorderStyle = 0;
        panel->Visible = false;
        panel->Move(panel_left, panel_top, panel_width, panel_height);
    }
    build_customers(*this);
    build_dates(*this);
    build_internet(*this);
    build_invoices(*this);
    build_products(*this);
    build_addresses(*this);
    build_names(*this);
    build_buttons(*this);
    use_font(*this, "Tahoma");
}

SpeciForm::~SpeciForm() {
    begin_unload();
}

} // namespace kehystin
