#include "draw/svg_device.h"

#include <QFont>
#include <QIODevice>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <algorithm>
#include <limits>
#include <map>
#include <tuple>

namespace draw {

namespace {

constexpr int dotsPerInch = 96;

/// Also without what no XML can hold.
QByteArray escaped(QString text) {
    for (auto& letter : text)
        if (letter.category() == QChar::Other_Control || letter.isNonCharacter())
            letter = u' ';
    return text.toHtmlEscaped().toUtf8();
}

QByteArray number(double value) {
    return QByteArray::number(value, 'g', 7);
}

QByteArray numbers(std::initializer_list<double> values) {
    QByteArray row;
    for (double const value : values)
        row += (row.isEmpty() ? "" : " ") + number(value);
    return row;
}

QByteArray attribute(char const* name, QByteArray const& value) {
    return QByteArray(" ") + name + "=\"" + value + '"';
}

/// "fill" or "stroke" in a colour.
QByteArray painted(QByteArray const& with, QColor const& colour) {
    auto words = attribute(with, colour.name().toLatin1());
    if (colour.alpha() < 255)
        words += attribute(with + "-opacity", number(colour.alphaF()));
    return words;
}

QByteArray rectangle(QRectF const& place) {
    return attribute("x", number(place.x())) + attribute("y", number(place.y())) +
           attribute("width", number(place.width())) + attribute("height", number(place.height()));
}

QByteArray outline(QPainterPath const& path) {
    QByteArray steps;
    for (int i = 0; i < path.elementCount(); ++i) {
        auto const at = path.elementAt(i);
        if (at.isMoveTo())
            steps += 'M';
        else if (at.isLineTo())
            steps += 'L';
        else if (at.isCurveTo())
            steps += 'C';
        else
            steps += ' '; // the other points of a curve
        steps += numbers({at.x, at.y});
    }
    return steps;
}

/// With what any machine has in its place.
QByteArray familyOf(QFont const& font) {
    return escaped(u'\'' + font.family().remove(u'\'') + QStringLiteral("', sans-serif"));
}

/// A brush of several colours counts as the one in its middle.
QColor colourOf(QBrush const& brush) {
    auto const* const gradient = brush.gradient();
    if (!gradient || gradient->stops().isEmpty())
        return brush.color();
    return gradient->stops().at(gradient->stops().size() / 2).second;
}

/// Passes on what is written to it as Base64: a large picture never stands there encoded.
class Base64 : public QIODevice {
  public:
    explicit Base64(QIODevice& to) : to_(to) { open(WriteOnly | Unbuffered); }

    /// Writes the rest. False where anything could not be written.
    bool finish() { return pass(rest_.size()) && whole_; }

  protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(char const* bytes, qint64 count) override {
        rest_.append(bytes, count);
        constexpr qsizetype group = 3; // padding stands at the end only
        return pass(rest_.size() - rest_.size() % group) ? count : -1;
    }

  private:
    bool pass(qsizetype count) {
        auto const letters = QByteArray::fromRawData(rest_.constData(), count).toBase64();
        whole_ = to_.write(letters) == letters.size() && whole_;
        rest_.remove(0, count);
        return whole_;
    }

    QIODevice& to_;
    QByteArray rest_;
    bool whole_ = true;
};

} // namespace

class SvgEngine : public QPaintEngine {
  public:
    SvgEngine(QIODevice& to, QSize device, SvgDevice::Page page)
        : QPaintEngine(PaintEngineFeatures(AllFeatures & ~PatternBrush & ~PerspectiveTransform)),
          to_(to),
          device_(device),
          page_(std::move(page)) {}

    bool isWhole() const { return whole_; }
    Type type() const override { return User; }

    bool begin(QPaintDevice*) override {
        write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<svg xmlns=\"http://www.w3.org/2000/svg\" "
              "xmlns:xlink=\"http://www.w3.org/1999/xlink\"" +
              attribute("width", number(page_.size.width())) +
              attribute("height", number(page_.size.height())) +
              attribute("viewBox",
                        "0 0 " + number(device_.width()) + ' ' + number(device_.height())) +
              ">\n<title>" + escaped(page_.title) + "</title>\n");
        return true;
    }

    bool end() override {
        leaveClip();
        write("</svg>\n");
        return whole_;
    }

    void updateState(QPaintEngineState const& now) override {
        auto const changed = now.state();
        if (changed & DirtyTransform)
            transform_ = now.transform();
        if (changed & DirtyPen)
            pen_ = now.pen();
        if (changed & DirtyBrush)
            brush_ = now.brush();
        if (changed & DirtyHints)
            smooth_ = now.renderHints() & QPainter::Antialiasing;
        if (changed & DirtyOpacity)
            opacity_ = now.opacity();
        if (changed & DirtyClipPath)
            clip(now.clipOperation(), now.clipPath().boundingRect());
        if (changed & DirtyClipRegion)
            clip(now.clipOperation(), now.clipRegion().boundingRect());
        if (changed & DirtyClipEnabled && !now.isClipEnabled())
            clip_ = all();
    }

    void drawPath(QPainterPath const& path) override { paint(path, brush_.style()); }

    void drawPolygon(QPointF const* points, int count, PolygonDrawMode mode) override {
        QPainterPath path;
        path.addPolygon(QPolygonF(QList<QPointF>(points, points + count)));
        if (mode != PolylineMode)
            path.closeSubpath();
        paint(path, mode == PolylineMode ? Qt::NoBrush : brush_.style());
    }

    void drawTextItem(QPointF const& at, QTextItem const& item) override {
        if (item.text().trimmed().isEmpty())
            return;
        auto const font = item.font();
        auto const place = transform_.map(at);
        double const scale = transform_.m11();
        auto words = attribute("x", number(place.x())) + attribute("y", number(place.y())) +
                     attribute("font-family", familyOf(font)) +
                     attribute("font-size", number(font.pixelSize() * scale)) +
                     attribute("textLength", number(item.width() * scale));
        if (font.bold())
            words += attribute("font-weight", "bold");
        if (font.italic())
            words += attribute("font-style", "italic");
        add("<text" + opacity() + " xml:space=\"preserve\"" + words +
            painted("fill", pen_.color()) + '>' + escaped(item.text()) + "</text>\n");
    }

    void drawPixmap(QRectF const& place, QPixmap const& pixmap, QRectF const& part) override {
        show(place, part, pixmap.cacheKey(), [&] { return pixmap.toImage(); });
    }

    void drawImage(QRectF const& place, QImage const& image, QRectF const& part,
                   Qt::ImageConversionFlags = Qt::AutoColor) override {
        show(place, part, image.cacheKey(), [&] { return image; });
    }

  private:
    QByteArray opacity() const {
        return opacity_ < 1 ? attribute("opacity", number(opacity_)) : QByteArray();
    }
    QRectF all() const { return QRectF(QPointF(), device_); }

    void paint(QPainterPath const& path, Qt::BrushStyle filled) {
        double const scale = transform_.m11();
        auto place = transform_;
        if (pen_.style() != Qt::NoPen && !smooth_) // a line lies in the middle of its pixels
            place *= QTransform::fromTranslate(scale / 2, scale / 2);
        auto words =
            attribute("d", outline(place.map(path))) +
            (filled == Qt::NoBrush ? attribute("fill", "none") : painted("fill", colourOf(brush_)));
        if (path.fillRule() == Qt::OddEvenFill && filled != Qt::NoBrush)
            words += attribute("fill-rule", "evenodd");
        if (pen_.style() != Qt::NoPen) {
            double const width = pen_.isCosmetic() ? 1 : pen_.widthF();
            words += painted("stroke", colourOf(pen_.brush())) +
                     attribute("stroke-width", number(std::max(width, 1.0) * scale));
        }
        add("<path" + opacity() + words + "/>\n");
    }

    /// A picture stands in the drawing once, however often it is shown.
    template <typename Image>
    void show(QRectF const& place, QRectF const& part, qint64 key, Image const& image) {
        auto const wanted = part.toAlignedRect();
        auto const known = pictures_.try_emplace(
            {key, wanted.x(), wanted.y(), wanted.width(), wanted.height()}, pictures_.size() + 1);
        auto const name = "p" + QByteArray::number(known.first->second);
        if (known.second)
            define(name, image(), wanted);
        auto const here = transform_.mapRect(place);
        add("<use" + opacity() +
            attribute("transform",
                      "matrix(" +
                          numbers({here.width() / wanted.width(), 0, 0,
                                   here.height() / wanted.height(), here.x(), here.y()}) +
                          ')') +
            attribute("xlink:href", '#' + name) + "/>\n");
    }

    void define(QByteArray const& name, QImage const& image, QRect const& part) {
        write("<defs><image" + attribute("id", name) + " preserveAspectRatio=\"none\"" +
              attribute("width", number(part.width())) +
              attribute("height", number(part.height())) + " xlink:href=\"data:image/png;base64,");
        Base64 to(to_);
        whole_ = (part == image.rect() ? image : image.copy(part)).save(&to, "png") && whole_;
        whole_ = to.finish() && whole_;
        write("\"/></defs>\n");
    }

    void clip(Qt::ClipOperation operation, QRectF const& place) {
        auto const here = transform_.mapRect(place);
        if (operation == Qt::NoClip)
            clip_ = all();
        else
            clip_ = operation == Qt::IntersectClip ? clip_ & here : here;
    }

    /// What follows stands in a group of the clip that holds for it.
    void add(QByteArray const& element) {
        if (clip_ != shownClip_) {
            leaveClip();
            if (clip_ != all()) {
                auto const name = "c" + QByteArray::number(++clips_);
                write("<clipPath id=\"" + name + "\"><rect" + rectangle(clip_) +
                      "/></clipPath>\n<g clip-path=\"url(#" + name + ")\">\n");
            }
            shownClip_ = clip_;
        }
        write(element);
    }

    void leaveClip() {
        if (shownClip_ != all())
            write("</g>\n");
        shownClip_ = all();
    }

    void write(QByteArray const& bytes) { whole_ = to_.write(bytes) == bytes.size() && whole_; }

    QIODevice& to_;
    QSizeF device_; // in device pixels
    SvgDevice::Page page_;
    bool whole_ = true;
    QTransform transform_;
    QPen pen_;
    QBrush brush_;
    bool smooth_ = false;
    double opacity_ = 1;
    QRectF clip_ = all();
    QRectF shownClip_ = all();
    int clips_ = 0;
    /// Numbers of what has been defined, by the picture's key and the part of it.
    std::map<std::tuple<qint64, int, int, int, int>, std::size_t> pictures_;
};

SvgDevice::SvgDevice(QIODevice& to, QSize size, Page page)
    : size_(size),
      detail_(page.detail),
      engine_(std::make_unique<SvgEngine>(to, size * page.detail, std::move(page))) {}

SvgDevice::~SvgDevice() = default;

bool SvgDevice::isWhole() const {
    return engine_->isWhole();
}

QPaintEngine* SvgDevice::paintEngine() const {
    return engine_.get();
}

int SvgDevice::metric(PaintDeviceMetric metric) const {
    constexpr double inch = 25.4; // millimetres
    switch (metric) {
    case PdmWidth:
        return size_.width() * detail_;
    case PdmHeight:
        return size_.height() * detail_;
    case PdmWidthMM:
        return qRound(size_.width() * inch / dotsPerInch);
    case PdmHeightMM:
        return qRound(size_.height() * inch / dotsPerInch);
    case PdmNumColors:
        return std::numeric_limits<int>::max();
    case PdmDepth:
        return 32;
    case PdmDevicePixelRatio:
        return detail_;
    case PdmDevicePixelRatioScaled:
        return detail_ * static_cast<int>(devicePixelRatioFScale());
    default:
        return dotsPerInch;
    }
}

} // namespace draw
