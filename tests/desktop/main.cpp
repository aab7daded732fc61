// Runs the tests inside one QApplication without a display.
#include "desktop/help_reader.h"
#include "desktop/look.h"

#include <QApplication>
#include <QDir>

#include <gtest/gtest.h>
#include <string_view>

int main(int argc, char* argv[]) {
#ifdef Q_OS_WIN
    // As the program, it reads help files in a process of the same file.
    if (argc == 3 && desktop::help_reader::option == std::string_view(argv[1]))
        return desktop::help_reader::run(argv[2]);
    // Without a display Qt knows no fonts of the system's by itself.
    if (!qEnvironmentVariableIsSet("QT_QPA_FONTDIR"))
        qputenv("QT_QPA_FONTDIR", qgetenv("WINDIR") + "\\Fonts");
#endif
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    desktop::applyLook(application);
    // Examples name their pictures from the root of the checkout.
    QDir::setCurrent(QStringLiteral(KEHYSTIN_SOURCES));
    return RUN_ALL_TESTS();
}
