#include "dialogs/roles_numbers.h"

#include "dialogs/modal.h"
#include "forms/speci_form.h"
#include "model/card.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <limits>

namespace kehystin {

namespace {

constexpr Colour grey_text = system_colour(17);
constexpr int most_digits = 20;

double number_in(TextBox const& box) {
    return Val(box.Text.get());
}

/// As the arrows count. Raises overflow where one more would be the same number.
double whole_number_in(TextBox const& box) {
    constexpr double countable = 1e15;
    double const number = round_to_even(number_in(box));
    if (!(std::abs(number) < countable))
        throw RuntimeError(ErrorNumber::overflow);
    return number;
}

Integer digits() {
    return Integer(std::abs(number_in(fSpeciField->txtAsiakasNum)));
}

void PaivitaMalli() {
    auto text = Format(fSpeciField->malliArvo);
    if (fSpeciField->chkEtunollat.Value == 1) {
        auto const length = static_cast<std::size_t>(int{digits()});
        text.insert(0, length - std::min(length, text.size()), '0');
    }
    fSpeciField->labMalli.Caption = text;
}

/// Before the box that a failure raises comes up, its number has the keyboard.
void leading_to(TextBox& text, std::function<void()> const& step) {
    try {
        step();
    } catch (RuntimeError const&) {
        lead_back_to(text);
        throw;
    }
}

/// Leading zeros, whatever else is on.
void switch_digits(bool on) {
    auto& form = *fSpeciField;
    form.txtAsiakasNum.Enabled = on;
    form.scrAsiakasNum.Enabled = on;
    form.txtAsiakasNum.BackColor = on ? colours::white : form.BackColor.get();
}

void chkGeneroi_Click() {
    auto& form = *fSpeciField;
    bool const active = form.chkGeneroi.Enabled && form.chkGeneroi.Value == 1;
    auto const ink = active ? colours::black : grey_text;
    form.labArvoalue.ForeColor = ink;
    form.labAskel.ForeColor = ink;
    form.labNroMalli.ForeColor = active ? form.frmNumero.ForeColor.get() : grey_text;
    form.labMalli.BackColor = form.BackColor;
    form.labMalli.ForeColor = ink;
    for (Control* const control : std::initializer_list<Control*>{
             &form.chkValiarvot, &form.txtAsiakasMin, &form.txtAsiakasMax, &form.txtAsiakasStep,
             &form.scrAsiakasMin, &form.scrAsiakasMax, &form.scrAsiakasStep, &form.chkEtunollat})
        control->Enabled = active;
    for (auto* const text : {&form.txtAsiakasMin, &form.txtAsiakasMax, &form.txtAsiakasStep})
        text->BackColor = active ? colours::white : form.BackColor.get();
    if (!active)
        switch_digits(false);
    else if (form.chkEtunollat.Value == 1)
        switch_digits(true);
}

void chkEtunollat_Click() {
    auto const& box = fSpeciField->chkEtunollat;
    switch_digits(box.Enabled && box.Value == 1);
    leading_to(fSpeciField->txtAsiakasNum, PaivitaMalli);
}

void txtAsiakasMin_Change() {
    double const lowest = number_in(fSpeciField->txtAsiakasMin);
    if (!(lowest > 0 && number_in(fSpeciField->txtAsiakasMax) > lowest))
        return;
    fSpeciField->malliArvo = Integer(lowest);
    PaivitaMalli();
}

double keep_lowest(double number) {
    double const highest = number_in(fSpeciField->txtAsiakasMax);
    if (highest <= number)
        number = highest - 1;
    return std::max(number, 1.0);
}

double keep_highest(double number) {
    number = std::max(number, 1.0);
    double const lowest = number_in(fSpeciField->txtAsiakasMin);
    return lowest >= number ? lowest + 1 : number;
}

double keep_positive(double number) {
    return std::max(number, 1.0);
}

bool is_single(double number) {
    return std::abs(number) <= std::numeric_limits<float>::max();
}

bool is_integer(double number) {
    using Limits = std::numeric_limits<std::int16_t>;
    double const whole = round_to_even(number);
    return whole >= Limits::min() && whole <= Limits::max();
}

bool is_size(double number) {
    return is_integer(std::abs(number));
}

/// A number that arrows count up and down, what it keeps to, and whether a card can hold it.
struct Spin {
    ScrollBar SpeciForm::*control;
    TextBox SpeciForm::*text;
    double (*kept)(double);
    bool (*fits)(double);
};

constexpr std::array spins = {
    Spin{&SpeciForm::scrAsiakasMin, &SpeciForm::txtAsiakasMin, keep_lowest, is_single},
    Spin{&SpeciForm::scrAsiakasMax, &SpeciForm::txtAsiakasMax, keep_highest, is_single},
    Spin{&SpeciForm::scrAsiakasStep, &SpeciForm::txtAsiakasStep, keep_positive, is_integer},
    Spin{&SpeciForm::scrAsiakasNum, &SpeciForm::txtAsiakasNum, keep_positive, is_size},
};

/// Only the direction of a move counts; down is less.
void spin_Change(std::size_t which) {
    auto const& spin = spins.at(which);
    auto& text = (*fSpeciField).*spin.text;
    auto& last = fSpeciField->spin_places.at(which);
    int const place = ((*fSpeciField).*spin.control).Value;
    double const step = place > last ? -1 : 1;
    last = place;
    leading_to(text, [&] { text.Text = Format(spin.kept(whole_number_in(text) + step)); });
}

} // namespace

void wire_number_settings() {
    auto& form = *fSpeciField;
    form.chkGeneroi.Click = chkGeneroi_Click;
    form.chkEtunollat.Click = chkEtunollat_Click;
    form.txtAsiakasMin.Change = txtAsiakasMin_Change;
    form.txtAsiakasNum.Change = [&form] { leading_to(form.txtAsiakasNum, PaivitaMalli); };
    for (std::size_t i = 0; i < spins.size(); ++i) {
        auto& text = form.*spins.at(i).text;
        text.GotFocus = [&text] { text.select_all(); };
        (form.*spins.at(i).control).Change = [i] { spin_Change(i); };
    }
}

void cmbAsiakas_Click() {
    auto& form = *fSpeciField;
    if (form.cmbAsiakas.ListIndex >= 1) {
        form.chkGeneroi.Enabled = true;
        chkGeneroi_Click();
        return;
    }
    form.chkGeneroi.Enabled = false;
    form.chkValiarvot.Enabled = false;
    for (auto* const text : {&form.txtAsiakasMin, &form.txtAsiakasMax, &form.txtAsiakasStep}) {
        text->Enabled = false;
        text->BackColor = form.BackColor;
    }
}

void repair_number_settings() {
    // Written so that what is no number is repaired too.
    if (!(card.asiakasMin >= 1))
        card.asiakasMin = 1;
    if (!(card.asiakasMax >= 10))
        card.asiakasMax = 10;
    if (card.asiakasStep < 1)
        card.asiakasStep = 1;
    if (card.asiakasNum < 0 || card.asiakasNum > most_digits)
        card.asiakasNum = 4;
}

void load_number_settings() {
    auto& form = *fSpeciField;
    if (card.asiakasStyle >= 1)
        form.chkGeneroi.Value = 1;
    if (card.asiakasStyle == 2)
        form.chkValiarvot.Value = 1;
    form.txtAsiakasMin.Text = Format(card.asiakasMin);
    form.txtAsiakasMax.Text = Format(card.asiakasMax);
    form.txtAsiakasStep.Text = Format(card.asiakasStep);
    if (card.asiakasZero)
        form.chkEtunollat.Value = 1;
    form.txtAsiakasNum.Text = Format(card.asiakasNum);
}

void load_sample() {
    fSpeciField->malliArvo = Integer(double{card.asiakasMin});
    PaivitaMalli();
}

void store_number_settings() {
    auto const& form = *fSpeciField;
    float const lowest = to_single(number_in(form.txtAsiakasMin));
    float const highest = to_single(number_in(form.txtAsiakasMax));
    Integer const step(number_in(form.txtAsiakasStep));
    Integer const number_of_digits = digits();
    bool const between = form.chkValiarvot.Value != 0;
    card.asiakasStyle = form.chkGeneroi.Value == 0 ? 0 : between ? 2 : 1;
    card.asiakasMin = lowest;
    card.asiakasMax = highest;
    card.asiakasStep = step;
    card.asiakasZero = form.chkEtunollat.Value != 0;
    card.asiakasNum = number_of_digits;
}

void lead_to_misfit() {
    auto& form = *fSpeciField;
    auto const misfit = std::find_if(spins.begin(), spins.end(), [&](Spin const& spin) {
        return !spin.fits(number_in(form.*spin.text));
    });
    if (misfit == spins.end())
        return;
    form.tree.ListIndex = 0;
    auto& text = form.*misfit->text;
    // A number that is switched off is reached by what switches it on.
    auto* const zeros = &text == &form.txtAsiakasNum ? &form.chkEtunollat : nullptr;
    for (Control* const one :
         std::initializer_list<Control*>{&text, zeros, &form.chkGeneroi, &form.cmbAsiakas})
        if (one && one->can_take_focus()) {
            one->SetFocus();
            break;
        }
    text.select_all();
}

} // namespace kehystin
