// Build-time tool: turns the application icon, drawn as XPM, into the PNG files that a
// desktop's icon theme looks up by size.
//
//   rigwright-icon-png LARGE.xpm SMALL.xpm OUTDIR SIZE...
//
// writes OUTDIR/rigwright_SIZE.png for each SIZE. The small drawing is the design made for
// small sizes (thicker outlines, fewer details), so sizes up to its own come from it; larger
// sizes come from the large drawing. A size equal to a drawing's own is copied pixel for pixel;
// any other is scaled smoothly, which averages the source pixels under each target pixel.
//
// Uses QtGui's QImage only: no display, no platform plugin, no widgets.
#include <QDir>
#include <QImage>
#include <QString>
#include <cstdio>

namespace {

QImage Load(const char* path) {
    QImage image(QString::fromLocal8Bit(path), "XPM");
    if (image.isNull()) std::fprintf(stderr, "cannot read the XPM file %s\n", path);
    return image.convertToFormat(QImage::Format_ARGB32);
}

QImage Render(const QImage& large, const QImage& small, int size) {
    const QImage& source = size <= small.width() ? small : large;
    if (source.width() == size && source.height() == size) return source;
    return source.scaledToWidth(size, Qt::SmoothTransformation);  // the drawings are square
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 5) {
        std::fprintf(stderr, "usage: %s LARGE.xpm SMALL.xpm OUTDIR SIZE...\n", argv[0]);
        return 2;
    }
    const QImage large = Load(argv[1]);
    const QImage small = Load(argv[2]);
    if (large.isNull() || small.isNull()) return 1;
    const QDir out(QString::fromLocal8Bit(argv[3]));
    if (!out.mkpath(QStringLiteral("."))) {
        std::fprintf(stderr, "cannot create the folder %s\n", argv[3]);
        return 1;
    }
    for (int i = 4; i < argc; ++i) {
        bool ok = false;
        const int size = QString::fromLocal8Bit(argv[i]).toInt(&ok);
        if (!ok || size < 1 || size > large.width()) {
            std::fprintf(stderr, "not a size from 1 to %d: %s\n", large.width(), argv[i]);
            return 2;
        }
        const QString path = out.filePath(QStringLiteral("rigwright_%1.png").arg(size));
        if (!Render(large, small, size).save(path, "PNG")) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    return 0;
}
