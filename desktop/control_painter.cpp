#include "desktop/control_painter.h"

#include "desktop/card_layer.h"
#include "desktop/colours.h"
#include "desktop/device_pixels.h"
#include "desktop/drawing_painter.h"
#include "desktop/fonts.h"
#include "desktop/look.h"
#include "desktop/pictures.h"
#include "desktop/text.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>
#include <cmath>
#include <variant>

namespace desktop {

namespace {

constexpr int fieldFrame = 1;  // around texts and lists
constexpr int fieldMargin = 3; // between frame and text
constexpr int captionGap = 4;  // between a check mark and its caption

QStyle& style() {
    return *QApplication::style();
}

void setUp(QStyleOption& option, platform::TextControl const& control, QRect const& place) {
    option.rect = place;
    option.palette = paletteFor(control.ForeColor, control.BackColor, groundOf(control));
    option.fontMetrics = QFontMetrics(fontFor(control.font()));
    option.state = QStyle::State_Active;
    if (control.Enabled)
        option.state |= QStyle::State_Enabled;
    option.direction = Qt::LeftToRight;
}

void setTextPen(QPainter& painter, platform::TextControl const& control) {
    painter.setFont(fontFor(control.font()));
    painter.setPen(control.Enabled
                       ? toColour(control.ForeColor, groundOf(control))
                       : paletteOf(groundOf(control)).color(QPalette::Disabled, QPalette::Text));
}

/// Only what sticks out of `clip` is cut off, not what sticks out of the place.
void drawClipped(QPainter& painter, QRect const& clip, QRect const& place, int flags,
                 QString const& text) {
    if (text.isEmpty() || clip.isEmpty())
        return;
    painter.save();
    clipToPixels(painter, clip);
    painter.drawText(place, flags, text);
    painter.restore();
}

void drawClipped(QPainter& painter, QRect const& place, int flags, QString const& text) {
    drawClipped(painter, place, place, flags, text);
}

/// Where lines of text stand inside a frame: with a little space around them, but for the space
/// above them where that would cut the feet off the only line.
QRect linesInside(QPainter const& painter, QRect const& inside) {
    double const spare = inside.height() - painter.fontMetrics().height();
    int const above = std::min(1, static_cast<int>(std::floor(spare / 2)));
    return inside.adjusted(fieldMargin, above, -fieldMargin, 0);
}

QRect drawField(QPainter& painter, platform::TextControl const& control, QRect const& place) {
    QStyleOptionFrame option;
    setUp(option, control, place);
    option.lineWidth = fieldFrame;
    option.state |= QStyle::State_Sunken;
    style().drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter);
    return place.adjusted(fieldFrame, fieldFrame, -fieldFrame, -fieldFrame);
}

void drawScrollBar(QPainter& painter, platform::TextControl const& control, QRect const& place) {
    if (place.isEmpty())
        return;
    // On pixels of its own: the style paints with clips of its own making, which know nothing of
    // the place nor of what is being repainted. It counts the parts of a scroll bar from the
    // corner.
    CardLayer bar;
    bar.cover(place, painter);
    bar.image().fill(toColour(control.BackColor, groundOf(control)));
    QPainter onBar(&bar.image());
    bar.alignPainter(onBar);
    onBar.translate(place.topLeft());
    QStyleOptionSlider option;
    setUp(option, control, QRect(QPoint(), place.size()));
    option.palette = paletteOf(groundOf(control));
    option.state |= QStyle::State_Enabled;
    option.orientation = Qt::Vertical;
    option.maximum = 0; // nothing to scroll: the thumb fills the groove
    option.pageStep = 1;
    option.subControls = QStyle::SC_All;
    style().drawComplexControl(QStyle::CC_ScrollBar, &option, &onBar);
    onBar.end();
    painter.save();
    clipToPixels(painter, place);
    bar.show(painter);
    painter.restore();
}

void paintTextBox(QPainter& painter, platform::TextBox const& box, QRect const& place) {
    auto inside = drawField(painter, box, place);
    if (box.MultiLine && box.ScrollBars) {
        auto bar = inside;
        bar.setLeft(std::max(inside.left(), inside.right() - scrollBarWidth + 1));
        drawScrollBar(painter, box, bar);
        inside.setRight(bar.left() - 1);
    }
    setTextPen(painter, box);
    auto const text = toQtLines(box.Text.get());
    // One line stands in the middle of a box made for one line, and at the top of a taller one.
    bool const atTop =
        box.MultiLine || inside.height() >= 2 * painter.fontMetrics().height() + fieldFrame * 2;
    int const flags = (box.MultiLine ? Qt::TextWordWrap : Qt::TextSingleLine) |
                      (atTop ? Qt::AlignTop : Qt::AlignVCenter) | Qt::AlignLeft;
    auto const lines = linesInside(painter, inside);
    auto const whole = inside.adjusted(fieldMargin, 0, -fieldMargin, 0);
    drawClipped(painter, whole, atTop ? lines : whole, flags, text);
}

/// The mark at the left edge, the caption beside it, both in the middle of the height.
template <class Box>
void paintMarked(QPainter& painter, Box const& box, QRect const& place, bool on,
                 QStyle::PrimitiveElement mark, QStyle::PixelMetric width,
                 QStyle::PixelMetric height) {
    painter.fillRect(place, toColour(box.BackColor, groundOf(box)));
    QStyleOptionButton option;
    setUp(option, box, place);
    option.palette = paletteOf(groundOf(box)); // the mark is the style's, not the caption's colour
    option.state |= on ? QStyle::State_On : QStyle::State_Off;
    QSize const size(style().pixelMetric(width), style().pixelMetric(height));
    option.rect =
        QRect(QPoint(place.left(), place.top() + (place.height() - size.height()) / 2), size);
    painter.save();
    clipToPixels(painter, place);
    style().drawPrimitive(mark, &option, &painter);
    painter.restore();
    setTextPen(painter, box);
    drawClipped(painter, place.adjusted(size.width() + captionGap, 0, 0, 0),
                Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, toQt(box.Caption.get()));
}

void paintComboBox(QPainter& painter, platform::ComboBox const& box, QRect const& place) {
    auto const inside = drawField(painter, box, place);
    auto arrow = inside;
    arrow.setLeft(std::max(inside.left(), inside.right() - scrollBarWidth + 1));
    auto const palette = paletteOf(groundOf(box));
    painter.fillRect(arrow, palette.color(QPalette::Button));
    painter.fillRect(arrow.left(), arrow.top(), 1, arrow.height(), palette.color(QPalette::Dark));
    painter.save();
    clipToPixels(painter, arrow);
    paintArrowhead(painter, QRectF(arrow.adjusted(1, 0, 0, 0)).center(),
                   palette.color(QPalette::ButtonText));
    painter.restore();
    setTextPen(painter, box);
    auto const field = inside.adjusted(fieldMargin, 0, -arrow.width(), 0);
    drawClipped(painter, field, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                toQt(box.chosen_text()));
}

void paintListBox(QPainter& painter, platform::ListBox const& box, QRect const& place) {
    auto const inside = drawField(painter, box, place);
    setTextPen(painter, box);
    int const step = painter.fontMetrics().height();
    auto line = linesInside(painter, inside);
    for (int i = 0; i < box.ListCount() && line.top() <= inside.bottom(); ++i) {
        QRect const one(line.left(), line.top(), line.width(), step);
        drawClipped(painter, one & inside, one, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                    toQt(box.List(i)));
        line.translate(0, step);
    }
}

void paintButton(QPainter& painter, platform::Button const& button, QRect const& place) {
    QStyleOptionButton option;
    setUp(option, button, place);
    option.state |= QStyle::State_Raised;
    option.text = toQt(button.Caption.get());
    painter.setFont(fontFor(button.font()));
    style().drawControl(QStyle::CE_PushButton, &option, &painter);
    drawPicture(painter, button.Picture, place, groundOf(button));
}

/// True for a box on which its own picture has been painted, in some other size: it is to be seen
/// in that one only, also where the painted one can be seen through.
bool isPaintedOn(platform::PictureBox const& box) {
    auto const& picture = box.Picture.get();
    auto const& items = box.drawing().items();
    return !picture.empty() && std::any_of(items.begin(), items.end(), [&](auto const& item) {
        auto const* const painted = std::get_if<platform::DrawingLayer::PaintedPicture>(&item);
        return painted && painted->picture == picture;
    });
}

} // namespace

void paintLabel(QPainter& painter, platform::Label const& label, QRect const& place,
                Ampersand ampersand) {
    if (label.BackStyle == static_cast<int>(platform::BackStyle::opaque))
        painter.fillRect(place, toColour(label.BackColor, groundOf(label)));
    auto inside = place;
    if (label.BorderStyle != 0) {
        paintFrame(painter, place, paletteOf(groundOf(label)).color(QPalette::Dark));
        inside.adjust(1, 1, -1, -1);
    }
    setTextPen(painter, label);
    int flags = Qt::AlignTop | Qt::TextWordWrap;
    if (ampersand == Ampersand::accessKey)
        flags |= Qt::TextShowMnemonic;
    switch (static_cast<platform::Alignment>(label.Alignment.get())) {
    case platform::Alignment::right:
        flags |= Qt::AlignRight;
        break;
    case platform::Alignment::centre:
        flags |= Qt::AlignHCenter;
        break;
    default:
        flags |= Qt::AlignLeft;
    }
    drawClipped(painter, inside, flags, toQtLines(label.Caption.get()));
}

void paintPictureBox(QPainter& painter, platform::PictureBox const& box, QRect const& place) {
    painter.fillRect(place, toColour(box.BackColor, groundOf(box)));
    auto inside = place;
    if (box.BorderStyle != 0) {
        paintFrame(painter, place, paletteOf(groundOf(box)).color(QPalette::Shadow));
        inside.adjust(1, 1, -1, -1);
    }
    if (!isPaintedOn(box))
        drawPicture(painter, box.Picture, inside, groundOf(box));
    if (box.drawing().empty())
        return;
    painter.save();
    clipToPixels(painter, inside);
    painter.translate(inside.topLeft());
    paintDrawing(painter, box.drawing(), box, toPixels(box.form(), 1));
    painter.restore();
}

void paintShape(QPainter& painter, platform::Shape const& shape, QRect const& place) {
    // A shape without width or height still shows as a line.
    paintFrame(painter, QRect(place.topLeft(), place.size().expandedTo({1, 1})),
               toColour(shape.BorderColor, groundOf(shape)));
}

void paintLine(QPainter& painter, platform::Line const& line) {
    auto const pixels = [&](double length) {
        return static_cast<int>(std::lround(toPixels(line.form(), length)));
    };
    painter.setPen(toColour(line.BorderColor, groundOf(line)));
    painter.drawLine(pixels(line.X1), pixels(line.Y1), pixels(line.X2), pixels(line.Y2));
}

void paintArrowhead(QPainter& painter, QPointF middle, QColor const& colour) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(QPolygonF(
        {middle + QPointF(-3.5, -1.5), middle + QPointF(3.5, -1.5), middle + QPointF(0, 2)}));
    painter.restore();
}

QRect lineBounds(platform::Line const& line) {
    auto const point = [&](double x, double y) {
        return QPointF(toPixels(line.form(), x), toPixels(line.form(), y)).toPoint();
    };
    return QRect(point(line.X1, line.Y1), point(line.X2, line.Y2))
        .normalized()
        .adjusted(-1, -1, 1, 1);
}

void paintControl(QPainter& painter, platform::Control const& control, QRect const& place) {
    using platform::ControlClass;
    switch (control.control_class()) {
    case ControlClass::label:
        return paintLabel(painter, static_cast<platform::Label const&>(control), place,
                          Ampersand::plain);
    case ControlClass::text_box:
        return paintTextBox(painter, static_cast<platform::TextBox const&>(control), place);
    case ControlClass::check_box: {
        auto const& box = static_cast<platform::CheckBox const&>(control);
        return paintMarked(painter, box, place, box.Value != 0, QStyle::PE_IndicatorCheckBox,
                           QStyle::PM_IndicatorWidth, QStyle::PM_IndicatorHeight);
    }
    case ControlClass::option_button: {
        auto const& option = static_cast<platform::OptionButton const&>(control);
        return paintMarked(painter, option, place, option.Value, QStyle::PE_IndicatorRadioButton,
                           QStyle::PM_ExclusiveIndicatorWidth, QStyle::PM_ExclusiveIndicatorHeight);
    }
    case ControlClass::combo_box:
        return paintComboBox(painter, static_cast<platform::ComboBox const&>(control), place);
    case ControlClass::list_box:
        return paintListBox(painter, static_cast<platform::ListBox const&>(control), place);
    case ControlClass::picture_box:
        return paintPictureBox(painter, static_cast<platform::PictureBox const&>(control), place);
    case ControlClass::button:
        return paintButton(painter, static_cast<platform::Button const&>(control), place);
    case ControlClass::shape:
        return paintShape(painter, static_cast<platform::Shape const&>(control), place);
    case ControlClass::line:
        return paintLine(painter, static_cast<platform::Line const&>(control));
    default:
        return; // nothing that shows
    }
}

} // namespace desktop
