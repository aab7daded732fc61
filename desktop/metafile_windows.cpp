#include "desktop/metafile.h"

#include <QFile>

#include <memory>
#include <type_traits>
#include <windows.h>

namespace desktop {

namespace {

template <auto free>
struct Freed {
    template <class Handle>
    void operator()(Handle* handle) const {
        free(handle);
    }
};
using Metafile = std::unique_ptr<std::remove_pointer_t<HENHMETAFILE>, Freed<DeleteEnhMetaFile>>;
using Context = std::unique_ptr<std::remove_pointer_t<HDC>, Freed<DeleteDC>>;
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, Freed<DeleteObject>>;

constexpr qsizetype sizeOfOwnHeader = 22; // of metafiles that say how large they are

Metafile opened(QByteArray const& bytes, QSize size) {
    auto const records = size.isEmpty() ? bytes : bytes.mid(sizeOfOwnHeader);
    constexpr int hundredthsOfMillimetre = 2540; // an inch
    METAFILEPICT const how{MM_ANISOTROPIC, size.width() * hundredthsOfMillimetre / 96,
                           size.height() * hundredthsOfMillimetre / 96, nullptr};
    return Metafile(SetWinMetaFileBits(static_cast<UINT>(records.size()),
                                       reinterpret_cast<BYTE const*>(records.constData()), nullptr,
                                       size.isEmpty() ? nullptr : &how));
}

QSize sizeOf(HENHMETAFILE file) {
    ENHMETAHEADER header{};
    GetEnhMetaFileHeader(file, sizeof header, &header);
    return {static_cast<int>(header.rclBounds.right - header.rclBounds.left + 1),
            static_cast<int>(header.rclBounds.bottom - header.rclBounds.top + 1)};
}

} // namespace

/// The system draws them itself.
QImage readMetafile(QString const& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    auto size = sizeOfMetafile(path);
    auto const metafile = opened(file.readAll(), size);
    if (!metafile)
        return {};
    if (size.isEmpty())
        size = sizeOf(metafile.get());
    size = size.boundedTo({largestMetafile, largestMetafile}); // the drawing fills it
    if (size.isEmpty())
        return {};
    BITMAPINFO info{};
    info.bmiHeader = {
        sizeof info.bmiHeader, size.width(), -size.height(), 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* pixels = nullptr;
    Context const context(CreateCompatibleDC(nullptr));
    Bitmap const bitmap(
        CreateDIBSection(context.get(), &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
    if (!bitmap)
        return {};
    auto* const before = SelectObject(context.get(), bitmap.get());
    RECT const place{0, 0, size.width(), size.height()};
    FillRect(context.get(), &place, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    bool const played = PlayEnhMetaFile(context.get(), metafile.get(), &place) != 0;
    GdiFlush();
    auto const image =
        QImage(static_cast<uchar const*>(pixels), size.width(), size.height(), QImage::Format_RGB32)
            .copy();
    SelectObject(context.get(), before);
    return played ? image : QImage();
}

} // namespace desktop
