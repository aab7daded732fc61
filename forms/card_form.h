// fCard: the design surface, a window inside the main one that shows the card at its true size.
// It lives while a card is open.
#pragma once

#include "model/kinds.h"
#include "platform/form.h"

#include <memory>

namespace kehystin {

using namespace platform;

/// Inside, everything is in pixels from the top left corner. Field i is shown by element i of the
/// collection of its kind, and its selection frame is focus(i); focus(0) is the card's own.
class CardForm : public Form {
  public:
    CardForm();
    ~CardForm() override;

    Collection<Label> ots{this, "ots"};
    Collection<TextBox> txt{this, "txt"};
    Collection<TextBox> stx{this, "stx"};
    Collection<CheckBox> chk{this, "chk"};
    Collection<OptionButton> opt{this, "opt"};
    Collection<ComboBox> cmb{this, "cmb"};
    Collection<PictureBox> img{this, "img"};
    Collection<ListBox> lst{this, "lst"};
    /// Element 0 is never shown: new lines take its colour.
    Collection<Line> link{this, "link"};
    Collection<Shape> focus{this, "focus"};
    /// The rubber band, and the holder of the state of a drag.
    Shape bigfocus{this, "bigfocus"};
    /// Holds a picture for a moment while it is fitted into its field.
    PictureBox tmpImg{this, "tmpImg"};
    Timer focusTimer{this, "focusTimer", 20, false};
    Timer resizeTimer{this, "resizeTimer", 50, false};

    /// The object that shows field `number`, which is of that style.
    TextControl& visual(Style style, int number);
};

/// The surface; null while no card is open.
extern std::unique_ptr<CardForm> fCard;

} // namespace kehystin
