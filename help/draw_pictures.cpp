// Draws the pictures of the help pages: starts the program on example cards, brings it where a
// picture shows it, and saves what is then seen. draw_pictures FOLDER, in the checkout's root.
#include "app/program.h"
#include "card/kinds.h"
#include "desktop/card_canvas.h"
#include "desktop/look.h"
#include "desktop/qt_host.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "platform/input.h"
#include "platform/system.h"

#include <QApplication>
#include <QEventLoop>
#include <QHash>
#include <QPainter>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

using namespace kehystin;

void wait(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// One session on one card.
class Session {
  public:
    explicit Session(QString const& file, QSize size)
        : host_(file.isEmpty() ? QStringList() : QStringList("examples/" + file)), program_(host_) {
        host_.run([this] {
            program_.Main();
            QTimer::singleShot(0, qApp, [] { QApplication::exit(); });
        });
        settle();
        host_.mainWindow()->resize(size);
        settle();
    }

    void settle() {
        do
            wait(120);
        while (host_.timers().isAnyShorterThan(100));
    }

    /// Clicks an entry or button and lets the windows follow.
    void click(platform::Control& control) {
        platform::input::click(control);
        settle();
    }

    /// Selects the first field of a kind that comes after `skipped` others; its number.
    int select(Style style, int skipped = 0) {
        int number = 1;
        while (!field(number).is(style) || skipped-- > 0)
            ++number;
        fEditor->cmb_field.ListIndex = number;
        settle();
        return number;
    }

    /// The dialog that an entry opens, after clicks on some of its buttons; null if none opens.
    QPixmap dialog(platform::Control& entry, QStringList const& clicks = {}) {
        QPixmap seen;
        QTimer::singleShot(200, qApp, [&] {
            auto* const shown = QApplication::activeModalWidget();
            auto* const form = platform::System::current().forms().back();
            if (form->kind() == platform::FormKind::dialog) {
                for (auto const& name : clicks)
                    click(*form->find(name.toStdString()));
                seen = shown->grab();
            }
            if (shown)
                shown->close();
        });
        click(entry);
        return seen;
    }

    QWidget& window() { return *host_.mainWindow(); }
    QWidget* named(char const* name) { return window().findChild<QWidget*>(QLatin1String(name)); }
    QWidget* card() {
        for (auto* const widget : window().findChildren<QWidget*>())
            if (dynamic_cast<desktop::CardCanvas*>(widget) && widget->isVisible())
                return widget;
        return nullptr;
    }

    /// The surroundings of a field on the card.
    QPixmap around(int number, QSize size) {
        auto const& one = field(number);
        QRect place(QPoint(), size.boundedTo(card()->size()));
        place.moveCenter(QRect(one.left, one.top, one.width, one.height).center());
        auto const room = card()->rect();
        place.moveLeft(std::clamp(place.left(), 0, room.width() - place.width()));
        place.moveTop(std::clamp(place.top(), 0, room.height() - place.height()));
        return card()->grab(place);
    }

    /// The panel down to its last row.
    QPixmap panel(int below = 0) {
        auto* const bar = named("proBar");
        int const rows = static_cast<int>(fEditor->proPic.Height / 15);
        int const top = static_cast<int>(fEditor->proBot.Top / 15);
        return bar->grab({0, 0, bar->width(), std::min(bar->height(), top + rows + 6 + below)});
    }

  private:
    desktop::QtHost host_;
    Program program_;
};

/// Pictures beside each other with quiet frames.
QPixmap beside(QPixmap const& left, QPixmap const& right) {
    constexpr int gap = 16;
    QPixmap both(left.width() + gap + right.width() + 4,
                 std::max(left.height(), right.height()) + 2);
    both.fill(Qt::white);
    QPainter painter(&both);
    painter.setPen(QColor(176, 180, 186));
    int x = 0;
    for (auto const* const part : {&left, &right}) {
        painter.drawPixmap(x + 1, 1, *part);
        painter.drawRect(x, 0, part->width() + 1, part->height() + 1);
        x += part->width() + 2 + gap;
    }
    return both;
}

/// With its 256 most frequent colours, which makes a picture of windows small without a change that
/// can be seen.
QImage withFewColours(QImage const& picture) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    QList<QRgb> colours = counts.keys();
    std::sort(colours.begin(), colours.end(), [&](QRgb one, QRgb other) {
        return std::pair(counts[other], other) < std::pair(counts[one], one);
    });
    constexpr qsizetype most = 256;
    colours.resize(std::min(colours.size(), most));
    return picture.convertToFormat(QImage::Format_Indexed8, colours,
                                   Qt::ThresholdDither | Qt::AvoidDither);
}

class Folder {
  public:
    explicit Folder(QString path) : path_(std::move(path)) {}
    void save(QPixmap const& picture, char const* name) const {
        if (picture.isNull()) {
            std::printf("there is nothing to see for %s\n", name);
            return;
        }
        constexpr int smallest = 0; // of the qualities of PNG: as small a file as can be
        auto const file = path_ + u'/' + QLatin1String(name) + QStringLiteral(".png");
        auto const image = picture.toImage().convertToFormat(QImage::Format_RGB32);
        if (!withFewColours(image).save(file, "PNG", smallest))
            std::printf("cannot write %s\n", qPrintable(file));
    }

  private:
    QString path_;
};

constexpr QSize ordinary(1000, 760);
constexpr QSize surroundings(380, 250);

void drawKinds(Folder const& folder) {
    struct Scene {
        char const* card;
        Style style;
        int skipped;
        char const* name;
    };
    for (auto const& scene : {Scene{"asiakkaat.krt", Style::OTS, 3, "otsikko"},
                              Scene{"asiakkaat.krt", Style::TXT, 2, "teksti"},
                              Scene{"jasenet.krt", Style::CHK, 0, "valinta"},
                              Scene{"jasenet.krt", Style::OPT, 0, "vaihtoehto"},
                              Scene{"sukukirja.krt", Style::IMG, 0, "kuva"},
                              Scene{"tuotteet.krt", Style::LST, 0, "lista"}}) {
        Session session(QLatin1String(scene.card), ordinary);
        int const number = session.select(scene.style, scene.skipped);
        folder.save(beside(session.around(number, surroundings), session.panel()), scene.name);
    }
    Session session(QStringLiteral("tuotteet.krt"), ordinary);
    int const number = session.select(Style::CMB);
    platform::input::focus(fEditor->txt_list);
    session.click(fEditor->cmd_list);
    folder.save(beside(session.around(number, surroundings), session.panel()), "alasvetovalikko");
}

void drawCard(Folder const& folder) {
    {
        Session session(QStringLiteral("vanha.krt"), {720, 480});
        folder.save(session.window().grab(), "ikkuna");
    }
    Session session(QStringLiteral("asiakkaat.krt"), ordinary);
    folder.save(session.panel(), "kortti");
    session.click(fEditor->cmd_linkBar);
    folder.save(session.card()->grab({0, 0, 460, 250}), "linkit");
    folder.save(session.named("fldBar")->grab({0, 0, 40, 290}), "kenttapalkki");
}

/// A dialog with the frame that its window has.
QPixmap framed(QPixmap const& dialog) {
    if (dialog.isNull())
        return dialog;
    QPixmap whole(dialog.width() + 2, dialog.height() + 2);
    whole.fill(QColor(176, 180, 186));
    QPainter(&whole).drawPixmap(1, 1, dialog);
    return whole;
}

void drawDialogs(Folder const& folder) {
    Session session(QStringLiteral("asiakkaat.krt"), ordinary);
    folder.save(framed(session.dialog(fEditor->cmd_properties)), "asetukset");
    folder.save(framed(session.dialog(fEditor->cmdSpecifield)), "maaritykset");
    auto const next = QStringLiteral("cmdSeuraava");
    folder.save(framed(session.dialog(fEditor->cmd_new, {next, next})), "velho");
}

} // namespace

int main(int argc, char* argv[]) {
    QTemporaryDir const settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    desktop::applyLook(application);
    if (argc != 2)
        return 1;
    Folder const folder(QString::fromLocal8Bit(argv[1]));
    drawCard(folder);
    drawKinds(folder);
    drawDialogs(folder);
    return 0;
}
