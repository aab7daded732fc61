// Draws the icons at their usual size while the program is built: reading forty drawings takes a
// starting program longer than opening a card. Arguments: the folder to write to, the SVG files.
// For each name.svg comes a name.argb, plain rows of premultiplied pixels. With "--size N" before
// them it is a name.png of N by N pixels, for a desktop.
#include "desktop/icon_drawing.h"
#include "desktop/icons.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

bool writePixels(QImage const& image, QString const& name) {
    QFile file(name);
    return file.open(QIODevice::WriteOnly) &&
           file.write(reinterpret_cast<char const*>(image.constBits()), image.sizeInBytes()) ==
               image.sizeInBytes();
}

} // namespace

int main(int argc, char* argv[]) {
    bool const isSized = argc > 2 && !std::strcmp(argv[1], "--size");
    int const size = isSized ? std::atoi(argv[2]) : desktop::iconSize;
    int const folder = isSized ? 3 : 1;
    for (int i = folder + 1; i < argc; ++i) {
        auto const source = QString::fromLocal8Bit(argv[i]);
        auto const image = desktop::drawIcon(source, size);
        auto const name =
            QString::fromLocal8Bit(argv[folder]) + u'/' + QFileInfo(source).baseName();
        bool const written = isSized ? image.save(name + QStringLiteral(".png"))
                                     : writePixels(image, name + QStringLiteral(".argb"));
        if (!written) {
            std::fprintf(stderr, "cannot write the icon %s\n", qPrintable(name));
            return 1;
        }
    }
    return 0;
}
