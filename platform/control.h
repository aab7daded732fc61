// Control: what every control has. The classes themselves are in controls.h.
#pragma once

#include "platform/base.h"
#include "platform/drawing.h"
#include "platform/events.h"
#include "platform/property.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class Form;

enum class ControlClass {
    form,
    menu,
    label,
    text_box,
    check_box,
    option_button,
    combo_box,
    list_box,
    picture_box,
    button,
    scroll_bar,
    shape,
    line,
    timer,
    status_bar,
    tree_view,
    frame,
};

/// The place of a control in its form's tab order. Setting it moves the control there, at most to
/// the last place, and the others make room.
/// Controls without has_tab_index have no place and ignore being given one.
class TabIndexProperty {
  public:
    explicit TabIndexProperty(Control& owner) : owner_(owner) {}
    TabIndexProperty(TabIndexProperty const&) = delete;
    TabIndexProperty& operator=(TabIndexProperty const&) = delete;

    operator int() const;
    TabIndexProperty& operator=(int place);

  private:
    Control& owner_;
};

/// A control of a form. Lengths are twips, or pixels inside a form that counts in pixels.
class Control {
  public:
    /// `index` is the element number in a collection, or -1 for a control that stands alone.
    Control(Control* container, std::string_view name, int index = -1);
    virtual ~Control();
    Control(Control const&) = delete;
    Control& operator=(Control const&) = delete;

    virtual ControlClass control_class() const = 0;
    /// The class's table: every property that tools can reach by name.
    virtual std::span<PropertyEntry const> properties() const = 0;
    /// The table row of a name, or null.
    PropertyEntry const* find_property(std::string_view name) const;

    std::string const& name() const { return name_; }
    int index() const { return index_; }
    /// "cmd_ok", or "focus(2)" for an element of a collection.
    std::string full_name() const;
    Form& form() const { return *form_; }
    /// What the control stands in: its form, or a picture box in it.
    Control* container() const { return container_; }
    /// What stands in this control, in stacking order, the topmost last.
    std::vector<Control*> const& children() const { return children_; }

    Property<bool> Enabled{*this, true};
    Property<bool> Visible{*this, true};
    Property<double> Left{*this};
    Property<double> Top{*this};
    Property<double> Width{*this};
    Property<double> Height{*this};
    Property<std::string> Tag{*this};
    Property<std::string> ToolTipText{*this};
    TabIndexProperty TabIndex{*this};
    /// Tab stops here on its walk through the form.
    Property<bool> TabStop{*this, true};

    Event Click;
    Event DblClick;
    Event GotFocus;
    Event LostFocus;
    MouseEvent MouseDown;
    MouseEvent MouseMove;
    MouseEvent MouseUp;
    KeyPressEvent KeyPress;

    /// Puts the control at a place; one step for whoever watches.
    void Move(double left, double top);
    void Move(double left, double top, double width, double height);
    /// Whether it lies at a point of its container, visible or not.
    bool covers(double x, double y) const {
        return Left <= x && x < Left + Width && Top <= y && y < Top + Height;
    }
    /// What the control is called for those who do not see it, where its caption does not say it.
    /// The form keeps it: what has no such name costs nothing. Empty without one.
    std::string_view spoken_name() const;
    void set_spoken_name(std::string_view name);
    /// Above everything else in its container.
    void bring_to_front();
    /// Gives the control the keyboard focus, if it can take it; otherwise nothing happens.
    void SetFocus();

    /// True when the control and everything it stands in are visible.
    bool is_shown() const;
    /// True for the classes that a user can put the keyboard focus on.
    virtual bool takes_focus() const { return false; }
    bool can_take_focus() const { return takes_focus() && is_shown() && is_enabled(); }
    /// True when the control and everything it stands in are enabled.
    bool is_enabled() const;
    /// True for the classes that have a place in the tab order.
    virtual bool has_tab_index() const { return true; }

    /// The side of a main form that the control takes as a bar; Dock as a number, 0 for none.
    virtual int dock_side() const { return 0; }

    /// Marks the control for the host: something that shows has changed.
    void mark();
    bool is_marked() const { return marked_; }
    void clear_mark() { marked_ = false; }

    /// Copies look and handlers of the prototype into a new element of its collection.
    virtual void copy_look(Control const& prototype);

  protected:
    friend class PropertyBase;
    /// Raises invalid_property_value for a text that the property cannot take.
    virtual void check_text(PropertyBase const&, std::string const&) const {}
    /// Called once for each changed property, after it is stored; raises the class's event.
    virtual void property_changed(PropertyBase const& property);
    void attach_form(Form& form) { form_ = &form; }
    /// For the constructors of classes without a place in the tab order.
    void leave_tab_order();

  private:
    friend class Form;
    Control* container_;
    Form* form_;
    std::string name_;
    int index_;
    bool marked_ = false;
    std::vector<Control*> children_;
};

/// A control that shows text.
class TextControl : public Control {
  public:
    using Control::Control;

    Property<std::string> FontName{*this, "MS Sans Serif"};
    Property<double> FontSize{*this, 8};
    Property<bool> FontBold{*this};
    Property<bool> FontItalic{*this};
    Property<bool> FontUnderline{*this};
    Property<Colour> ForeColor{*this, colours::black};
    Property<Colour> BackColor{*this, system_colour(15)};
    /// Its colours are those of a card, shown for themselves: no desktop changes them.
    bool is_sample = false;

    Font font() const { return {FontName, FontSize, FontBold, FontItalic, FontUnderline}; }
    void set_font(Font const& font);
    void copy_look(Control const& prototype) override;

  protected:
    void check_text(PropertyBase const& property, std::string const& text) const override;
};

} // namespace platform
