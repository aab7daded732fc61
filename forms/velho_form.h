// fVelho: the wizard that builds a card from a few answers, on four pages.
#pragma once

#include "forms/picture_panel.h"
#include "platform/form.h"

#include <array>
#include <memory>
#include <string>

namespace kehystin {

using namespace platform;

class VelhoForm : public Form {
  public:
    static constexpr int pages = 4;
    static constexpr int most_fields = 40;
    static constexpr int rows_in_view = 8; ///< more rows of page 2 than these are scrolled

    VelhoForm();
    ~VelhoForm() override;

    Label labInfo{this, "labInfo"};
    PicturePanel imgVelho{this, "imgVelho"};
    Collection<PicturePanel> picVaihe{this, "picVaihe"};

    // Page 1: the number of fields.
    Label Label5{page(1), "Label5"};
    TextBox txtMaara{page(1), "txtMaara"};

    // Page 2: their titles. The rows stand in botOtsikko, which moves inside picOtsikko.
    Label labOhje{page(2), "labOhje"};
    PicturePanel picOtsikko{page(2), "picOtsikko"};
    PicturePanel botOtsikko{&picOtsikko, "botOtsikko"};
    Collection<Label> labOtsikko{&botOtsikko, "labOtsikko"};
    Collection<TextBox> txtOtsikko{&botOtsikko, "txtOtsikko"};
    ScrollBar scrOtsikko{page(2), "scrOtsikko"};

    // Page 3: where the titles stand.
    Label Label2{page(3), "Label2"};
    OptionButton optPosTop{page(3), "optPosTop"};
    OptionButton optPosLeft{page(3), "optPosLeft"};
    Label Label1{page(3), "Label1"};
    OptionButton optAlignLeft{page(3), "optAlignLeft"};
    OptionButton optAlignRight{page(3), "optAlignRight"};
    PicturePanel imgYV{page(3), "imgYV"};
    PicturePanel imgYO{page(3), "imgYO"};
    PicturePanel imgVV{page(3), "imgVV"};
    PicturePanel imgVO{page(3), "imgVO"};

    // Page 4: the fonts. The two samples are the only place where font and colours are kept.
    Label Label7{page(4), "Label7"};
    PicturePanel botTxt{page(4), "botTxt"};
    Label fontTxt{&botTxt, "fontTxt"};
    Label labFontTxt{page(4), "labFontTxt"};
    Button cmdFontTxt{page(4), "cmdFontTxt"};
    Label Label8{page(4), "Label8"};
    PicturePanel botOts{page(4), "botOts"};
    Label fontOts{&botOts, "fontOts"};
    Label labFontOts{page(4), "labFontOts"};
    Button cmdFontOts{page(4), "cmdFontOts"};

    CheckBox chkShow{this, "chkShow"};
    Button cmdEdellinen{this, "cmdEdellinen"};
    Button cmdSeuraava{this, "cmdSeuraava"};

    Integer vaihe = 1; ///< the page that shows
    Integer maara;     ///< number of text fields, known once page 1 has been left
    Integer ladattu;   ///< rows of page 2 that are loaded
    /// Texts of the titles, 1 to most_fields, also of those whose rows are not loaded.
    std::array<std::string, most_fields + 1> otsikot;

    std::array<PicturePanel*, 4> placement_pictures() { return {&imgYV, &imgYO, &imgVV, &imgVO}; }
    /// The header's white band, the band of the buttons, and the lines between the fonts of page 4.
    void paint_frame();
    /// Makes a row of page 2, hidden, and gives it its place, also in the tab order.
    void load_row(int number);
    /// A strip behind each caption of page 2 and one behind each text.
    void paint_rows();
    /// What so many rows of page 2 need, in twips.
    static double height_of_rows(int count);

  private:
    Control* page(int number) {
        return picVaihe.has(number) ? &picVaihe(number) : &picVaihe.Load(number);
    }
};

/// Null while the dialog is closed.
extern std::unique_ptr<VelhoForm> fVelho;

} // namespace kehystin
