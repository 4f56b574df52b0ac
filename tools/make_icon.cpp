// Makes an .ico picture from an SVG one: make_icon <in.svg> <out.ico>. The file holds the sizes 16,
// 32 and 48, for screens of any density, each as PNG.

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QtEndian>
#include <cstdio>

namespace {

constexpr int Sizes[] = {16, 32, 48};

QByteArray Png(QSvgRenderer& source, int size) {
  QImage image(size, size, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  source.render(&painter);
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "PNG");
  return bytes;
}

template <class Integer>
void Put(QByteArray& bytes, Integer value) {
  const Integer little = qToLittleEndian(value);
  bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
}

QByteArray Ico(QSvgRenderer& source) {
  QByteArray directory, pictures;
  Put<quint16>(directory, 0);  // reserved
  Put<quint16>(directory, 1);  // an icon
  Put<quint16>(directory, std::size(Sizes));
  const quint32 first = 6 + 16 * std::size(Sizes);
  for (int size : Sizes) {
    const QByteArray png = Png(source, size);
    Put<quint8>(directory, static_cast<quint8>(size));
    Put<quint8>(directory, static_cast<quint8>(size));
    Put<quint16>(directory, 0);   // no palette; reserved
    Put<quint16>(directory, 1);   // planes
    Put<quint16>(directory, 32);  // bits a pixel
    Put<quint32>(directory, static_cast<quint32>(png.size()));
    Put<quint32>(directory, first + static_cast<quint32>(pictures.size()));
    pictures += png;
  }
  return directory + pictures;
}

}  // namespace

int main(int argc, char** argv) {
  QSvgRenderer source;
  QFile out(argc == 3 ? QString::fromLocal8Bit(argv[2]) : QString());
  if (argc == 3 && source.load(QString::fromLocal8Bit(argv[1])) && out.open(QIODevice::WriteOnly)) {
    const QByteArray bytes = Ico(source);
    if (out.write(bytes) == bytes.size() && out.flush()) return 0;
  }
  std::fprintf(stderr, "make_icon: cannot make %s\n", argc == 3 ? argv[2] : "<in.svg> <out.ico>");
  return 1;
}
