// ZunWizArt: the artwork of the two windows, drawn at start with QPainter, so the
// program carries no picture files: the nine images of the background window, at
// their picture sizes, and the wizard window's icon in 16, 32 and 48 pixels.
#pragma once
#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace zw {

// The picture of one image control of the background window, by its control
// name ("aguarde", "Zun", "TOR", "DirBx", "Bx", "Dir", "TopEsq", "Top", "Esq").
QPixmap ArtImg(const QString& nome, QSize px);

// The icon of the wizard window.
QIcon ArtIco();

}  // namespace zw
