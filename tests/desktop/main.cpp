// Runs the tests inside one QApplication without a display.
#include "desktop/look.h"

#include <QApplication>
#include <QDir>

#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    desktop::applyLook(application);
    // Examples name their pictures from the root of the checkout.
    QDir::setCurrent(QStringLiteral(KEHYSTIN_SOURCES));
    return RUN_ALL_TESTS();
}
