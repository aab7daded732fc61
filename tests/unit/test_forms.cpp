// Every form in every state: nothing leaves what it stands in, neighbours do not overlap, and no
// caption is cut in its font.
#include "dialogs/cols.h"
#include "dialogs/info.h"
#include "dialogs/roles.h"
#include "dialogs/settings.h"
#include "forms/cols_form.h"
#include "forms/font_form.h"
#include "forms/info_form.h"
#include "forms/panel_rows.h"
#include "forms/prop_form.h"
#include "forms/speci_form.h"
#include "forms/velho_form.h"
#include "mainwindow/bars.h"
#include "platform/input.h"
#include "platform/system.h"
#include "surface/load_card.h"
#include "tests/unit/fresh_session.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace kehystin {

namespace {

constexpr double pixel = twips_per_pixel;

struct Place {
    double left, top, right, bottom;

    explicit Place(Control const& control)
        : left(control.Left),
          top(control.Top),
          right(control.Left + control.Width),
          bottom(control.Top + control.Height) {}
    bool meets(Place const& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
};

/// What a user sees of a control; outlines, menus and timers take no place.
bool takes_place(Control const& control) {
    auto const kind = control.control_class();
    return control.Visible && control.has_tab_index() && kind != ControlClass::menu &&
           kind != ControlClass::timer;
}

Size inside_of(Control const& container) {
    auto const* const form = dynamic_cast<Form const*>(&container);
    if (!form)
        return {container.Width, container.Height};
    // As a window that cannot be sized has them: a frame of 45 twips and a caption of 285.
    return form->kind() == FormKind::main ? form->inner_size()
                                          : Size{form->Width - 90, form->Height - 90 - 285};
}

/// Lines that a text takes in a width of pixels, broken between words.
int lines_in(Font const& font, std::string const& text, double width) {
    auto const measure = [&](std::string const& one) {
        return host().measure_text(font, one).width;
    };
    int lines = 1;
    std::string line;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        auto const longer = line.empty() ? word : line + " " + word;
        if (!line.empty() && measure(longer) > width) {
            ++lines;
            line = word;
        } else {
            line = longer;
        }
        if (measure(line) > width)
            return 1000; // a word alone does not fit
    }
    return lines;
}

bool shows_whole(TextControl const& control, std::string caption, double beside) {
    std::erase(caption, '&');
    double const width = control.Width / pixel - beside;
    double const line = host().measure_text(control.font(), "Äg").height;
    // A font's line is a little higher than its letters.
    double const room = std::max(1.0, std::floor((control.Height / pixel + 2) / line));
    return lines_in(control.font(), caption, width) <= room;
}

bool caption_fits(Control const& control) {
    constexpr double mark = 17; // of check and option, with its gap
    constexpr double edges = 6; // of a button
    if (auto const* const label = dynamic_cast<Label const*>(&control))
        return shows_whole(*label, label->Caption, 0);
    if (auto const* const check = dynamic_cast<CheckBox const*>(&control))
        return shows_whole(*check, check->Caption, mark);
    if (auto const* const option = dynamic_cast<OptionButton const*>(&control))
        return shows_whole(*option, option->Caption, mark);
    if (auto const* const button = dynamic_cast<Button const*>(&control))
        return shows_whole(*button, button->Caption, edges);
    if (auto const* const frame = dynamic_cast<Frame const*>(&control))
        return shows_whole(*frame, frame->Caption, 2 * edges);
    return true;
}

/// Pairs that stand over each other on purpose, by the names of their collections.
bool may_overlap(Control const& one, Control const& other) {
    static std::vector<std::pair<std::string, std::string>> const pairs = {
        {"FC", "txt_fc"},     {"BC", "txt_bc"},      {"peitto", "cmb_field"},
        {"frmAsetus", "bot"}, {"scr_pro", "proPic"}, {"scr_pro", "bot_list"},
        {"proPic", "lst"},    {"proPic", "bot_list"}};
    auto const named = [](Control const& control, std::string const& start) {
        return control.name().starts_with(start);
    };
    return std::any_of(pairs.begin(), pairs.end(), [&](auto const& pair) {
        return (named(one, pair.first) && named(other, pair.second)) ||
               (named(other, pair.first) && named(one, pair.second));
    });
}

/// What scrolls is larger than what it scrolls in.
bool scrolls(Control const& control) {
    return control.name() == "proPic" || control.name() == "botOtsikko";
}

void check_inside(Control const& container, std::string const& state) {
    auto const room = inside_of(container);
    auto const& children = container.children();
    for (auto one = children.begin(); one != children.end(); ++one) {
        auto const& control = **one;
        if (!takes_place(control))
            continue;
        auto const name = state + ": " + control.full_name();
        Place const place(control);
        EXPECT_GE(place.left, 0) << name;
        EXPECT_LE(place.right, room.width) << name;
        if (!scrolls(control)) {
            EXPECT_GE(place.top, 0) << name;
            EXPECT_LE(place.bottom, room.height) << name;
        }
        EXPECT_TRUE(caption_fits(control)) << name;
        for (auto other = std::next(one); other != children.end(); ++other)
            if (takes_place(**other) && !may_overlap(control, **other)) {
                EXPECT_FALSE(place.meets(Place(**other))) << name << " " << (*other)->full_name();
            }
        check_inside(control, name);
    }
}

} // namespace

class Forms : public FreshSession {
  protected:
    void SetUp() override {
        host.screen = {1920, 1200};
        start();
        card.name = "Kortti";
        card.picture = "";
        card.width = 600;
        card.height = 400;
        for (auto const& kind : kinds) {
            int const place = code_of(kind.style);
            add_field(kind.style, 20 + 10 * place, 20 + 30 * place, 100, 20, "Otsikko");
        }
        ASSERT_TRUE(load_card());
    }

    /// The rows too keep out of the way of their scroll bar, which stands over their area.
    static void check_main(std::string const& state) {
        check_inside(*fEditor, state);
        for (auto const* const part : fEditor->proPic.children())
            if (fEditor->scr_pro.Visible && takes_place(*part)) {
                EXPECT_LE(part->Left + part->Width, fEditor->scr_pro.Left)
                    << state << ": " << part->full_name();
            }
    }

    /// Opens a dialog, looks at it in each of the states that `states` brings about, and closes it.
    void look(std::function<void()> const& open, std::function<void(Form&)> const& states) {
        host.on_modal = [&](Form& form) {
            states(form);
            form.Close();
        };
        open();
    }
    void look(std::function<void()> const& open) {
        look(open, [](Form& form) { check_inside(form, form.name()); });
    }
};

TEST_F(Forms, TheMainWindowWithEveryKindOfRows) {
    for (double const height : {17000.0, 6000.0}) {
        fEditor->Height = height;
        show_card_bars();
        for (int i = 0; i <= card.fields; ++i) {
            fEditor->cmb_field.ListIndex = i;
            host.clock.run(100);
            check_main("field " + std::to_string(i));
            for (auto const& row : panel_rows()) {
                if (!editor_of(row.row).can_take_focus())
                    continue;
                input::focus(editor_of(row.row)); // its button or arrows show
                check_main(std::string(row.caption) + " of " + std::to_string(i));
            }
        }
    }
    fEditor->cmb_field.ListIndex = static_cast<int>(kind_index(Style::CMB)) + 1;
    input::focus(fEditor->txt_list);
    input::click(fEditor->cmd_list);
    check_main("list editor");
}

TEST_F(Forms, TheDialogs) {
    look(cmd_cols_Click);
    look(cmd_info_Click);
    look(cmd_properties_Click);
    look(cmdSpecifield_Click, [](Form& form) {
        for (int i = 0; i < fSpeciField->tree.ListCount(); ++i) {
            input::pick(fSpeciField->tree, i);
            check_inside(form, fSpeciField->frmAsetus.Caption);
        }
    });
}

TEST_F(Forms, TheWizardAndItsFontDialog) {
    look(cmd_new_Click, [](Form& form) {
        if (&form == fFont.get()) {
            fFont->lst_size.ListIndex = fFont->lst_size.ListCount() - 1;
            fFont->lst_style.ListIndex = fFont->lst_style.ListCount() - 1;
            return check_inside(form, "font");
        }
        check_inside(form, "count");
        for (auto const* const count : {"8", "40"}) {
            fVelho->txtMaara.Text = count;
            input::click(fVelho->cmdSeuraava);
            check_inside(form, "titles " + std::string(count));
            input::click(fVelho->cmdEdellinen);
        }
        input::click(fVelho->cmdSeuraava);
        input::click(fVelho->cmdSeuraava);
        for (auto* const option : {&fVelho->optPosLeft, &fVelho->optAlignRight}) {
            input::click(*option);
            check_inside(form, "placement");
        }
        input::click(fVelho->cmdSeuraava);
        check_inside(form, "fonts");
        input::click(fVelho->cmdFontOts);
        session.dialogCancelled = true;
    });
}

} // namespace kehystin
