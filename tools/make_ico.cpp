// Makes a Windows icon file of an SVG drawing:
//   make_ico resources/ico/list.svg resources/ico/list.ico
// The icon holds the drawing at 16, 32 and 48 pixels, each compressed as PNG.

#include <QBuffer>
#include <QCoreApplication>
#include <QDataStream>
#include <QImage>
#include <QList>
#include <QPainter>
#include <QSaveFile>
#include <QSvgRenderer>
#include <QTextStream>

namespace {

struct Entry {
    int size;
    QByteArray png;
};

QByteArray render_png(QSvgRenderer& renderer, int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

// The container: a 6-byte header, a 16-byte entry for each image, then the images.
bool write_icon(const QString& path, const QList<Entry>& entries)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QDataStream out(&file);
    out.setByteOrder(QDataStream::LittleEndian);
    constexpr quint16 reserved = 0, type_icon = 1, planes = 1, bits_per_pixel = 32;
    out << reserved << type_icon << quint16(entries.size());
    quint32 offset = 6 + 16 * quint32(entries.size());
    for (const Entry& entry : entries) {
        constexpr quint8 no_palette = 0, unused = 0;
        const auto length = quint32(entry.png.size());
        out << quint8(entry.size) << quint8(entry.size) << no_palette << unused << planes << bits_per_pixel
            << length << offset;
        offset += length;
    }
    for (const Entry& entry : entries)
        out.writeRawData(entry.png.constData(), int(entry.png.size()));
    return out.status() == QDataStream::Ok && file.commit();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    QTextStream errors(stderr);
    if (arguments.size() != 3) {
        errors << "usage: make_ico drawing.svg icon.ico\n";
        return 2;
    }
    QSvgRenderer renderer(arguments[1]);
    if (!renderer.isValid()) {
        errors << "cannot read " << arguments[1] << "\n";
        return 1;
    }
    QList<Entry> entries;
    for (const int size : {16, 32, 48})
        entries.append({size, render_png(renderer, size)});
    if (!write_icon(arguments[2], entries)) {
        errors << "cannot write " << arguments[2] << "\n";
        return 1;
    }
    return 0;
}
