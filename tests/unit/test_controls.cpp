#include "platform/input.h"
#include "platform/system.h"
#include "tests/scenario/scripted_host.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

class DemoForm : public Form {
  public:
    DemoForm() : Form("demo", FormKind::child, ScaleMode::pixels) {
        Move(0, 0, 3000, 3000);
        Visible = true;
    }
    ~DemoForm() override { begin_unload(); }
    PictureBox box{this, "box"};
    TextBox text{&box, "text"};
    TextBox second{this, "second"};
    CheckBox check{this, "check"};
    ListBox list{this, "list"};
    Collection<Label> label{this, "label"};
    Shape frame{this, "frame"};
    ScrollBar bar{this, "bar"};
};

class Controls : public testing::Test {
  protected:
    scenario::ScriptedHost host;
    System system{host};
    DemoForm form;
    std::vector<std::string> events;

    auto note(std::string what) {
        return [this, what] { events.push_back(what); };
    }
};

} // namespace

TEST_F(Controls, SettingAnotherValueRaisesTheEventBeforeTheNextStatement) {
    form.text.Change = note("change");
    form.text.Text = "a";
    EXPECT_EQ(events, std::vector<std::string>{"change"});
    form.text.Text = "a";
    EXPECT_EQ(events.size(), 1U);
    form.Resize = note("resize");
    form.Width = 4000;
    form.Width = 4000;
    EXPECT_EQ(events.size(), 2U);
}

TEST_F(Controls, ListIndexRaisesClickAlsoToItsOwnValue) {
    form.list.Click = note("click");
    form.list.AddItem("a");
    form.list.ListIndex = 0;
    form.list.ListIndex = 0;
    form.list.ListIndex = -1;
    EXPECT_EQ(events.size(), 3U);
    EXPECT_THROW(form.list.ListIndex = 1, RuntimeError);
    EXPECT_THROW(form.list.List(1), RuntimeError);
    form.list.AddItem("b", 0);
    EXPECT_EQ(form.list.NewIndex(), 0);
    EXPECT_EQ(form.list.List(1), "a");
}

TEST_F(Controls, ARefusedFontNameLeavesTheOldOne) {
    EXPECT_THROW(form.text.FontName = "Nowhere", RuntimeError);
    EXPECT_EQ(form.text.FontName, "MS Sans Serif");
}

TEST_F(Controls, TabIndexRenumbersAndCaps) {
    int const last = static_cast<int>(form.tab_order().size()) - 1;
    form.text.TabIndex = 990;
    EXPECT_EQ(form.text.TabIndex, last);
    form.check.TabIndex = 0;
    EXPECT_EQ(form.check.TabIndex, 0);
    EXPECT_EQ(form.box.TabIndex, 1);
    EXPECT_EQ(form.text.TabIndex, last);
    auto const& order = form.tab_order();
    EXPECT_EQ(std::find(order.begin(), order.end(), &form.frame), order.end());
}

TEST_F(Controls, AHiddenContainerTakesTheFocusAway) {
    form.text.LostFocus = note("lost");
    form.text.SetFocus();
    EXPECT_EQ(system.focused(), &form.text);
    form.box.Visible = false;
    EXPECT_EQ(system.focused(), nullptr);
    EXPECT_EQ(events, std::vector<std::string>{"lost"});
    form.text.SetFocus();
    EXPECT_EQ(system.focused(), nullptr);
    EXPECT_THROW(input::focus(form.text), InputRefused);
}

TEST_F(Controls, AUserTakesAScrollBarNoFurtherThanItsEnds) {
    form.bar.Min = 40; // a bar may run against its numbers
    form.bar.Max = -10;
    form.bar.Change = [&](int) { events.push_back(std::to_string(form.bar.Value.get())); };
    for (int const value : {40, -10})
        input::scroll(form.bar, value);
    for (int const value : {41, -11, 32767})
        EXPECT_THROW(input::scroll(form.bar, value), InputRefused) << value;
    EXPECT_EQ(events, (std::vector<std::string>{"40", "-10"}));
    form.bar.Value = 500; // the program's own value is taken as it is
    EXPECT_EQ(form.bar.Value, 500);
}

TEST_F(Controls, CollectionsTakeOverThePrototypesLookAndHandlers) {
    int clicked = 0;
    form.label.prototype().Click = [&](int index) { clicked = index; };
    form.label.prototype().ForeColor = colours::blue;
    auto& third = form.label.Load(3);
    EXPECT_FALSE(third.Visible);
    EXPECT_EQ(third.ForeColor, colours::blue);
    third.Visible = true;
    input::click(third);
    EXPECT_EQ(clicked, 3);
    EXPECT_THROW(form.label(2), RuntimeError);
    EXPECT_THROW(form.label.Load(3), RuntimeError);
    form.label.Unload(3);
    EXPECT_FALSE(form.label.has(3));
}

TEST_F(Controls, TypingReplacesTheSelectionAndKeepsTheCaretThatAHandlerSets) {
    form.text.MaxLength = 5;
    input::focus(form.text);
    input::paste(form.text, "abcdefgh");
    EXPECT_EQ(form.text.Text, "abcde");
    form.text.select_all();
    form.text.Change = [&] {
        if (form.text.Text.get() == "x")
            form.text.SelLength = 0;
    };
    input::type(form.text, "xä");
    EXPECT_EQ(form.text.Text, "xä");
    EXPECT_EQ(form.text.SelStart, 2);
    form.text.KeyPress = [](int, char32_t& key) { key = key == U'q' ? 0 : U'K'; };
    input::type(form.text, "qz");
    EXPECT_EQ(form.text.Text, "xäK");
    input::press(form.text, Key::backspace);
    EXPECT_EQ(form.text.Text, "xä");
}

TEST_F(Controls, AFailureEndsAtTheEdge) {
    form.check.Click = [] { throw RuntimeError(ErrorNumber::overflow); };
    form.check.Move(0, 0, 10, 10);
    int failures = 0;
    system.on_failure = [&](RuntimeError const& error) { failures += error.number(); };
    input::click(form.check);
    EXPECT_EQ(failures, 6);
    form.check.Click = [] { throw SessionEnd{}; };
    EXPECT_THROW(input::click(form.check), SessionEnd);
}

TEST_F(Controls, APressBelongsToOneObjectUpToItsRelease) {
    form.box.Move(10, 10, 100, 100);
    form.text.Move(5, 5, 20, 20);
    form.second.Move(200, 200, 50, 50);
    std::vector<double> places;
    auto const record = [&](int, MouseArguments const& mouse) { places.push_back(mouse.X); };
    form.text.MouseDown = record;
    form.text.MouseMove = record;
    form.text.MouseUp = record;
    form.second.MouseUp = [&](int, MouseArguments const&) { FAIL(); };
    form.box.MouseDown = [&](int, MouseArguments const&) { FAIL(); };
    input::mouse_press(form, 17, 17, false);
    input::mouse_press(form, 210, 210, false, 2);
    input::mouse_move(form, 210, 210);
    input::mouse_release(form, 210, 210);
    input::mouse_release(form, 210, 210);
    // Objects count in twips from their own corner, whatever their form counts in.
    EXPECT_EQ(places, (std::vector<double>{30, 195 * 15, 195 * 15}));
}

TEST_F(Controls, AnObjectThatGoesInTheMiddleOfAPressTakesThePressWithIt) {
    auto& label = form.label.Load(1);
    label.Move(0, 0, 50, 50);
    label.Visible = true;
    label.MouseUp = [&](int, MouseArguments const&) { events.push_back("up"); };
    input::mouse_press(form, 5, 5, false);
    form.label.Unload(1);
    input::mouse_release(form, 5, 5);
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(system.mouse().captured, nullptr);
}

TEST_F(Controls, EveryListedPropertyCanBeReadAndWrittenBack) {
    for (auto* const control : form.controls())
        for (auto const& entry : control->properties())
            if (entry.set) {
                EXPECT_NO_THROW(entry.set(*control, entry.get(*control)))
                    << control->full_name() << "." << entry.name;
            }
}
