// Properties of controls: values that know their owner, and the tables that list them by name.
#pragma once

#include "platform/base.h"

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

namespace platform {

class Control;

class PropertyBase {
  public:
    explicit PropertyBase(Control& owner) : owner_(owner) {}
    PropertyBase(PropertyBase const&) = delete;
    PropertyBase& operator=(PropertyBase const&) = delete;

  protected:
    ~PropertyBase() = default;
    /// Lets the owner refuse a text before it is stored.
    void check(std::string const& text) const;
    /// Tells the owner that this property has a new value; its event is raised before this returns.
    void report_change() const;
    void mark_owner() const;

    Control& owner_;
};

/// Assigning another value stores it, marks the owner for repainting and raises the owner's event
/// for it, all before the next statement. Assigning the value that stands does nothing.
template <class T>
class Property : public PropertyBase {
  public:
    Property(Control& owner, T initial = T{}) : PropertyBase(owner), value_(std::move(initial)) {}

    operator T const&() const { return value_; }
    T const& get() const { return value_; }

    Property& operator=(T value) {
        if (value_ == value)
            return *this;
        if constexpr (std::same_as<T, std::string>)
            check(value);
        value_ = std::move(value);
        report_change();
        return *this;
    }
    Property& operator=(Property const& other) { return *this = other.value_; }

    /// Stores and repaints without raising anything.
    void show(T value) {
        value_ = std::move(value);
        mark_owner();
    }

    friend bool operator==(Property const& property, T const& value) {
        return property.value_ == value;
    }
    template <class Number>
    requires(std::is_arithmetic_v<Number>&& std::is_arithmetic_v<T> &&
             !std::same_as<Number, T>) friend bool
    operator==(Property const& property, Number number) {
        return property.value_ == static_cast<T>(number);
    }

  private:
    T value_;
};

/// A property's value as tools see it.
using Value = std::variant<bool, double, std::string>;

/// One row of a control class's table: the property's name and the way to it.
struct PropertyEntry {
    std::string_view name;
    Value (*get)(Control const&);
    /// Sets as program code would; null for a property that only reports.
    void (*set)(Control&, Value const&);
};

template <class T>
Value to_value(T const& value) {
    if constexpr (std::same_as<T, bool>)
        return value;
    else if constexpr (std::convertible_to<T, std::string>)
        return std::string(value);
    else
        return static_cast<double>(value);
}

template <class T>
T from_value(Value const& value) {
    if constexpr (std::same_as<T, bool>) {
        if (auto const* flag = std::get_if<bool>(&value))
            return *flag;
    } else if constexpr (std::same_as<T, std::string>) {
        if (auto const* text = std::get_if<std::string>(&value))
            return *text;
    } else {
        if (auto const* number = std::get_if<double>(&value))
            return static_cast<T>(*number);
    }
    throw RuntimeError(ErrorNumber::invalid_property_value);
}

} // namespace platform
