// fCard: the design surface, a window inside the main one that shows the card at its true size.
// It lives while a card is open.
#pragma once

#include "card/kinds.h"
#include "forms/selection_frame.h"
#include "model/card.h"
#include "platform/form.h"

#include <memory>
#include <string>
#include <vector>

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
    /// The frames, which have nothing to do with the keyboard.
    Collection<SelectionFrame> focus{this, "focus"};
    /// The rubber band, which also knows what a press on the bare surface does.
    SelectionFrame bigfocus{this, "bigfocus"};
    /// Holds a picture for a moment while it is fitted into its field.
    PictureBox tmpImg{this, "tmpImg"};
    Timer focusTimer{this, "focusTimer", 20, false};
    Timer resizeTimer{this, "resizeTimer", 50, false};

    /// The path of a background picture that could not be shown; the card stands without it.
    std::string picture_left_out;

    /// Where a press on a field happened: twips from the field's corner, or pixels on the surface
    /// for a field that was pressed through it.
    Integer grabX;
    Integer grabY;
    /// Where a rubber band began, in pixels.
    Integer bandX;
    Integer bandY;

    /// Calls `use` with the collection that shows the fields of a kind.
    template <class Use>
    TextControl& with_visuals(Style style, Use const& use) {
        switch (style) {
        case Style::OTS:
            return use(ots);
        case Style::TXT:
            return use(txt);
        case Style::STX:
            return use(stx);
        case Style::CHK:
            return use(chk);
        case Style::OPT:
            return use(opt);
        case Style::CMB:
            return use(cmb);
        case Style::IMG:
            return use(img);
        case Style::LST:
            return use(lst);
        }
        throw RuntimeError(ErrorNumber::subscript_out_of_range);
    }
    /// The object that shows field `number`, which is of that style; 0 is their prototype.
    TextControl& visual(Style style, int number);
    /// The object that shows a field, by its record; null where none could be built.
    TextControl* visual_of(int number);
    /// Puts a field's frame around its record, one pixel to spare on each side. A field without a
    /// frame is passed over.
    void place_frame(int number);
    /// A field is selected when its frame shows; there is no other record of the selection.
    bool is_selected(int number);
};

/// The surface; null while no card is open.
extern std::unique_ptr<CardForm> fCard;

/// Numbers of the selected fields, ascending; none without a surface.
std::vector<int> selected_fields();

} // namespace kehystin
