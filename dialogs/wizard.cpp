#include "dialogs/wizard.h"

#include "boxes/failure_report.h"
#include "dialogs/font_dialog.h"
#include "dialogs/modal.h"
#include "dialogs/wizard_card.h"
#include "forms/velho_form.h"
#include "model/session.h"
#include "model/settings.h"
#include "platform/host.h"
#include "platform/system.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace kehystin {

namespace {

/// The finished card. It becomes the open one when the wizard has gone: until then whatever looks
/// at the surface still needs the records that it was built from.
std::optional<WizardCard> finished;

/// What goes out of sight with its page leaves the keyboard to nobody: it goes to the next page,
/// where Enter still leads on.
void leave_keyboard_to(int page) {
    auto& form = *fVelho;
    if (System::current().focused())
        return;
    if (page == 3)
        (form.optPosTop.Value ? form.optPosTop : form.optPosLeft).SetFocus();
    else if (page == 4)
        form.cmdSeuraava.SetFocus();
}

void show_page(int number) {
    constexpr std::array<std::string_view, VelhoForm::pages> lines_of_pages = {
        "1 / 4  Valitse tekstikenttien lukumäärä", "2 / 4  Anna tekstikentille otsikot",
        "3 / 4  Valitse otsikoiden sijoittelu", "4 / 4  Valitse käytettävät fontit"};
    fVelho->labInfo.Caption = std::string(lines_of_pages.at(static_cast<std::size_t>(number - 1)));
    for (int i = 1; i <= VelhoForm::pages; ++i)
        fVelho->picVaihe(i).Visible = i == number;
    fVelho->vaihe = number;
    leave_keyboard_to(number);
}

// Page 1.

void load_rows(int count) {
    auto& form = *fVelho;
    for (int i = form.ladattu; i > count; --i) {
        form.labOtsikko.Unload(i);
        form.txtOtsikko.Unload(i);
    }
    for (int i = form.ladattu + 1; i <= count; ++i) {
        form.load_row(i);
        form.labOtsikko(i).Caption = "Kenttä " + std::to_string(i) + ":";
        form.txtOtsikko(i).set_spoken_name("Kenttä " + std::to_string(i));
        if (auto const& title = form.otsikot.at(static_cast<std::size_t>(i)); !title.empty())
            form.txtOtsikko(i).Text = title;
        form.labOtsikko(i).Visible = true;
        form.txtOtsikko(i).Visible = true;
    }
    form.ladattu = count;
}

void fit_scroll_bar(int count) {
    auto& form = *fVelho;
    double const room = form.picOtsikko.Height;
    double const needed = VelhoForm::height_of_rows(count);
    bool const scrolls = count > VelhoForm::rows_in_view;
    form.scrOtsikko.Visible = scrolls;
    form.scrOtsikko.Max = scrolls ? static_cast<int>(needed - room) : 0;
    form.scrOtsikko.Value = 0;
    form.botOtsikko.Top = 0;
    form.botOtsikko.Height = scrolls ? needed : room;
}

/// Takes the number of fields over, or says what it may be.
bool take_count() {
    double const number = Val(fVelho->txtMaara.Text.get());
    bool const fits = number >= 1 && number <= VelhoForm::most_fields;
    if (!fits) {
        MsgBox(lines({" Tekstikenttien määrän tulee olla välillä 1-40. ", ""}), box::information,
               " Tiedoksi");
        lead_back_to(fVelho->txtMaara);
        return false;
    }
    fVelho->maara = Integer(number);
    load_rows(fVelho->maara);
    fit_scroll_bar(fVelho->maara);
    fVelho->paint_rows();
    return true;
}

// Page 2.

void txtOtsikko_Change(int index) {
    fVelho->otsikot.at(static_cast<std::size_t>(index)) = fVelho->txtOtsikko(index).Text;
}

/// A row that the keyboard comes to is brought into view.
void txtOtsikko_GotFocus(int index) {
    auto& form = *fVelho;
    auto& text = form.txtOtsikko(index);
    text.select_all();
    if (!form.scrOtsikko.Visible)
        return;
    double const room = form.picOtsikko.Height;
    double const bottom = text.Top + text.Height + form.txtOtsikko(1).Top;
    double const top = text.Top - form.txtOtsikko(1).Top;
    int const value = form.scrOtsikko.Value;
    if (top < value)
        form.scrOtsikko.Value = static_cast<int>(top);
    else if (bottom > value + room)
        form.scrOtsikko.Value =
            std::min(static_cast<int>(bottom - room), form.scrOtsikko.Max.get());
}

void scrOtsikko_Change() {
    fVelho->botOtsikko.Top = -fVelho->scrOtsikko.Value;
}

// Page 3.

void UpdatePosition() {
    auto& form = *fVelho;
    for (auto* const picture : form.placement_pictures())
        picture->Visible = false;
    bool const right = form.optAlignRight.Value;
    if (form.optPosTop.Value)
        (right ? form.imgYO : form.imgYV).Visible = true;
    else
        (right ? form.imgVO : form.imgVV).Visible = true;
}

/// Of a group of two one is on.
void choose(OptionButton& chosen, OptionButton& other) {
    chosen.Value.show(true);
    other.Value.show(false);
    UpdatePosition();
}

// Page 4.

std::string description_of(Label const& sample) {
    auto text = Trim(sample.FontName.get()) + ", " + Format(sample.FontSize) + " pt";
    if (sample.FontBold)
        text += ", Lihavoitu";
    if (sample.FontItalic)
        text += ", Kursivoitu";
    return text;
}

void CenterFont() {
    auto& form = *fVelho;
    center_sample(form.fontOts);
    center_sample(form.fontTxt);
    form.labFontOts.Caption = description_of(form.fontOts);
    form.labFontTxt.Caption = description_of(form.fontTxt);
}

void edit_font(int mode) {
    session.fontDialogMode = mode;
    show_font_dialog();
    CenterFont();
}

SampleLook look_of(Label const& sample) {
    return {sample.font(), sample.BackColor, sample.ForeColor};
}

WizardChoices choices() {
    auto const& form = *fVelho;
    WizardChoices made;
    for (int i = 1; i <= form.maara; ++i)
        made.titles.push_back(form.otsikot.at(static_cast<std::size_t>(i)));
    made.place = form.optPosTop.Value ? TitlePlace::above : TitlePlace::left;
    made.align = form.optAlignLeft.Value ? TitleAlign::left : TitleAlign::right;
    made.title_look = look_of(form.fontOts);
    made.text_look = look_of(form.fontTxt);
    return made;
}

/// Forty fields fit in the largest font: what makes a card too large is a long title.
void lead_to_longest_title(WizardChoices const& made) {
    show_page(2);
    fVelho->cmdSeuraava.Caption = "Seuraava >";
    lead_back_to(fVelho->txtOtsikko(longest_title(made)));
}

/// A card wider or higher than a card can be would come back from its file with another size.
bool has_room(WizardChoices const& made, Card const& record) {
    if (record.width <= limits::largest_card && record.height <= limits::largest_card)
        return true;
    MsgBox(lines({" Kortista tulisi liian suuri.     ", "",
                  " Lyhennä otsikoita tai valitse pienempi fontti.     "}),
           box::information, " Tiedoksi");
    lead_to_longest_title(made);
    return false;
}

void finish() {
    try {
        auto const made = choices();
        auto built = build_wizard_card(made);
        if (!has_room(made, built.card))
            return;
        finished = std::move(built);
    } catch (RuntimeError const& error) {
        standard_report(" Uuden korttimallin luominen aiheutti virheen     ", error);
        return;
    }
    session.dialogCancelled = false; // a cancelled font dialog may have left it set
    fVelho->Close();
}

// The form.

void go_back_to_count() {
    show_page(1);
    fVelho->cmdEdellinen.Caption = "&Peruuta";
    fVelho->cmdEdellinen.Cancel = true;
    fVelho->txtMaara.SetFocus();
}

void go_on_to_titles() {
    fVelho->cmdEdellinen.Caption = "< Edellinen";
    fVelho->cmdEdellinen.Cancel = false; // Escape cancels only where the button does
    show_page(2);
    fVelho->txtOtsikko(1).SetFocus();
}

void cmdEdellinen_Click() {
    switch (fVelho->vaihe) {
    case 1:
        session.dialogCancelled = true;
        return fVelho->Close();
    case 2:
        return go_back_to_count();
    case 3:
        return show_page(2);
    default:
        show_page(3);
        fVelho->cmdSeuraava.Caption = "Seuraava >";
    }
}

void cmdSeuraava_Click() {
    switch (fVelho->vaihe) {
    case 1:
        if (take_count())
            go_on_to_titles();
        return;
    case 2:
        return show_page(3);
    case 3:
        fVelho->cmdSeuraava.Caption = "&Valmis";
        return show_page(4);
    default:
        return finish();
    }
}

void chkShow_Click() {
    settings.showVelho = fVelho->chkShow.Value == 1 ? -1 : 0;
}

/// Whoever closes the window by its own button wants no card.
void Form_QueryUnload(bool user, bool&) {
    if (user)
        session.dialogCancelled = true;
}

void wire() {
    auto& form = *fVelho;
    form.QueryUnload = Form_QueryUnload;
    form.cmdEdellinen.Click = cmdEdellinen_Click;
    form.cmdSeuraava.Click = cmdSeuraava_Click;
    form.chkShow.Click = chkShow_Click;
    form.txtMaara.GotFocus = [&form] { form.txtMaara.select_all(); };
    form.txtOtsikko.prototype().Change = txtOtsikko_Change;
    form.txtOtsikko.prototype().GotFocus = txtOtsikko_GotFocus;
    form.scrOtsikko.Change = scrOtsikko_Change;
    form.optPosTop.Click = [&form] { choose(form.optPosTop, form.optPosLeft); };
    form.optPosLeft.Click = [&form] { choose(form.optPosLeft, form.optPosTop); };
    form.optAlignLeft.Click = [&form] { choose(form.optAlignLeft, form.optAlignRight); };
    form.optAlignRight.Click = [&form] { choose(form.optAlignRight, form.optAlignLeft); };
    form.cmdFontOts.Click = [] { edit_font(1); };
    form.cmdFontTxt.Click = [] { edit_font(2); };
}

void fill_titles() {
    auto& titles = fVelho->otsikot;
    constexpr std::array<std::string_view, 6> first = {"Nimi",          "Katuosoite", "Postiosoite",
                                                       "Puhelinnumero", "Sähköposti", "GSM"};
    std::fill(titles.begin() + 1, titles.end(), "Uusi");
    std::copy(first.begin(), first.end(), titles.begin() + 1);
}

/// The samples begin in the form's own font: a title in the colours of the card it will stand on,
/// a text field white.
void load_samples() {
    auto& form = *fVelho;
    for (auto* const sample : {&form.fontOts, &form.fontTxt}) {
        sample->set_font(form.font());
        sample->ForeColor = colours::black;
    }
    form.fontOts.BackColor = RGB(222, 222, 222);
    form.fontTxt.BackColor = colours::white;
}

void SetDefaultValues() {
    auto& form = *fVelho;
    auto const screen = host().metrics();
    form.Left = (screen.width * screen.TwipsPerPixelX - form.Width) / 2;
    form.Top = (screen.height * screen.TwipsPerPixelY - form.Height) / 2;
    form.paint_frame();
    form.ladattu = 0;
    form.maara = 0;
    fill_titles();
    load_samples();
    CenterFont();
    UpdatePosition();
    form.vaihe = 1;
    form.picVaihe(1).Visible = true;
}

void Form_Load() {
    wire();
    session.dialogCancelled = false;
    SetDefaultValues();
    session.helpTopic = "velho.htm";
}

} // namespace

bool show_wizard() {
    finished.reset();
    show_dialog(fVelho, Form_Load);
    auto built = std::exchange(finished, std::nullopt);
    if (!built)
        return false;
    card = built->card;
    fields = std::move(built->fields);
    return true;
}

} // namespace kehystin
