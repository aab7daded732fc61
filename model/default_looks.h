// The default looks: what a new field of each kind starts with. They follow what the user does.
#pragma once

#include "card/kinds.h"
#include "model/card.h"
#include "platform/drawing.h"

#include <array>
#include <string>

namespace kehystin {

struct DefaultField {
    std::string caption;
    std::string fontName;
    float fontSize = 0; // points
    Flag fontBold;
    Flag fontItalic;
    Colour foreColor = 0;
    Colour backColor = 0;
    Integer width;   // pixels
    Integer height;  // pixels
    Integer scaling; // images only, as border
    Integer border;
};

/// One look for each kind, in the order of `kinds`.
using DefaultLooks = std::array<DefaultField, kinds.size()>;

extern DefaultLooks default_looks;

/// The default look of a kind.
DefaultField& default_look(Style style);

/// Resets all looks: texts, sizes and colours of the kinds, in the font of the sample label.
void set_def_var(Font const& sample);

/// Lets the looks follow the card: the last field of each kind gives font, colours and size. The
/// default texts stay.
void UpdDefVar();

/// Lets the looks follow a card that the wizard built: walks until it has met a text field and a
/// title, each giving its look to all kinds of text and of label.
void UpdateDefaultFont();

} // namespace kehystin
