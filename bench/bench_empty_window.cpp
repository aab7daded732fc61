// The measure of the start: the least that a main window with an area for child windows takes.
#include "bench/first_paint.h"

#include <QMainWindow>
#include <QMdiArea>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    bench::FirstPaint const first(application);
    QMainWindow window;
    window.setCentralWidget(new QMdiArea);
    window.resize(1024, 819);
    window.show();
    return QApplication::exec();
}
