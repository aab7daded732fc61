// The control classes. Each lists its properties by name in one table (controls.cpp), which the
// desktop, the tests and any tool share.
#pragma once

#include "platform/control.h"

#include <functional>
#include <memory>
#include <optional>

namespace platform {

enum class Alignment { left = 0, right = 1, centre = 2 };
enum class BackStyle { transparent = 0, opaque = 1 };

class Label : public TextControl {
  public:
    using TextControl::TextControl;
    Property<std::string> Caption{*this};
    Property<int> Alignment{*this, 0};
    Property<int> BackStyle{*this, 1};
    Property<int> BorderStyle{*this, 0};
    /// A click leads somewhere, and so does Enter on the label.
    bool is_link = false;
    /// What the label is the caption of, for those who do not see that the two stand side by side;
    /// null for none. It goes after the label.
    Control* caption_of = nullptr;

    ControlClass control_class() const override { return ControlClass::label; }
    bool takes_focus() const override { return is_link; }
    std::span<PropertyEntry const> properties() const override;
    void copy_look(Control const& prototype) override;
};

class Button;
class ScrollBar;

class TextBox : public TextControl {
  public:
    using TextControl::TextControl;
    /// Raises Change when it becomes another text. Cut to MaxLength characters, 0 meaning no limit.
    Property<std::string> Text{*this};
    Property<int> MaxLength{*this, 0};
    Property<bool> MultiLine{*this, false};
    Property<bool> ScrollBars{*this, false};
    Property<bool> Locked{*this, false};
    /// First selected character and their number, both in characters.
    Property<int> SelStart{*this, 0};
    Property<int> SelLength{*this, 0};

    Event Change;

    void select_all();
    /// What typing does: the new text with the caret already behind what came in, then Change.
    void replace_text(std::string text, int caret);
    /// What the keys beside the text reach: a button that opens something for it, and a bar that Up
    /// and Down move. Null for none.
    Button* opener = nullptr;
    ScrollBar* stepper = nullptr;

    ControlClass control_class() const override { return ControlClass::text_box; }
    std::span<PropertyEntry const> properties() const override;
    bool takes_focus() const override { return true; }
    void copy_look(Control const& prototype) override;

  protected:
    void property_changed(PropertyBase const& property) override;
};

class CheckBox : public TextControl {
  public:
    using TextControl::TextControl;
    Property<std::string> Caption{*this};
    /// 0 clear, 1 checked, 2 greyed; another value raises Click.
    Property<int> Value{*this, 0};

    ControlClass control_class() const override { return ControlClass::check_box; }
    std::span<PropertyEntry const> properties() const override;
    bool takes_focus() const override { return true; }
    void copy_look(Control const& prototype) override;

  protected:
    void property_changed(PropertyBase const& property) override;
};

class OptionButton : public TextControl {
  public:
    using TextControl::TextControl;
    Property<std::string> Caption{*this};
    /// Another value raises Click.
    Property<bool> Value{*this, false};

    ControlClass control_class() const override { return ControlClass::option_button; }
    std::span<PropertyEntry const> properties() const override;
    bool takes_focus() const override { return true; }
    void copy_look(Control const& prototype) override;

  protected:
    void property_changed(PropertyBase const& property) override;
};

class ListControl;

/// The chosen item, -1 for none. Setting it raises Click, also to the value it has; a number
/// without an item raises invalid_property_value.
class ListIndexProperty {
  public:
    explicit ListIndexProperty(ListControl& owner) : owner_(owner) {}
    ListIndexProperty(ListIndexProperty const&) = delete;
    ListIndexProperty& operator=(ListIndexProperty const&) = delete;

    operator int() const { return value_; }
    ListIndexProperty& operator=(int index);
    /// Shows an item as chosen without raising anything.
    void show(int index);

  private:
    friend class ListControl;
    ListControl& owner_;
    int value_ = -1;
};

/// What list and combo boxes share: items with a number beside each.
class ListControl : public TextControl {
  public:
    using TextControl::TextControl;

    ListIndexProperty ListIndex{*this};
    /// The user has chosen an item, after Click. Setting ListIndex does not raise it.
    Event Picked;

    /// Adds behind the last item, or before the item `at`.
    void AddItem(std::string_view text, int at = -1);
    void RemoveItem(int index);
    /// Moves the chosen item by `step` places and chooses it there. False, with nothing done, where
    /// there are not as many.
    bool move_chosen(int step);
    void Clear();
    int ListCount() const { return static_cast<int>(items_.size()); }
    /// The place of the item added last, -1 before the first.
    int NewIndex() const { return new_index_; }
    /// Raises subscript_out_of_range for a number without an item.
    std::string const& List(int index) const { return item(index).text; }
    void set_List(int index, std::string_view text);
    int ItemData(int index) const { return item(index).data; }
    void set_ItemData(int index, int data);
    /// The chosen item's text, empty when none is chosen.
    std::string chosen_text() const;
    /// The first item of this text, or -1.
    int find_item(std::string_view text) const;

    bool takes_focus() const override { return true; }

  private:
    friend class ListIndexProperty;
    struct Item {
        std::string text;
        int data = 0;
    };
    Item const& item(int index) const;

    std::vector<Item> items_;
    int new_index_ = -1;
};

/// A list of which only the chosen item shows until it is opened.
class ComboBox : public ListControl {
  public:
    using ListControl::ListControl;
    /// Ctrl with Enter or a blank on a line of the open list does this with its index, and chooses
    /// nothing.
    Event AddByKey;

    ControlClass control_class() const override { return ControlClass::combo_box; }
    std::span<PropertyEntry const> properties() const override;
};

class ListBox : public ListControl {
  public:
    using ListControl::ListControl;
    /// It opens over something else: keys move a mark in it, and choose nothing before Enter.
    bool pops_up = false;

    ControlClass control_class() const override { return ControlClass::list_box; }
    std::span<PropertyEntry const> properties() const override;
};

/// A list whose items are the nodes of a tree. All of them stand at its root, always in view; a
/// click on a node raises Click, also on the one that is chosen already.
class TreeView : public ListControl {
  public:
    using ListControl::ListControl;
    ControlClass control_class() const override { return ControlClass::tree_view; }
    std::span<PropertyEntry const> properties() const override;
};

/// Holds other controls, with a line around them and a caption in the line. What stands in it is
/// shown and enabled only while it is.
class Frame : public TextControl {
  public:
    using TextControl::TextControl;
    Property<std::string> Caption{*this};
    /// 0 leaves out line and caption.
    Property<int> BorderStyle{*this, 1};

    ControlClass control_class() const override { return ControlClass::frame; }
    std::span<PropertyEntry const> properties() const override;
};

/// What can be drawn on: a form, or a picture box. Distances are in the unit inside it.
class Canvas {
  public:
    virtual ~Canvas() = default;
    double CurrentX = 0;
    double CurrentY = 0;

    /// Removes everything drawn and nothing else.
    void Cls();
    void PSet(Integer x, Integer y, Colour colour);
    void DrawLine(double x1, double y1, double x2, double y2, Colour colour);
    void DrawFilledBox(double x1, double y1, double x2, double y2, Colour colour);
    /// Writes at the current position in the canvas's font.
    void Print(std::string_view text);
    void PaintPicture(Picture const& picture, double x, double y, double width, double height);
    double TextWidth(std::string_view text) const;
    double TextHeight(std::string_view text) const;

    DrawingLayer const& drawing() const { return drawing_; }

  private:
    virtual TextControl& canvas_control() = 0;
    TextControl const& canvas_control() const {
        return const_cast<Canvas*>(this)->canvas_control();
    }

    DrawingLayer drawing_;
};

/// Where a bar stands in the main window; it then takes the whole of that side.
enum class Dock { none = 0, top = 1, bottom = 2, left = 3, right = 4 };

/// Shows a picture, carries drawing, and holds other controls.
class PictureBox : public TextControl, public Canvas {
  public:
    using TextControl::TextControl;
    Property<platform::Picture> Picture{*this};
    Property<int> BorderStyle{*this, 1};
    /// While on, the box takes its picture's size.
    Property<bool> AutoSize{*this, false};
    /// Dock as a number: a bar of the main window.
    Property<int> Align{*this, 0};

    int dock_side() const override { return Align; }
    ControlClass control_class() const override { return ControlClass::picture_box; }
    std::span<PropertyEntry const> properties() const override;
    bool takes_focus() const override { return true; }
    void copy_look(Control const& prototype) override;

  protected:
    void property_changed(PropertyBase const& property) override;

  private:
    TextControl& canvas_control() override { return *this; }
};

/// A push button, with a caption or a picture.
class Button : public TextControl {
  public:
    using TextControl::TextControl;
    Property<std::string> Caption{*this};
    Property<platform::Picture> Picture{*this};
    /// Pressed by Enter, or by Escape, anywhere in its form.
    Property<bool> Default{*this, false};
    Property<bool> Cancel{*this, false};
    /// The user can drag the button onto a form.
    Property<bool> DragMode{*this, false};
    /// The button switches something on and off, and Checked says whether it is on. A click leaves
    /// that to the program.
    Property<bool> Toggles{*this, false};
    Property<bool> Checked{*this, false};
    /// The size of what a drag will leave on the form, in pixels, for the outline that follows the
    /// pointer; 0 where it is not known.
    Property<double> DragWidth{*this};
    Property<double> DragHeight{*this};
    /// Enter or a blank on the button does this instead of a click.
    Event ByKey;

    ControlClass control_class() const override { return ControlClass::button; }
    std::span<PropertyEntry const> properties() const override;
    bool takes_focus() const override { return true; }
    void copy_look(Control const& prototype) override;
};

class ScrollBar : public Control {
  public:
    using Control::Control;
    /// Another value raises Change. Values outside Min to Max are taken as they are.
    Property<int> Value{*this, 0};
    Property<int> Min{*this, 0};
    Property<int> Max{*this, 32767};
    Property<int> SmallChange{*this, 1};
    Property<int> LargeChange{*this, 1};

    Event Change;
    /// Asked before a user moves the bar; false leaves it where it stands. May first set the value
    /// that the user's step counts from.
    std::function<bool()> QueryScroll;

    ControlClass control_class() const override { return ControlClass::scroll_bar; }
    std::span<PropertyEntry const> properties() const override;
    bool takes_focus() const override { return true; }

  protected:
    void property_changed(PropertyBase const& property) override;
};

/// A rectangle's outline.
class Shape : public Control {
  public:
    Shape(Control* container, std::string_view name, int index = -1)
        : Control(container, name, index) {
        leave_tab_order();
    }
    Property<Colour> BorderColor{*this, colours::black};

    ControlClass control_class() const override { return ControlClass::shape; }
    std::span<PropertyEntry const> properties() const override;
    bool has_tab_index() const override { return false; }
    void copy_look(Control const& prototype) override;
};

/// A straight line, one pixel wide.
class Line : public Control {
  public:
    Line(Control* container, std::string_view name, int index = -1)
        : Control(container, name, index) {
        leave_tab_order();
    }
    Property<double> X1{*this};
    Property<double> Y1{*this};
    Property<double> X2{*this};
    Property<double> Y2{*this};
    Property<Colour> BorderColor{*this, colours::black};

    ControlClass control_class() const override { return ControlClass::line; }
    std::span<PropertyEntry const> properties() const override;
    bool has_tab_index() const override { return false; }
    void copy_look(Control const& prototype) override;
};

/// Raises Timer every Interval milliseconds while it is enabled; setting either starts it afresh.
class Timer : public Control {
  public:
    Timer(Control* container, std::string_view name, int interval, bool enabled);
    ~Timer() override;
    Property<int> Interval;

    Event Tick;

    ControlClass control_class() const override { return ControlClass::timer; }
    std::span<PropertyEntry const> properties() const override;
    bool has_tab_index() const override { return false; }

  protected:
    void property_changed(PropertyBase const& property) override;
};

/// A menu or an entry of one. Its container is the menu above it, or the form.
class Menu : public Control {
  public:
    Menu(Control* container, std::string_view name, int index = -1)
        : Control(container, name, index) {
        leave_tab_order();
    }
    Property<std::string> Caption{*this};
    /// Whether '&' in the caption marks an access key; otherwise it stands for itself.
    Property<bool> UseMnemonic{*this, true};
    Property<bool> Checked{*this, false};
    /// Checked has become another.
    Event Toggled;
    /// "Ctrl+S" or "F6"; empty without one.
    Property<std::string> Shortcut{*this};

    ControlClass control_class() const override { return ControlClass::menu; }
    std::span<PropertyEntry const> properties() const override;
    bool has_tab_index() const override { return false; }

  protected:
    void property_changed(PropertyBase const& property) override;
};

class StatusBar : public TextControl {
  public:
    using TextControl::TextControl;
    /// Texts of the panels, 1 to panel_count.
    std::string const& Panels(int number) const;
    void set_Panels(int number, std::string_view text);
    void set_panel_count(int count);
    int panel_count() const { return static_cast<int>(panels_.size()); }
    Property<int> Align{*this, 2};

    int dock_side() const override { return Align; }
    ControlClass control_class() const override { return ControlClass::status_bar; }
    std::span<PropertyEntry const> properties() const override;

  private:
    std::vector<std::string> panels_;
};

/// A run of controls under one name, by index. Element 0 always exists: it is the hidden prototype
/// whose look and handlers a new element takes over.
template <class T>
class Collection {
  public:
    Collection(Control* container, std::string_view name)
        : container_(container), name_(name), prototype_(std::make_unique<T>(container, name_, 0)) {
        prototype_->Visible = false;
    }

    T& prototype() { return *prototype_; }

    /// Makes element `index`, hidden, like the prototype otherwise.
    T& Load(int index) {
        if (index < 1 || has(index))
            throw RuntimeError(ErrorNumber::subscript_out_of_range);
        if (static_cast<std::size_t>(index) >= elements_.size())
            elements_.resize(static_cast<std::size_t>(index) + 1);
        auto element = std::make_unique<T>(container_, name_, index);
        element->copy_look(*prototype_);
        element->Visible = false;
        elements_[static_cast<std::size_t>(index)] = std::move(element);
        return (*this)(index);
    }
    void Unload(int index) {
        (*this)(index);
        elements_[static_cast<std::size_t>(index)].reset();
    }
    bool has(int index) const {
        return index == 0 || (index > 0 && static_cast<std::size_t>(index) < elements_.size() &&
                              elements_[static_cast<std::size_t>(index)] != nullptr);
    }
    /// Raises subscript_out_of_range for an element that is not loaded.
    T& operator()(int index) {
        if (!has(index))
            throw RuntimeError(ErrorNumber::subscript_out_of_range);
        return index == 0 ? *prototype_ : *elements_[static_cast<std::size_t>(index)];
    }

  private:
    Control* container_;
    std::string name_;
    std::unique_ptr<T> prototype_;
    std::vector<std::unique_ptr<T>> elements_;
};

} // namespace platform
