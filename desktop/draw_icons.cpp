// Draws the icons at their usual size while the program is built: reading forty drawings takes a
// starting program longer than opening a card. Arguments: the folder to write to, the SVG files.
// Beside each name.svg comes a name.argb, plain rows of premultiplied pixels.
#include "desktop/icon_drawing.h"
#include "desktop/icons.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>

int main(int argc, char* argv[]) {
    for (int i = 2; i < argc; ++i) {
        auto const source = QString::fromLocal8Bit(argv[i]);
        auto const image = desktop::drawIcon(source, desktop::iconSize);
        QFile file(QStringLiteral("%1/%2.argb")
                       .arg(QString::fromLocal8Bit(argv[1]), QFileInfo(source).baseName()));
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(reinterpret_cast<char const*>(image.constBits()), image.sizeInBytes()) !=
                image.sizeInBytes()) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file.fileName()));
            return 1;
        }
    }
    return 0;
}
