#include "desktop/look.h"

#include "desktop/chosen_colours.h"
#include "desktop/colours.h"
#include "desktop/device_pixels.h"
#include "desktop/fonts.h"

#include <QApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QIconEngine>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOptionTitleBar>

#include <algorithm>

namespace desktop {

namespace {

/// Two small arrowheads: what does not fit a bar is behind them.
class MoreEngine : public QIconEngine {
  public:
    QIconEngine* clone() const override { return new MoreEngine; }
    /// On nothing: by itself an engine gives its painter whatever the memory held.
    QPixmap pixmap(QSize const& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, drawn.rect(), mode, state);
        return drawn;
    }
    void paint(QPainter* painter, QRect const& place, QIcon::Mode, QIcon::State) override {
        constexpr double drawnFor = 16; // pixels
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(QRectF(place).center());
        painter->scale(place.width() / drawnFor, place.width() / drawnFor);
        painter->setPen(QPen(paletteOf(Ground::window).color(QPalette::WindowText), 1.5));
        for (double const left : {-3.5, 0.5})
            painter->drawPolyline(
                QPolygonF({QPointF(left, -3), QPointF(left + 3, 0), QPointF(left, 3)}));
        painter->restore();
    }
};

class Look : public QProxyStyle {
  public:
    Look() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    int pixelMetric(PixelMetric metric, QStyleOption const* option,
                    QWidget const* widget) const override {
        switch (metric) {
        case PM_TitleBarHeight:
            return captionHeight;
        case PM_MdiSubWindowFrameWidth:
            return frameWidth;
        case PM_ScrollBarExtent:
            return scrollBarWidth;
        case PM_MenuBarPanelWidth:
            return 0;
        case PM_MenuVMargin:
            return 3;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }

    int styleHint(StyleHint hint, QStyleOption const* option, QWidget const* widget,
                  QStyleHintReturn* result) const override {
        switch (hint) {
        case SH_DialogButtonBox_ButtonsHaveIcons:
        case SH_ComboBox_Popup:   // a list drops down below its box instead of covering it
        case SH_WindowFrame_Mask: // windows have all their corners
            return 0;
        default:
            break;
        }
        return QProxyStyle::styleHint(hint, option, widget, result);
    }

    QSize sizeFromContents(ContentsType type, QStyleOption const* option, QSize const& contents,
                           QWidget const* widget) const override {
        auto size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        if (type == CT_MenuBarItem)
            size.setHeight(menuBarHeight());
        return size;
    }

    void drawControl(ControlElement element, QStyleOption const* option, QPainter* painter,
                     QWidget const* widget) const override {
        if (element == CE_MenuBarEmptyArea)
            return;
        auto const* const item = qstyleoption_cast<QStyleOptionMenuItem const*>(option);
        if (element == CE_MenuBarItem && item)
            drawMenuBarItem(*item, *painter);
        else
            QProxyStyle::drawControl(element, option, painter, widget);
    }

    void drawComplexControl(ComplexControl control, QStyleOptionComplex const* option,
                            QPainter* painter, QWidget const* widget) const override {
        auto const* const bar = qstyleoption_cast<QStyleOptionTitleBar const*>(option);
        if (control == CC_TitleBar && bar)
            drawTitleBar(*bar, *painter);
        else
            QProxyStyle::drawComplexControl(control, option, painter, widget);
        if (control == CC_ComboBox && needsFrames(option->palette))
            paintFrame(*painter, option->rect, fieldFrameColour(*option), Corners::takenOff);
        if (control == CC_ScrollBar && needsFrames(option->palette))
            paintFrame(*painter,
                       proxy()->subControlRect(control, option, SC_ScrollBarSlider, widget),
                       option->palette.color(QPalette::Dark));
    }

    QRect subControlRect(ComplexControl control, QStyleOptionComplex const* option, SubControl part,
                         QWidget const* widget) const override {
        auto const whole = option->rect;
        if (control == CC_TitleBar && part == SC_TitleBarCloseButton)
            return closeButton(whole);
        if (control == CC_TitleBar && part == SC_TitleBarLabel)
            return whole.adjusted(8, 0, -30, 0);
        if (control == CC_TitleBar)
            return {};
        return QProxyStyle::subControlRect(control, option, part, widget);
    }

    void drawPrimitive(PrimitiveElement element, QStyleOption const* option, QPainter* painter,
                       QWidget const* widget) const override {
        switch (element) {
        case PE_FrameWindow:
            return drawWindowFrame(*option, *painter);
        case PE_FrameLineEdit:
            return drawFieldFrame(*option, *painter);
        case PE_PanelLineEdit:
            return drawField(*option, *painter);
        case PE_Frame: // around lists and pages, whose insides leave a part of a pixel free
            return paintFilledFrame(*painter, option->rect, fieldFrameColour(*option),
                                    option->palette.color(QPalette::Base));
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        }
        if (needsFrames(option->palette))
            drawOutline(element, *option, *painter);
    }

    QIcon standardIcon(StandardPixmap icon, QStyleOption const* option,
                       QWidget const* widget) const override {
        switch (icon) {
        case SP_ToolBarHorizontalExtensionButton:
            return QIcon(new MoreEngine);
        case SP_TitleBarMinButton:
        case SP_TitleBarMaxButton:
        case SP_TitleBarNormalButton:
        case SP_TitleBarCloseButton:
        case SP_TitleBarMenuButton:
            return {}; // in the menus of windows; reading their files takes longer than a card
        default:
            return QProxyStyle::standardIcon(icon, option, widget);
        }
    }

  private:
    /// A word on the bar; one that is open or pointed at lies on a highlighted ground.
    void drawMenuBarItem(QStyleOptionMenuItem const& item, QPainter& painter) const {
        bool const open = item.state & State_Sunken;
        bool const selected = item.state & State_Selected;
        if (open || selected)
            painter.fillRect(item.rect,
                             item.palette.color(open ? QPalette::Highlight : QPalette::Mid));
        int flags = Qt::AlignCenter | Qt::TextSingleLine | Qt::TextShowMnemonic;
        if (!proxy()->styleHint(SH_UnderlineShortcut, &item))
            flags |= Qt::TextHideMnemonic;
        proxy()->drawItemText(&painter, item.rect, flags, item.palette, item.state & State_Enabled,
                              item.text, open ? QPalette::HighlightedText : QPalette::WindowText);
    }

    static void drawWindowFrame(QStyleOption const& option, QPainter& painter) {
        // The frame of a window inside the main one: the title's colour all round, one quiet line.
        auto const whole = option.rect;
        auto const colour = option.palette.color(QPalette::Mid);
        for (auto const& side :
             {QRect(whole.left(), whole.top(), frameWidth, whole.height()),
              QRect(whole.right() - frameWidth + 1, whole.top(), frameWidth, whole.height()),
              QRect(whole.left(), whole.bottom() - frameWidth + 1, whole.width(), frameWidth)})
            painter.fillRect(side, colour);
        paintFrame(painter, whole, option.palette.color(QPalette::Dark));
    }

    /// One quiet line with its corners taken off, in the accent colour around the keyboard.
    static QColor fieldFrameColour(QStyleOption const& option) {
        bool const focused = option.state & State_HasFocus;
        return option.palette.color(focused ? QPalette::Highlight : QPalette::Dark);
    }
    static void drawFieldFrame(QStyleOption const& option, QPainter& painter) {
        paintFrame(painter, option.rect, fieldFrameColour(option), Corners::takenOff);
    }
    static void drawField(QStyleOption const& option, QPainter& painter) {
        auto const* const frame = qstyleoption_cast<QStyleOptionFrame const*>(&option);
        auto const base = option.palette.color(QPalette::Base);
        if (frame && frame->lineWidth > 0)
            paintFilledFrame(painter, option.rect, fieldFrameColour(option), base,
                             Corners::takenOff);
        else
            painter.fillRect(option.rect, base);
    }

    static void drawOutline(PrimitiveElement element, QStyleOption const& option,
                            QPainter& painter) {
        auto const colour = fieldFrameColour(option);
        switch (element) {
        case PE_PanelButtonCommand:
        case PE_IndicatorCheckBox:
            return paintFrame(painter, option.rect, colour, Corners::takenOff);
        case PE_IndicatorRadioButton:
            painter.save();
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(colour);
            painter.setBrush(Qt::NoBrush);
            painter.drawEllipse(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5));
            return painter.restore();
        default:
            return;
        }
    }

    static QRect closeButton(QRect const& bar) { return {bar.right() - 22, bar.top() + 4, 16, 16}; }

    static void drawTitleBar(QStyleOptionTitleBar const& bar, QPainter& painter) {
        painter.fillRect(bar.rect, bar.palette.color(QPalette::Mid));
        drawTopOfFrame(bar, painter);
        auto const label = bar.rect.adjusted(8, 2, -30, 0);
        painter.setFont(
            fontFor({"MS Sans Serif", 9, true, false, false})); // whatever the desktop's
        painter.setPen(bar.palette.color(QPalette::WindowText));
        auto const caption =
            painter.fontMetrics().elidedText(bar.text, Qt::ElideRight, label.width());
        painter.drawText(label, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, caption);
        drawCloseButton(bar, painter);
    }

    /// The line around the window goes on around its caption, which covers that part of the frame.
    static void drawTopOfFrame(QStyleOptionTitleBar const& bar, QPainter& painter) {
        painter.save();
        clipToPixels(painter, bar.rect);
        paintFrame(painter, bar.rect.adjusted(0, 0, 0, captionHeight),
                   bar.palette.color(QPalette::Dark));
        painter.restore();
    }

    static void drawCloseButton(QStyleOptionTitleBar const& bar, QPainter& painter) {
        auto const button = closeButton(bar.rect);
        bool const touched = bar.activeSubControls & SC_TitleBarCloseButton;
        bool const hovered = touched && (bar.state & State_MouseOver);
        bool const pressed = touched && (bar.state & State_Sunken);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        if (hovered || pressed) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(pressed ? bar.palette.color(QPalette::Dark)
                                     : bar.palette.color(QPalette::Midlight));
            painter.drawRoundedRect(button, 2, 2);
        }
        painter.setPen(QPen(bar.palette.color(QPalette::WindowText), 1.5));
        QRectF const cross(button.left() + 4.5, button.top() + 4.5, 7, 7);
        painter.drawLine(cross.topLeft(), cross.bottomRight());
        painter.drawLine(cross.bottomLeft(), cross.topRight());
        painter.restore();
    }
};

/// What is set for all widgets takes away what a theme has set for some classes of them, as menus
/// and titles.
void followDesktop() {
    QApplication::setPalette(QPalette()); // gives that of the desktop
    dress(coloursAreChosen() ? QApplication::palette() : QApplication::style()->standardPalette(),
          QFontDatabase::systemFont(QFontDatabase::GeneralFont));
}

/// A theme that comes or changes after the start brings fonts of its own for menus, titles and
/// others; all of them stay of one family.
class ThemeWatch : public QObject {
  public:
    explicit ThemeWatch(QObject& application) : QObject(&application) {}
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ThemeChange && watched->isWindowType())
            followDesktop();
        return false;
    }
};

} // namespace

int menuBarHeight() {
    constexpr int least = 24;
    constexpr int around = 8;
    return std::max(least, QFontMetrics(interfaceFont()).height() + around);
}

void dress(QPalette const& colours, QFont const& font) {
    setInterfaceFont(font);
    QApplication::setFont(interfaceFont());
    QApplication::setFont(boxFont(), "QDialog");
    setWindowPalette(windowPalette(colours, QApplication::style()->standardPalette()));
    QApplication::setPalette(paletteOf(Ground::window)); // whereupon all widgets repaint
}

void applyLook(QApplication& application) {
    QApplication::setStyle(new Look);
    followDesktop();
    application.installEventFilter(new ThemeWatch(application));
}

} // namespace desktop
