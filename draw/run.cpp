#include "draw/run.h"

#include "card/reading.h"
#include "desktop/look.h"
#include "desktop/pictures.h"
#include "desktop/text.h"
#include "draw/drawing_host.h"
#include "draw/picture.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/session.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/system.h"
#include "surface/load_card.h"

#include <QApplication>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <new>

namespace {

using draw::DrawingHost;

/// As those of krt, which passes them on.
enum Status { drawn = 0, left_out = 1, failed = 2 };

struct Wanted {
    std::string name;
    draw::Picture picture;
    bool links = false;
};

/// The largest card has 9 million pixels. What stands in memory at a time is kept far below a
/// hundred megabytes, unlike in the editor, which takes larger pictures: many cards are drawn in a
/// row, and by several at once.
constexpr std::int64_t most_pixels = 17 * desktop::megapixel;
constexpr std::int64_t most_of_pictures = 8 * desktop::megapixel;
constexpr std::int64_t most_of_pictures_in_pdf =
    6 * desktop::megapixel; // each is taken apart first

/// In one line, whatever stands in it.
std::string plain(std::string const& text) {
    auto words = desktop::toQt(text).simplified();
    words.removeIf([](QChar letter) { return letter.category() == QChar::Other_Control; });
    return words.toStdString();
}

void complain(std::string const& name, std::string const& what) {
    std::fprintf(stderr, "krt: %s: %s\n", name == "-" ? "vakiosyöte" : plain(name).c_str(),
                 plain(what).c_str());
}

std::optional<Wanted> wanted_by(int argc, char* argv[]) {
    if (argc < 5)
        return std::nullopt;
    auto const format = draw::formatNamed(QString::fromUtf8(argv[2]));
    bool readable = false;
    double const scale = QByteArray(argv[3]).toDouble(&readable);
    if (!format || !readable || !(scale > 0))
        return std::nullopt;
    return Wanted{argv[1],
                  {*format, scale, QByteArray(argv[4]).toInt()},
                  argc > 5 && !std::strcmp(argv[5], "links")};
}

/// Nothing around the program changes what it paints: no display, no theme, no scale of a screen.
void leave_the_desktop(double detail) {
    for (auto const* const name :
         {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE", "QT_FONT_DPI",
          "QT_SCREEN_SCALE_FACTORS", "QT_ENABLE_HIGHDPI_SCALING", "QT_USE_PHYSICAL_DPI",
          "QT_SCALE_FACTOR_ROUNDING_POLICY"})
        qunsetenv(name);
#ifdef Q_OS_WIN
    // The system's own fonts, which come without anything that is shown.
    qputenv("QT_QPA_PLATFORM", "windows");
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    qputenv("QT_FONT_DPI", "96");
#else
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QPA_OFFSCREEN_NO_GLX", "1");
#endif
    qputenv("QT_SCALE_FACTOR", QByteArray::number(detail));
    qInstallMessageHandler([](QtMsgType, QMessageLogContext const&, QString const&) {});
}

/// What the frame of the card's window leaves, in pixels: at its top is the caption alone.
QSize inside(kehystin::Card const& card) {
    return {card.width - 2 * desktop::frameWidth,
            card.height - desktop::captionHeight - desktop::frameWidth};
}

/// The surface of the open card. Where its own picture cannot be shown it stands without.
bool load(Wanted const& wanted, DrawingHost const& host) {
    using namespace kehystin;
    std::string fault;
    bool const loaded =
        load_card({}, &fault) || (!fault.empty() && load_card({{}, card.picture.trimmed()}));
    if (!loaded)
        complain(wanted.name, host.lastBox());
    return loaded;
}

Status draw_card(Wanted& wanted, DrawingHost& host, QIODevice& to) {
    using namespace kehystin;
    QFile from;
    if (!from.open(stdin, QIODevice::ReadOnly))
        return failed;
    Surroundings around;
    around.today = host.now();
    around.folder = kehystin::base::folder_part(wanted.name);
    auto reading = read_card(from.readAll().toStdString(), {}, around);
    if (reading.end != Reading::End::read)
        return failed;
    open_card = std::move(reading.data);
    wanted.picture.title = desktop::toQt(card.name.trimmed());

    auto const size = inside(card);
    auto const room = most_pixels - wanted.picture.pixelsOf(size);
    if (room < 0) {
        complain(wanted.name, "kuvasta tulee liian suuri, pienennä valitsinta --scale");
        return failed;
    }
    host.setMostPixels(wanted.picture.format == draw::Format::pdf
                           ? most_of_pictures_in_pdf
                           : std::min(room, most_of_pictures));
    fEditor = std::make_unique<EditorForm>();
    fEditor->cmd_link_automatic.Checked = wanted.links;
    fEditor->cmd_linkBar.Checked = wanted.links;
    if (!load(wanted, host))
        return failed;
    if (!wanted.picture.write(*fCard, size, to))
        return failed;
    return host.hasLeftOut() ? left_out : drawn;
}

Status run(Wanted& wanted) {
    DrawingHost host([&](std::string const& what) { complain(wanted.name, what); });
    platform::System const system(host);
    QFile to;
    auto status = failed;
    if (to.open(stdout, QIODevice::WriteOnly))
        status = draw_card(wanted, host, to);
    kehystin::fCard.reset();
    kehystin::fEditor.reset();
    return to.flush() ? status : failed;
}

} // namespace

int draw::run(int argc, char* argv[]) {
    auto wanted = wanted_by(argc, argv);
    if (!wanted) {
        std::fputs("krt-draw kuuluu krt:lle: krt draw FILE -o KUVA\n", stderr);
        return failed;
    }
    leave_the_desktop(wanted->picture.detail());
    QApplication application(argc, argv);
    desktop::applyLook(application);
    try {
        return ::run(*wanted);
    } catch (platform::RuntimeError const& error) {
        complain(wanted->name, error.text());
    } catch (std::bad_alloc const&) {
        complain(wanted->name, "muisti ei riitä");
    }
    return failed;
}
