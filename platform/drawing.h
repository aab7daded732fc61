// Fonts, pictures, and the drawing layer that keeps what was drawn without a repaint handler.
#pragma once

#include "platform/base.h"

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace platform {

struct Font {
    std::string name;
    double size = 8; // points
    bool bold = false;
    bool italic = false;
    bool underline = false;

    bool operator==(Font const&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;
};

/// A loaded picture file, or one of the program's own by name. Empty shows nothing.
class Picture {
  public:
    Picture() = default;
    /// One of the program's own pictures; the desktop finds its drawing by this name.
    static Picture named(std::string name) { return Picture(std::move(name), {}, nullptr); }
    /// A loaded file. Size in pixels; `image` is the host's own form of it.
    static Picture loaded(std::string path, Size size, std::shared_ptr<void const> image) {
        return Picture(std::move(path), size, std::move(image));
    }

    bool empty() const { return name_.empty(); }
    std::string const& name() const { return name_; }
    Size size() const { return size_; }
    void const* image() const { return image_.get(); }

    bool operator==(Picture const& other) const {
        return name_ == other.name_ && image_ == other.image_;
    }
    operator std::string() const { return name_; }

  private:
    Picture(std::string name, Size size, std::shared_ptr<void const> image)
        : name_(std::move(name)), size_(size), image_(std::move(image)) {}

    std::string name_;
    Size size_;
    std::shared_ptr<void const> image_;
};

/// What code drew on a form or picture box, in the order it was drawn, in the unit of its control.
/// It lies over the background and picture and under everything that stands in the control.
class DrawingLayer {
  public:
    struct Dots {
        Colour colour;
        std::vector<std::pair<std::int16_t, std::int16_t>> points;
    };
    struct Line {
        double x1, y1, x2, y2;
        Colour colour;
    };
    struct FilledBox {
        double x1, y1, x2, y2;
        Colour colour;
    };
    struct Text {
        double x, y;
        std::string text;
    };
    struct PaintedPicture {
        Picture picture;
        double x, y, width, height;
    };
    using Item = std::variant<Dots, Line, FilledBox, Text, PaintedPicture>;

    std::vector<Item> const& items() const { return items_; }
    bool empty() const { return items_.empty(); }
    void clear() { items_.clear(); }
    void add(Item item) { items_.push_back(std::move(item)); }

    /// Neighbouring dots of one colour share an item: a grid is a hundred thousand of them.
    void add_dot(std::int16_t x, std::int16_t y, Colour colour) {
        auto* const dots = items_.empty() ? nullptr : std::get_if<Dots>(&items_.back());
        if (dots && dots->colour == colour)
            dots->points.emplace_back(x, y);
        else
            items_.push_back(Dots{colour, {{x, y}}});
    }

  private:
    std::vector<Item> items_;
};

} // namespace platform
