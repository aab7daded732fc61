// The rows of the property panel over all kinds of field, and hostile texts. What a user does with
// each row stands in the scenarios.
#include "forms/panel_rows.h"
#include "mainwindow/bars.h"
#include "model/default_looks.h"
#include "panel/selection_rows.h"
#include "platform/input.h"
#include "platform/system.h"
#include "properties/list_editor.h"
#include "surface/load_card.h"
#include "tests/scenario/pictures.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

namespace {

using namespace std::string_literals;

} // namespace

class PropertyRows : public FreshSession {
  protected:
    void SetUp() override {
        start();
        card.name = "";
        card.picture = "";
        card.width = 600;
        card.height = 400;
    }
    /// One field of each kind in the order of `kinds`, from number 1 on.
    void show_all_kinds() {
        card.fields = 0;
        for (auto const& kind : kinds) {
            auto const style = kind.style;
            auto& one = add_field(style, 10 + 70 * int{card.fields}, 20, 60, 40, "A");
            one.list = style == Style::CMB ? "Yksi|Kaksi|" : "";
            one.value = style == Style::CMB ? "0" : "";
        }
        ASSERT_TRUE(load_card());
        show_card_bars();
    }
    /// Of the field of a kind behind show_all_kinds.
    static int number_of(Style style) { return static_cast<int>(kind_index(style)) + 1; }
    static void select_all() {
        for (int i = 1; i <= card.fields; ++i)
            fCard->focus(i).Visible = true;
        set_pro();
    }
    static void put(Row row, std::string_view text) {
        auto& editor = editor_of(row);
        if (!editor.can_take_focus())
            return;
        input::focus(editor);
        input::paste(editor, text);
    }
    void expect_numbers_in_range() {
        for (int i = 1; i <= card.fields; ++i) {
            auto const& one = field(i);
            EXPECT_TRUE(one.left >= 0 && one.left <= card.width);
            EXPECT_TRUE(one.top >= 0 && one.top <= card.height);
            EXPECT_TRUE(one.width >= 1 && one.width <= card.width);
            EXPECT_TRUE(one.height >= 1 && one.height <= card.height);
            EXPECT_TRUE(one.size >= 1 && one.size <= 30000);
            EXPECT_TRUE(one.fontSize >= 4 && one.fontSize <= 32);
            EXPECT_TRUE(one.tabIndex >= 0 && one.tabIndex <= 990);
            EXPECT_TRUE(host.accepts_font(one.fontName.trimmed()));
        }
        EXPECT_TRUE(card.width >= 60 && card.width <= 3000);
        EXPECT_TRUE(card.height >= 60 && card.height <= 3000);
    }
};

TEST_F(PropertyRows, EveryKindFollowsPlaceAndSizeWithItsFrame) {
    show_all_kinds();
    for (int i = 1; i <= card.fields; ++i) {
        auto const style = kinds[static_cast<std::size_t>(i) - 1].style;
        SCOPED_TRACE(code_of(style));
        fEditor->cmb_field.ListIndex = i;
        put(Row::left, "31");
        put(Row::top, "32");
        put(Row::width, "133");
        put(Row::height, "134");
        auto const& object = *fCard->visual_of(i);
        bool const has_height = style != Style::CMB;
        EXPECT_EQ(object.Left, 31);
        EXPECT_EQ(object.Top, 32);
        EXPECT_EQ(object.Width, 133);
        EXPECT_EQ(object.Height, has_height ? 134 : 21);
        EXPECT_EQ(field(i).height, has_height ? 134 : 40);
        auto const& frame = fCard->focus(i);
        EXPECT_EQ(frame.Left, 30);
        EXPECT_EQ(frame.Top, 31);
        EXPECT_EQ(frame.Width, 135);
        EXPECT_EQ(frame.Height, has_height ? 136 : 42);
        EXPECT_TRUE(frame.Visible);
    }
}

TEST_F(PropertyRows, EveryKindTakesALookAndRemembersItForItself) {
    show_all_kinds();
    for (auto& look : default_looks)
        look = {};
    for (int i = 1; i <= card.fields; ++i) {
        auto const style = kinds[static_cast<std::size_t>(i) - 1].style;
        SCOPED_TRACE(code_of(style));
        fEditor->cmb_field.ListIndex = i;
        EXPECT_EQ(default_look(style).fontName, "");
        put(Row::font_name, "TAHOMA");
        put(Row::font_size, "11");
        put(Row::bold, "yes");
        put(Row::italic, "yes");
        host.answers.assign(2, scenario::ColourAnswer{colours::blue});
        input::click(fEditor->FC);
        input::click(fEditor->BC);
        auto const& object = *fCard->visual_of(i);
        EXPECT_EQ(object.FontName, "Tahoma");
        EXPECT_EQ(object.FontSize, 11);
        EXPECT_TRUE(object.FontBold && object.FontItalic);
        EXPECT_EQ(object.ForeColor, colours::blue);
        EXPECT_EQ(object.BackColor, colours::blue);
        auto const& look = default_look(style);
        EXPECT_EQ(look.fontName, "Tahoma");
        EXPECT_EQ(look.fontSize, 11);
        EXPECT_TRUE(look.fontBold && look.fontItalic);
        EXPECT_EQ(look.foreColor, colours::blue);
        EXPECT_EQ(look.backColor, colours::blue);
        EXPECT_EQ(look.width, 0);
    }
}

TEST_F(PropertyRows, EveryLetterJumpsToItsWordAndSelectsIt) {
    struct Letters {
        Row row;
        Style style;
        std::string_view letters;
        std::string_view word;
    };
    show_all_kinds();
    using enum Style;
    for (auto const& [row, style, letters, word] :
         {Letters{Row::bold, TXT, "KYky", "Kyllä"}, Letters{Row::bold, TXT, "ENen", "Ei"},
          Letters{Row::linkable, OTS, "KYky", "Kyllä"}, Letters{Row::linkable, OTS, "ENen", "Ei"},
          Letters{Row::align, OTS, "CKck", "Keskelle"},
          Letters{Row::align, OTS, "LVlv", "Vasemmalle"},
          Letters{Row::align, OTS, "ORor", "Oikealle"},
          Letters{Row::scaling, IMG, "Ee", "Ei skaalausta"},
          Letters{Row::scaling, IMG, "Vv", "Venytetty"},
          Letters{Row::scaling, IMG, "Kk", "Kehys kuvaan"},
          Letters{Row::scaling, IMG, "Ss", "Sovitettu"},
          Letters{Row::border, IMG, "Ee", "Ei kehystä"},
          Letters{Row::border, IMG, "Nn", "Näytä kehys"}, Letters{Row::value, CHK, "Vv", "Valittu"},
          Letters{Row::value, OPT, "Ee", "Ei valittu"}}) {
        fEditor->cmb_field.ListIndex = number_of(style);
        auto& editor = editor_of(row);
        for (char const letter : letters) {
            put(row, "x");
            input::focus(editor);
            input::type(editor, std::string(1, letter));
            EXPECT_EQ(editor.Text, std::string(word)) << letter;
            EXPECT_EQ(editor.SelStart, 0);
            EXPECT_EQ(editor.SelLength, static_cast<int>(Len(word)));
        }
        input::type(editor, "z");
        EXPECT_EQ(editor.Text, "z");
    }
}

TEST_F(PropertyRows, AnyTextInAnyRowIsStoredAsItShouldOrNotAtAll) {
    std::vector<std::string> texts = {"a\0b"s, "\0"s};
    for (auto const* const text :
         {"",      " ",          "-",      "0",        "-1",     "32767",  "32768",
          "65536", "1e9",        "-1e308", "1e309",    "1d400",  "&HFFFF", "&O7",
          "0.5",   "2147483648", "|||",    "a|b\r\nc", "\t\r\n", "ÅÄÖ€",   "\u2603\U0001F600",
          "'\"",   "+5",         "- 5",    "KYLLÄ\n"})
        texts.emplace_back(text);
    for (char const letter : {'x', '9', '|'})
        texts.emplace_back(1 << 20, letter);
    texts.push_back(std::string(1 << 20, ' ') + "5");
    show_all_kinds();
    auto const try_all_rows = [&] {
        for (auto const& row : panel_rows())
            for (auto const& text : texts) {
                SCOPED_TRACE(testing::Message() << row.caption << ": " << text.substr(0, 20));
                put(row.row, text);
                expect_numbers_in_range();
            }
    };
    for (int i = 0; i <= card.fields; ++i) {
        fEditor->cmb_field.ListIndex = i;
        try_all_rows();
    }
    select_all();
    try_all_rows();
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(Len(card.name.str()), 50U);
    EXPECT_TRUE(load_card());
}

TEST_F(PropertyRows, TypedCharactersOutsideTheCodePageDoNoHarm) {
    show_all_kinds();
    for (int i = 0; i <= card.fields; ++i) {
        fEditor->cmb_field.ListIndex = i;
        for (auto const& row : panel_rows())
            if (auto& editor = editor_of(row.row); editor.can_take_focus()) {
                input::focus(editor);
                input::type(editor, "\u2603\U0001F600\x7f\x01€Ä");
            }
    }
    expect_numbers_in_range();
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(PropertyRows, AnItemOfAMegabyteFillsItsRecordAndNothingElse) {
    show_all_kinds();
    int const number = number_of(Style::CMB);
    fEditor->cmb_field.ListIndex = number;
    input::focus(fEditor->txt_list);
    input::click(fEditor->cmd_list);
    host.answers = {scenario::InputAnswer{std::string(1 << 20, 'x')}, Answer::ok};
    input::click(fEditor->cmd_list_add);
    ASSERT_EQ(host.boxes.size(), 2U);
    EXPECT_EQ(host.boxes[1].flags, 48);
    EXPECT_EQ(Len(field(number).list.str()), 400U);
    EXPECT_EQ(fCard->cmb(number).ListCount(), 2);
    EXPECT_EQ(field(number + 1).list.trimmed(), "");
}

TEST_F(PropertyRows, APathLongerThanItsRecordIsNotHalfTaken) {
    show_all_kinds();
    auto const path = folder / (std::string(200, 'k') + ".bmp");
    put_bytes(path, *scenario::picture_bytes(path, 30, 20));
    fEditor->cmb_field.ListIndex = 0;
    input::focus(fEditor->txt_picture);
    host.answers = {scenario::FileAnswer{path}, Answer::ok};
    input::click(fEditor->cmd_picture);
    EXPECT_EQ(card.picture.trimmed(), fCard->Picture.get().name());
    int const image = number_of(Style::IMG);
    fEditor->cmb_field.ListIndex = image;
    input::focus(fEditor->txt_imgfile);
    host.answers = {scenario::FileAnswer{std::string(500, 'k')}, Answer::ok};
    input::click(fEditor->cmd_imgfile);
    EXPECT_EQ(field(image).list.trimmed(), "");
    EXPECT_TRUE(fCard->img(image).Picture.get().empty());
}

TEST_F(PropertyRows, AListStandsBesideItsRow) {
    show_all_kinds();
    host.clock.run(100);
    for (int i = 0; i <= card.fields; ++i) {
        fEditor->cmb_field.ListIndex = i;
        for (auto const& row : panel_rows()) {
            auto& editor = editor_of(row.row);
            if (!row.list || !editor.can_take_focus())
                continue;
            input::focus(editor);
            auto const& list = (*fEditor).*row.list;
            double const editor_top = fEditor->proPic.Top + editor.Top;
            bool const below = list.Top >= editor_top + editor.Height;
            bool const above = list.Top + list.Height <= editor_top;
            EXPECT_TRUE(below || above) << row.caption;
            EXPECT_EQ(list.Width, editor.Width + (row.row == Row::link ? 0 : 300)) << row.caption;
            EXPECT_FALSE(list.Visible);
            input::click((*fEditor).*row.button);
            EXPECT_EQ(list.is_shown(), list.ListCount() > 0) << row.caption; // no empty box
        }
    }
    EXPECT_FALSE(session.cardModified);
}

TEST_F(PropertyRows, APressBesideAnEditorGivesItTheKeyboard) {
    show_all_kinds();
    host.clock.run(100);
    fEditor->cmb_field.ListIndex = 1;
    // The rows' area stands in two others; the form's inside is in pixels.
    auto const press_beside = [](TextBox const& editor) {
        double x = editor.Left + editor.Width + 60;
        double y = editor.Top + 90;
        for (auto const* at = editor.container(); at != fEditor.get(); at = at->container()) {
            x += at->Left;
            y += at->Top;
        }
        input::mouse_press(*fEditor, x / twips_per_pixel, y / twips_per_pixel, false);
        input::mouse_release(*fEditor, x / twips_per_pixel, y / twips_per_pixel);
    };
    press_beside(fEditor->txt_fontBold);
    EXPECT_EQ(System::current().focused(), &fEditor->txt_fontBold);
    EXPECT_TRUE(fEditor->cmd_fontBold.Visible);
    press_beside(fEditor->txt_left);
    EXPECT_EQ(System::current().focused(), &fEditor->txt_left);
}

TEST_F(PropertyRows, TheListEditorWritesToAllSelectedFields) {
    show_all_kinds();
    int drop_down = 0;
    int files = 0;
    for (int i = 1; i <= card.fields; ++i) {
        drop_down = field(i).is(Style::CMB) ? i : drop_down;
        files = field(i).is(Style::LST) ? i : files;
        fCard->focus(i).Visible = field(i).is(Style::CMB) || field(i).is(Style::LST);
    }
    set_pro();
    fEditor->lst_list.Clear();
    fEditor->lst_list.AddItem("yksi");
    EXPECT_TRUE(UpdateCombo(Overlong::warn));
    EXPECT_EQ(field(drop_down).list.trimmed(), "yksi|");
    EXPECT_EQ(field(files).list.trimmed(), "yksi|");
    EXPECT_EQ(fCard->cmb(drop_down).ListCount(), 1);
    EXPECT_EQ(fCard->lst(files).ListCount(), 1); // its sample line
}

TEST_F(PropertyRows, AFontNameLongerThanItsRecordIsNoFont) {
    show_all_kinds();
    host.font_names.push_back(std::string(60, 'F'));
    fEditor->lst_fontName.AddItem(std::string(60, 'F'));
    fEditor->cmb_field.ListIndex = 2;
    put(Row::font_name, std::string(60, 'F'));
    EXPECT_TRUE(host.boxes.empty());
    auto const stored = field(2).fontName.trimmed();
    EXPECT_TRUE(stored == "MS Sans Serif" || stored == std::string(50, 'F'));
}

TEST_F(PropertyRows, APlaceAtTheEndOfTheNumberRangeIsShownAndLeftAlone) {
    for (int const end : {-32768, 32767}) {
        card.fields = 0;
        add_field(Style::OTS, 0, 0, 60, 40, "A");
        field(1).left = end;
        field(1).top = end;
        ASSERT_TRUE(load_card());
        show_card_bars();
        fEditor->cmb_field.ListIndex = 1;
        EXPECT_EQ(fEditor->txt_left.Text, std::to_string(end));
        put(Row::width, "70");
        put(Row::font_size, "9");
        EXPECT_EQ(field(1).left, end);
        EXPECT_EQ(field(1).width, 70);
        EXPECT_TRUE(host.boxes.empty());
        put(Row::left, "5");
        EXPECT_EQ(field(1).left, 5);
    }
}

TEST_F(PropertyRows, ArrowsCountOnFromWhatTheSelectedFieldsHaveNow) {
    show_all_kinds();
    fEditor->cmb_field.ListIndex = 1;
    fCard->focus(2).Visible = true;
    set_pro();
    input::focus(fEditor->txt_top);
    auto& arrows = fEditor->scr_top;
    field(2).top = 90;
    input::step(arrows, -1);
    EXPECT_EQ(field(1).top, 20);
    EXPECT_EQ(field(2).top, 90);
    // A command brings them into line without telling the row.
    field(1).top = field(2).top = 74;
    input::step(arrows, -1);
    EXPECT_EQ(field(1).top, 75);
    EXPECT_EQ(field(2).top, 75);
    input::step(arrows, 200);
    EXPECT_EQ(field(1).top, 75); // the card does not begin there
}

TEST_F(PropertyRows, ScrollBarsTakeEverySixteenBitValue) {
    show_all_kinds();
    fEditor->cmb_field.ListIndex = 2;
    for (auto const& row : panel_rows()) {
        if (!row.scroll)
            continue;
        input::focus(editor_of(row.row));
        auto& bar = (*fEditor).*row.scroll;
        for (int const value : {-32768, 32767, 1, 0, -30001, -30000, -1}) {
            input::scroll(bar, value);
            EXPECT_EQ(bar.Value, value);
            expect_numbers_in_range();
        }
    }
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(field(2).size, 1);
}

} // namespace kehystin
