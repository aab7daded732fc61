#include "dialogs/roles_boxes.h"

#include "dialogs/roles_numbers.h"
#include "forms/speci_form.h"
#include "model/card.h"

#include <array>
#include <string_view>

namespace kehystin {

namespace {

constexpr Colour chosen_colour = RGB(255, 255, 192);
constexpr int dates = 4;

/// What a box lists beside fields of text.
enum class Mode { text = 0, text_and_list = 1 };

/// A role and its box, in the order in which the boxes are filled. The dates have a collection.
struct Role {
    int role;
    ComboBox SpeciForm::*combo;
    Mode mode;
    int date = 0;
};

using F = SpeciForm;
constexpr std::array roles = {
    Role{3, &F::cmbAsiakas, Mode::text},
    Role{8, nullptr, Mode::text, 1},
    Role{9, nullptr, Mode::text, 2},
    Role{10, nullptr, Mode::text, 3},
    Role{11, nullptr, Mode::text, 4},
    Role{1, &F::cmbEmail, Mode::text},
    Role{2, &F::cmbHttp, Mode::text},
    Role{4, &F::cmbLasku, Mode::text},
    Role{5, &F::cmbViite, Mode::text},
    Role{6, &F::cmbErapaiva, Mode::text},
    Role{7, &F::cmbSumma, Mode::text_and_list},
    Role{12, &F::cmbKoodi, Mode::text_and_list},
    Role{13, &F::cmbTuote, Mode::text_and_list},
    Role{14, &F::cmbHinta, Mode::text_and_list},
    Role{15, &F::cmbPostinumero, Mode::text},
    Role{16, &F::cmbToimipaikka, Mode::text_and_list},
    Role{17, &F::cmbMaa, Mode::text_and_list},
    Role{18, &F::cmbSukunimi, Mode::text},
    Role{19, &F::cmbEtunimi, Mode::text},
    Role{27, &F::cmbLaskuselite, Mode::text_and_list},
};

ComboBox& box_of(Role const& role) {
    return role.combo ? (*fSpeciField).*role.combo : fSpeciField->cmbDate(role.date);
}

Integer& field_of(Role const& role) {
    return card.fldSpeci.at(static_cast<std::size_t>(role.role));
}

bool can_have_role(Field const& one, Mode mode) {
    return one.holds(Value::text) || (mode == Mode::text_and_list && one.holds(Value::choice));
}

void LataaValikko(ComboBox& combo, Mode mode) {
    combo.AddItem(" Ei määritelty");
    for (int i = 1; i <= card.fields; ++i) {
        if (!can_have_role(field(i), mode))
            continue;
        combo.AddItem(" " + field(i).group.trim());
        combo.set_ItemData(combo.NewIndex(), i);
    }
}

void SetIndex(ComboBox& combo, int index) {
    if (index == 0) {
        combo.ListIndex = 0;
        return;
    }
    for (int place = 1; place < combo.ListCount(); ++place)
        if (combo.ItemData(place) == index) {
            combo.ListIndex = place;
            return;
        }
    // Nothing is chosen, which no click has told; it looks as without a role.
    combo.Click(combo.index());
}

void role_Click(ComboBox& combo) {
    combo.BackColor = combo.ListIndex >= 1 ? chosen_colour : colours::white;
}

void cmbDate_Click(int date) {
    auto& combo = fSpeciField->cmbDate(date);
    auto& quick_choice = fSpeciField->cmbPaivays(date);
    bool const chosen = combo.ListIndex >= 1;
    role_Click(combo);
    quick_choice.BackColor = chosen ? colours::white : fSpeciField->BackColor.get();
    quick_choice.Enabled = chosen;
}

} // namespace

void wire_role_boxes() {
    for (auto const& role : roles) {
        if (role.date != 0)
            box_of(role).Click = cmbDate_Click;
        else if (role.combo != &F::cmbAsiakas)
            box_of(role).Click = [&role] { role_Click(box_of(role)); };
    }
    fSpeciField->cmbAsiakas.Click = [] {
        cmbAsiakas_Click();
        role_Click(fSpeciField->cmbAsiakas);
    };
}

void load_role_boxes() {
    for (auto const& role : roles)
        LataaValikko(box_of(role), role.mode);
    for (auto const& role : roles)
        SetIndex(box_of(role), field_of(role));
}

void store_role_boxes() {
    for (auto const& role : roles) {
        auto const& combo = box_of(role);
        field_of(role) = combo.ListIndex >= 0 ? combo.ItemData(combo.ListIndex) : 0;
    }
}

void fill_quick_choices() {
    for (int i = 1; i <= dates; ++i) {
        auto& combo = fSpeciField->cmbPaivays(i);
        for (std::string_view const entry :
             {" Ei pikavalintaa", " Kalenteri", " Päiväys", " Kellonaika", " Päiväys + Aika"})
            combo.AddItem(entry);
        combo.ListIndex = 1;
    }
}

void load_quick_choices() {
    for (int i = 1; i <= dates; ++i) {
        auto& combo = fSpeciField->cmbPaivays(i);
        int const style = card.dateStyle.at(static_cast<std::size_t>(i));
        if (style >= -1 && style < combo.ListCount())
            combo.ListIndex = style;
    }
}

void store_quick_choices() {
    for (int i = 1; i <= dates; ++i)
        card.dateStyle.at(static_cast<std::size_t>(i)) = int{fSpeciField->cmbPaivays(i).ListIndex};
}

} // namespace kehystin
