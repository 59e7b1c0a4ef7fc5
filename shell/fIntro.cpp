// SPDX-License-Identifier: MIT
#include "shell/fIntro.h"

#include <QImageReader>
#include <QLabel>
#include <QPlainTextEdit>

#include "shell/IntroductionText.h"
#include "views/Centring.h"
#include "views/Twips.h"

namespace {

// All in twips.
constexpr QSizeF clientArea(9150, 6960);
constexpr QRectF pictureArea(120, 120, 8895, 2880);
constexpr QRectF textArea(120, 3120, 8895, 3735);

// The picture in as many pixels as are shown of it: whole, it would take four times the memory and time on most
// screens.
QPixmap pictureOf(QSize pixels) {
    QImageReader reader(QStringLiteral(":/images/introduction.jpg"));
    if (pixels.width() < reader.size().width()) reader.setScaledSize(pixels);
    return QPixmap::fromImageReader(&reader);
}

}  // namespace

fIntro::fIntro(const HelpFile& help, QWidget* parent)
    : QDialog(parent),
      keys_(*this, {{Qt::Key_Escape, [this] { close(); }}, {Qt::Key_F1, [this, &help] { help.show(this); }}}) {
    setObjectName(QStringLiteral("fIntro"));
    setWindowTitle(QStringLiteral("Pelmo Wizard Introduction..."));
    setFixedSize(toPixels({{0, 0}, clientArea}, logicalDpiX()).size());

    auto* picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("Image1"));
    picture->setGeometry(toPixels(pictureArea, logicalDpiX()));
    picture->setScaledContents(true);
    picture->setPixmap(pictureOf(picture->size() * devicePixelRatioF()));
    picture->setAccessibleName(QStringLiteral("A navigation tree beside a report page"));

    auto* text = new QPlainTextEdit(this);
    text->setObjectName(QStringLiteral("Text1"));
    text->setGeometry(toPixels(textArea, logicalDpiX()));
    text->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setPlainText(QString::fromLatin1(introductionText));
    text->setAccessibleName(QStringLiteral("Introduction"));
    text->setFocus();

    centreOnScreen(*this);
}
