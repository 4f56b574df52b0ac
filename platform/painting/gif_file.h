#pragma once

#include <QByteArray>
#include <QImage>

namespace velorix {

/// The image as a GIF file. Up to 256 colours stay as they are; of more, the 256 that stand for all
/// with the least loss, each of them a colour of the image: so paper stays white and lines keep
/// their colour. Empty when the encoder fails.
QByteArray GifBytes(const QImage& image);

}  // namespace velorix
