#include "platform/controls.h"

#include "platform/base.h"
#include "platform/form.h"
#include "platform/system.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

template <class C, class T>
struct MemberOf {
    using Class = C;
    using Type = T;
};
template <class C, class T>
MemberOf<C, T> member_of(Property<T> C::*);

/// The table row of a property that is a member.
template <auto Member>
constexpr PropertyEntry entry(std::string_view name) {
    using M = decltype(member_of(Member));
    using Class = typename M::Class;
    using Type = typename M::Type;
    PropertyEntry row{name,
                      [](Control const& control) {
                          return to_value((static_cast<Class const&>(control).*Member).get());
                      },
                      nullptr};
    if constexpr (!std::same_as<Type, Picture>)
        row.set = [](Control& control, Value const& value) {
            static_cast<Class&>(control).*Member = from_value<Type>(value);
        };
    return row;
}

constexpr std::array control_rows = {
    entry<&Control::Enabled>("Enabled"),
    entry<&Control::Visible>("Visible"),
    entry<&Control::Left>("Left"),
    entry<&Control::Top>("Top"),
    entry<&Control::Width>("Width"),
    entry<&Control::Height>("Height"),
    entry<&Control::Tag>("Tag"),
    entry<&Control::ToolTipText>("ToolTipText"),
    entry<&Control::TabStop>("TabStop"),
    PropertyEntry{
        "TabIndex", [](Control const& control) -> Value { return 1.0 * int{control.TabIndex}; },
        [](Control& control, Value const& value) { control.TabIndex = from_value<int>(value); }},
};

constexpr std::array text_rows = {
    entry<&TextControl::FontName>("FontName"),
    entry<&TextControl::FontSize>("FontSize"),
    entry<&TextControl::FontBold>("FontBold"),
    entry<&TextControl::FontItalic>("FontItalic"),
    entry<&TextControl::FontUnderline>("FontUnderline"),
    entry<&TextControl::ForeColor>("ForeColor"),
    entry<&TextControl::BackColor>("BackColor"),
};

constexpr std::array list_rows = {
    PropertyEntry{"ListIndex",
                  [](Control const& control) -> Value {
                      return 1.0 * int{static_cast<ListControl const&>(control).ListIndex};
                  },
                  [](Control& control, Value const& value) {
                      static_cast<ListControl&>(control).ListIndex = from_value<int>(value);
                  }},
    PropertyEntry{"ListCount",
                  [](Control const& control) -> Value {
                      return 1.0 * static_cast<ListControl const&>(control).ListCount();
                  },
                  nullptr},
    PropertyEntry{"NewIndex",
                  [](Control const& control) -> Value {
                      return 1.0 * static_cast<ListControl const&>(control).NewIndex();
                  },
                  nullptr},
    PropertyEntry{"Text",
                  [](Control const& control) -> Value {
                      return static_cast<ListControl const&>(control).chosen_text();
                  },
                  nullptr},
};

template <std::size_t... Sizes>
constexpr auto joined(std::array<PropertyEntry, Sizes> const&... parts) {
    std::array<PropertyEntry, (Sizes + ... + 0)> rows{};
    auto place = rows.begin();
    ((place = std::copy(parts.begin(), parts.end(), place)), ...);
    return rows;
}

template <class... Rows>
constexpr auto own(Rows... rows) {
    return std::array<PropertyEntry, sizeof...(Rows)>{rows...};
}

constexpr auto label_table =
    joined(control_rows, text_rows,
           own(entry<&Label::Caption>("Caption"), entry<&Label::Alignment>("Alignment"),
               entry<&Label::BackStyle>("BackStyle"), entry<&Label::BorderStyle>("BorderStyle")));
constexpr auto text_box_table =
    joined(control_rows, text_rows,
           own(entry<&TextBox::Text>("Text"), entry<&TextBox::MaxLength>("MaxLength"),
               entry<&TextBox::MultiLine>("MultiLine"), entry<&TextBox::ScrollBars>("ScrollBars"),
               entry<&TextBox::Locked>("Locked"), entry<&TextBox::SelStart>("SelStart"),
               entry<&TextBox::SelLength>("SelLength")));
constexpr auto check_box_table =
    joined(control_rows, text_rows,
           own(entry<&CheckBox::Caption>("Caption"), entry<&CheckBox::Value>("Value")));
constexpr auto option_button_table =
    joined(control_rows, text_rows,
           own(entry<&OptionButton::Caption>("Caption"), entry<&OptionButton::Value>("Value")));
constexpr auto list_table = joined(control_rows, text_rows, list_rows);
constexpr auto frame_table =
    joined(control_rows, text_rows,
           own(entry<&Frame::Caption>("Caption"), entry<&Frame::BorderStyle>("BorderStyle")));
constexpr auto picture_box_table = joined(
    control_rows, text_rows,
    own(entry<&PictureBox::Picture>("Picture"), entry<&PictureBox::BorderStyle>("BorderStyle"),
        entry<&PictureBox::AutoSize>("AutoSize"), entry<&PictureBox::Align>("Align")));
constexpr auto button_table =
    joined(control_rows, text_rows,
           own(entry<&Button::Caption>("Caption"), entry<&Button::Picture>("Picture"),
               entry<&Button::Default>("Default"), entry<&Button::Cancel>("Cancel"),
               entry<&Button::DragMode>("DragMode"), entry<&Button::Toggles>("Toggles"),
               entry<&Button::Checked>("Checked"), entry<&Button::DragWidth>("DragWidth"),
               entry<&Button::DragHeight>("DragHeight")));
constexpr auto scroll_bar_table = joined(
    control_rows, own(entry<&ScrollBar::Value>("Value"), entry<&ScrollBar::Min>("Min"),
                      entry<&ScrollBar::Max>("Max"), entry<&ScrollBar::SmallChange>("SmallChange"),
                      entry<&ScrollBar::LargeChange>("LargeChange")));
constexpr auto shape_table = joined(control_rows, own(entry<&Shape::BorderColor>("BorderColor")));
constexpr auto line_table =
    joined(control_rows, own(entry<&Line::X1>("X1"), entry<&Line::Y1>("Y1"), entry<&Line::X2>("X2"),
                             entry<&Line::Y2>("Y2"), entry<&Line::BorderColor>("BorderColor")));
constexpr auto timer_table = joined(control_rows, own(entry<&Timer::Interval>("Interval")));
constexpr auto menu_table = joined(
    control_rows, own(entry<&Menu::Caption>("Caption"), entry<&Menu::UseMnemonic>("UseMnemonic"),
                      entry<&Menu::Checked>("Checked"), entry<&Menu::Shortcut>("Shortcut")));
constexpr auto status_bar_table =
    joined(control_rows, text_rows, own(entry<&StatusBar::Align>("Align")));
constexpr auto form_table =
    joined(control_rows, text_rows,
           own(entry<&Form::Caption>("Caption"), entry<&Form::Picture>("Picture"),
               entry<&Form::WindowState>("WindowState")));

} // namespace

std::span<PropertyEntry const> Label::properties() const {
    return label_table;
}
std::span<PropertyEntry const> TextBox::properties() const {
    return text_box_table;
}
std::span<PropertyEntry const> CheckBox::properties() const {
    return check_box_table;
}
std::span<PropertyEntry const> OptionButton::properties() const {
    return option_button_table;
}
std::span<PropertyEntry const> ComboBox::properties() const {
    return list_table;
}
std::span<PropertyEntry const> ListBox::properties() const {
    return list_table;
}
std::span<PropertyEntry const> TreeView::properties() const {
    return list_table;
}
std::span<PropertyEntry const> Frame::properties() const {
    return frame_table;
}
std::span<PropertyEntry const> PictureBox::properties() const {
    return picture_box_table;
}
std::span<PropertyEntry const> Button::properties() const {
    return button_table;
}
std::span<PropertyEntry const> ScrollBar::properties() const {
    return scroll_bar_table;
}
std::span<PropertyEntry const> Shape::properties() const {
    return shape_table;
}
std::span<PropertyEntry const> Line::properties() const {
    return line_table;
}
std::span<PropertyEntry const> Timer::properties() const {
    return timer_table;
}
std::span<PropertyEntry const> Menu::properties() const {
    return menu_table;
}
std::span<PropertyEntry const> StatusBar::properties() const {
    return status_bar_table;
}
std::span<PropertyEntry const> Form::properties() const {
    return form_table;
}

void TextControl::check_text(PropertyBase const& property, std::string const& text) const {
    if (&property == &FontName && !host().accepts_font(text))
        throw RuntimeError(ErrorNumber::invalid_property_value);
}

void Label::copy_look(Control const& prototype) {
    TextControl::copy_look(prototype);
    auto const& source = static_cast<Label const&>(prototype);
    Alignment = source.Alignment;
    BackStyle = source.BackStyle;
    BorderStyle = source.BorderStyle;
}

void TextBox::property_changed(PropertyBase const& property) {
    TextControl::property_changed(property);
    if (&property != &Text)
        return;
    if (MaxLength > 0 && Len(Text.get()) > static_cast<std::size_t>(MaxLength.get())) {
        Text = platform::Left(Text.get(), static_cast<std::size_t>(MaxLength.get()));
        return; // the shorter text has raised the event already
    }
    SelStart = 0;
    SelLength = 0;
    Change(index());
}

void TextBox::select_all() {
    SelStart = 0;
    SelLength = static_cast<int>(Len(Text.get()));
}

void TextBox::replace_text(std::string text, int caret) {
    bool const changed = Text.get() != text;
    Text.show(std::move(text));
    SelStart.show(caret);
    SelLength.show(0);
    if (changed)
        Change(index());
}

void TextBox::copy_look(Control const& prototype) {
    TextControl::copy_look(prototype);
    auto const& source = static_cast<TextBox const&>(prototype);
    MaxLength = source.MaxLength;
    MultiLine = source.MultiLine;
    ScrollBars = source.ScrollBars;
    Locked = source.Locked;
    Change = source.Change;
}

void CheckBox::property_changed(PropertyBase const& property) {
    TextControl::property_changed(property);
    if (&property == &Value)
        Click(index());
}

void CheckBox::copy_look(Control const& prototype) {
    TextControl::copy_look(prototype);
}

void OptionButton::property_changed(PropertyBase const& property) {
    TextControl::property_changed(property);
    if (&property == &Value)
        Click(index());
}

void OptionButton::copy_look(Control const& prototype) {
    TextControl::copy_look(prototype);
}

ListIndexProperty& ListIndexProperty::operator=(int index) {
    show(index);
    owner_.Click(owner_.index());
    return *this;
}

void ListIndexProperty::show(int index) {
    if (index < -1 || index >= owner_.ListCount())
        throw RuntimeError(ErrorNumber::invalid_property_value);
    value_ = index;
    owner_.mark();
}

void ListControl::AddItem(std::string_view text, int at) {
    if (at < -1 || at > ListCount())
        throw RuntimeError(ErrorNumber::subscript_out_of_range);
    new_index_ = at < 0 ? ListCount() : at;
    items_.insert(items_.begin() + new_index_, Item{std::string(text), 0});
    if (ListIndex.value_ >= new_index_)
        ++ListIndex.value_;
    mark();
}

void ListControl::RemoveItem(int index) {
    item(index);
    items_.erase(items_.begin() + index);
    if (ListIndex.value_ == index)
        ListIndex.value_ = -1;
    else if (ListIndex.value_ > index)
        --ListIndex.value_;
    mark();
}

bool ListControl::move_chosen(int step) {
    int const from = ListIndex;
    int const to = from + step;
    if (from < 0 || to < 0 || to >= ListCount())
        return false;
    auto const moved = item(from);
    RemoveItem(from);
    AddItem(moved.text, to);
    set_ItemData(to, moved.data);
    ListIndex = to;
    return true;
}

void ListControl::Clear() {
    items_.clear();
    ListIndex.value_ = -1;
    new_index_ = -1;
    mark();
}

void ListControl::set_List(int index, std::string_view text) {
    item(index);
    items_[static_cast<std::size_t>(index)].text = text;
    mark();
}

void ListControl::set_ItemData(int index, int data) {
    item(index);
    items_[static_cast<std::size_t>(index)].data = data;
}

std::string ListControl::chosen_text() const {
    return ListIndex < 0 ? std::string() : List(ListIndex);
}

int ListControl::find_item(std::string_view text) const {
    auto const found = std::find_if(items_.begin(), items_.end(),
                                    [&](Item const& item) { return item.text == text; });
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

ListControl::Item const& ListControl::item(int index) const {
    if (index < 0 || index >= ListCount())
        throw RuntimeError(ErrorNumber::subscript_out_of_range);
    return items_[static_cast<std::size_t>(index)];
}

void Canvas::Cls() {
    CurrentX = 0;
    CurrentY = 0;
    if (drawing_.empty())
        return;
    drawing_.clear();
    canvas_control().mark();
}

void Canvas::PSet(Integer x, Integer y, Colour colour) {
    drawing_.add_dot(static_cast<std::int16_t>(int{x}), static_cast<std::int16_t>(int{y}), colour);
    canvas_control().mark();
}

void Canvas::DrawLine(double x1, double y1, double x2, double y2, Colour colour) {
    drawing_.add(DrawingLayer::Line{x1, y1, x2, y2, colour});
    canvas_control().mark();
}

void Canvas::DrawFilledBox(double x1, double y1, double x2, double y2, Colour colour) {
    drawing_.add(DrawingLayer::FilledBox{x1, y1, x2, y2, colour});
    canvas_control().mark();
}

void Canvas::Print(std::string_view text) {
    drawing_.add(DrawingLayer::Text{CurrentX, CurrentY, std::string(text)});
    CurrentX = 0;
    CurrentY += TextHeight(text);
    canvas_control().mark();
}

void Canvas::PaintPicture(Picture const& picture, double x, double y, double width, double height) {
    drawing_.add(DrawingLayer::PaintedPicture{picture, x, y, width, height});
    canvas_control().mark();
}

namespace {

/// Pixels to the unit of a control's form.
double form_unit(Control const& control) {
    return control.form().scale() == ScaleMode::pixels ? 1 : host().metrics().TwipsPerPixelX;
}

} // namespace

double Canvas::TextWidth(std::string_view text) const {
    return host().measure_text(canvas_control().font(), text).width * form_unit(canvas_control());
}

double Canvas::TextHeight(std::string_view text) const {
    return host().measure_text(canvas_control().font(), text).height * form_unit(canvas_control());
}

void PictureBox::property_changed(PropertyBase const& property) {
    TextControl::property_changed(property);
    bool const resizes = &property == &AutoSize || &property == &Picture;
    if (!resizes || !AutoSize || Picture.get().empty())
        return;
    Width = Picture.get().size().width * form_unit(*this);
    Height = Picture.get().size().height * form_unit(*this);
}

void PictureBox::copy_look(Control const& prototype) {
    TextControl::copy_look(prototype);
    BorderStyle = static_cast<PictureBox const&>(prototype).BorderStyle;
}

void Button::copy_look(Control const& prototype) {
    TextControl::copy_look(prototype);
    DragMode = static_cast<Button const&>(prototype).DragMode;
}

void Menu::property_changed(PropertyBase const& property) {
    Control::property_changed(property);
    if (&property == &Checked)
        Toggled(index());
}

void ScrollBar::property_changed(PropertyBase const& property) {
    Control::property_changed(property);
    if (&property == &Value)
        Change(index());
}

void Shape::copy_look(Control const& prototype) {
    Control::copy_look(prototype);
    BorderColor = static_cast<Shape const&>(prototype).BorderColor;
}

void Line::copy_look(Control const& prototype) {
    Control::copy_look(prototype);
    BorderColor = static_cast<Line const&>(prototype).BorderColor;
}

Timer::Timer(Control* container, std::string_view name, int interval, bool enabled)
    : Control(container, name), Interval(*this, interval) {
    leave_tab_order();
    System::current().timers_.push_back(this);
    if (!enabled)
        Enabled = false;
    else
        host().timer_changed(*this);
}

Timer::~Timer() {
    std::erase(System::current().timers_, this);
}

void Timer::property_changed(PropertyBase const& property) {
    if (&property == &Enabled || &property == &Interval)
        host().timer_changed(*this);
}

std::string const& StatusBar::Panels(int number) const {
    if (number < 1 || number > panel_count())
        throw RuntimeError(ErrorNumber::subscript_out_of_range);
    return panels_[static_cast<std::size_t>(number) - 1];
}

void StatusBar::set_Panels(int number, std::string_view text) {
    if (Panels(number) == text)
        return;
    panels_[static_cast<std::size_t>(number) - 1] = text;
    mark();
}

void StatusBar::set_panel_count(int count) {
    panels_.resize(static_cast<std::size_t>(count));
    mark();
}

} // namespace platform
