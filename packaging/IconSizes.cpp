// zorva_icon_sizes DRAWING FOLDER SIZE...: renders an SVG drawing as a PNG file of each size (in
// pixels), in the folders of an icon theme: FOLDER/32x32/apps/zorva32.png and so on.

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

namespace {

bool WriteSize(QSvgRenderer& drawing, const QString& folder, const QString& size) {
    QImage picture(size.toInt(), size.toInt(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();
    const QString apps = QStringLiteral("%1/%2x%2/apps").arg(folder, size);
    return QDir().mkpath(apps) && picture.save(apps + "/zorva32.png");
}

}  // namespace

int main(int argc, char** argv) {
    QSvgRenderer drawing(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString());
    bool good = argc > 3 && drawing.isValid();
    for (int i = 3; good && i < argc; ++i) {
        good = WriteSize(drawing, QString::fromLocal8Bit(argv[2]), QString::fromLatin1(argv[i]));
    }
    if (!good) QTextStream(stderr) << "the icon cannot be written\n";
    return good ? 0 : 1;
}
