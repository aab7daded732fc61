// The card that the wizard builds from its answers.
#pragma once

#include "card/kinds.h"
#include "model/card.h"
#include "platform/drawing.h"

#include <span>
#include <string>
#include <vector>

namespace kehystin {

enum class TitlePlace { above, left };
enum class TitleAlign { left, right };

/// What a sample of the wizard stands for.
struct SampleLook {
    Font font;
    Colour backColor = colours::white;
    Colour foreColor = colours::black;
};

struct WizardChoices {
    std::vector<std::string> titles; ///< one for each text field
    TitlePlace place = TitlePlace::above;
    TitleAlign align = TitleAlign::left;
    SampleLook title_look;
    SampleLook text_look;
};

struct WizardCard {
    Card card;
    std::vector<Field> fields; ///< element 0 and then titles and text fields
};

/// Width in pixels of the widest of the titles.
Integer GetOtsWidth(std::span<std::string const> titles, Font const& font);

/// The number of the widest title, from 1.
int longest_title(WizardChoices const& choices);

/// Builds a title and a text field for each of the titles, one linked to the other, in one to three
/// columns, and a card that they fit on. What the wizard does not ask for is as on the open card,
/// which stays as it is. Raises overflow for places that no record can hold.
WizardCard build_wizard_card(WizardChoices const& choices);

} // namespace kehystin
