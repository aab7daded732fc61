#include "desktop/application.h"

#include "app/program.h"
#include "desktop/end_requests.h"
#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/qt_host.h"
#include "desktop/screenshot.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTimer>
#include <QTranslator>
#include <QWidget>

namespace desktop {

int runApplication(int argc, char* argv[], std::function<void(QApplication&)> const& prepared) {
    Screenshot screenshot(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kehystin"));
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    // Looking for a desktop's own menu bar starts a message bus, which takes longer than a card.
    QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    QApplication application(argc, argv);
    applyLook(application);

    QTranslator finnish;
    auto const words = QStringLiteral("qtbase_fi");
    if (finnish.load(words, QLibraryInfo::path(QLibraryInfo::TranslationsPath)) ||
        finnish.load(words, QStringLiteral(":/i18n")))
        QApplication::installTranslator(&finnish);

    if (prepared)
        prepared(application);
    QtHost host(QApplication::arguments().mid(1));
    kehystin::Program program(host);
    // The window is there sooner without waiting for its icon.
    constexpr int afterFirstPaint = 200; // milliseconds
    QTimer::singleShot(afterFirstPaint, &application,
                       [] { QApplication::setWindowIcon(applicationIcon()); });
    screenshot.takeFrom(host);
    EndRequests const requests([&] { program.keep_work(); }, [&] { return host.closeForLogout(); });
    return host.run([&] { program.Main(); });
}

} // namespace desktop
