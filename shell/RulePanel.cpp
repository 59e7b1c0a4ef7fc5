// SPDX-License-Identifier: MIT
#include "shell/RulePanel.h"

#include <QFrame>
#include <QLabel>
#include <QPainter>

#include "views/Look.h"
#include "views/Picture.h"
#include "views/Twips.h"

namespace {

constexpr QRgb textColour = qRgb(0, 0, 0);
constexpr QRgb red = qRgb(255, 0, 0);
constexpr QRgb blue = qRgb(0, 0, 255);
constexpr QRgb green = qRgb(0, 128, 0);
constexpr QRgb darkRed = qRgb(128, 0, 0);

constexpr double fontPoints = 8.25;
constexpr double hintPoints = 7.5;  // the size at which the key hint fits its line

constexpr double captionLeft = 120;  // twips
constexpr int gap = 4;               // pixels between the caption and the line on either side of it
constexpr int lineShade = 118;       // percent of the background's darkness

// A label of the panel; places and sizes in twips.
struct Legend {
    const char* text;
    double left, top, width, height;
    QRgb colour;
    double points = fontPoints;
};

constexpr double oneLine = 255;
constexpr double twoLines = 480;
constexpr double letterWidth = 180;
constexpr double explanationWidth = 5640;

constexpr Legend legends[] = {
    {"Fixed Node (Red) ", 540, 960, 2300, oneLine, textColour},
    {"Generating Node (Blue) ", 540, 1440, 2300, oneLine, blue},
    {"Recurring Node (Green) ", 540, 1920, 2300, oneLine, green},
    {"Non-Generating (Brown) ", 540, 2400, 2300, oneLine, darkRed},

    {"F", 2880, 240, letterWidth, oneLine, qRgb(192, 0, 0)},
    {"G", 3210, 240, letterWidth, oneLine, qRgb(0, 0, 192)},
    {"R", 3570, 240, letterWidth, oneLine, qRgb(0, 128, 0)},
    {"N", 3930, 240, letterWidth, oneLine, qRgb(128, 0, 0)},
    {"N", 2880, 960, letterWidth, oneLine, textColour},
    {"N", 3210, 960, letterWidth, oneLine, textColour},
    {"N", 3570, 960, letterWidth, oneLine, textColour},
    {"N", 3930, 960, letterWidth, oneLine, textColour},
    {"--", 2880, 1440, letterWidth, oneLine, textColour},
    {"1", 3210, 1440, letterWidth, oneLine, textColour},
    {"1", 3570, 1440, letterWidth, oneLine, textColour},
    {"1", 3930, 1440, letterWidth, oneLine, textColour},
    {"--", 2880, 1920, letterWidth, oneLine, textColour},
    {"--", 3210, 1920, letterWidth, oneLine, textColour},
    {"--", 3570, 1920, letterWidth, oneLine, textColour},
    {"--", 3930, 1920, letterWidth, oneLine, textColour},
    {"--", 2880, 2400, letterWidth, oneLine, textColour},
    {"--", 3210, 2400, letterWidth, oneLine, textColour},
    {"--", 3570, 2400, letterWidth, oneLine, textColour},
    {"--", 3930, 2400, letterWidth, oneLine, textColour},

    {"Rules Explained:", 4320, 240, explanationWidth, oneLine, textColour},
    {"(F)-Fixed Node , can have (N, any number) of (F), (G), (R) and/or (N) as Child Nodes.", 4320, 720,
     explanationWidth, twoLines, red},
    {"(G), Generating Node MUST have only ONE child which is of type (G), (R) or (N). Only One Child Node must "
     "Exist!",
     4320, 1380, explanationWidth, twoLines, blue},
    {"(R), Recurring Node and (N)-Non-Generating Node cannot have any child nodes.", 4320, 2040, explanationWidth,
     twoLines, textColour},
    {"When in Treeview: (Ins) Adds a Child Node,   (F2) Edits a Node,  (Del) Deletes a Node.", 120, 3000, 6135,
     oneLine, textColour, hintPoints},
};

struct LegendPicture {
    const char* name;
    const char* file;
    double top;
};
constexpr double pictureLeft = 180;
constexpr LegendPicture pictures[] = {
    {"Image1", ":/images/fixed.svg", 960},
    {"Image2", ":/images/gen.svg", 1440},
    {"Image3", ":/images/recur.svg", 1920},
    {"Image4", ":/images/nongen.svg", 2400},
};

struct Separator {
    const char* name;
    double left, top, width, height;
};
constexpr Separator separators[] = {{"Line1", 2760, 600, 1440, 0}, {"Line2", 4230, 300, 0, 2460}};

}  // namespace

RulePanel::RulePanel(QWidget* parent) : QGroupBox(QStringLiteral("Rules for Navigational Hierarchy"), parent) {
    setObjectName(QStringLiteral("frRule"));
    const int dpi = logicalDpiX();
    QFont small = captionFont();
    int number = 0;
    for (const auto& legend : legends) {
        small.setPointSizeF(legend.points);
        auto* label = new QLabel(QString::fromLatin1(legend.text), this);
        label->setObjectName(QStringLiteral("Label%1").arg(++number));
        label->setFont(small);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(legend.height > oneLine);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        label->setGeometry(toPixels(QRectF(legend.left, legend.top, legend.width, legend.height), dpi));
        auto palette = label->palette();
        palette.setColor(QPalette::WindowText, QColor(legend.colour));
        label->setPalette(palette);
    }
    for (const auto& picture : pictures) {
        auto* widget = new Picture(QIcon(QString::fromLatin1(picture.file)), this);
        widget->setObjectName(QString::fromLatin1(picture.name));
        widget->move(toPixels(pictureLeft, dpi), toPixels(picture.top, dpi));
    }
    for (const auto& separator : separators) {
        auto* line = new QFrame(this);
        line->setObjectName(QString::fromLatin1(separator.name));
        line->setFrameShape(separator.height > 0 ? QFrame::VLine : QFrame::HLine);
        line->setFrameShadow(QFrame::Sunken);
        auto place = toPixels(QRectF(separator.left, separator.top, separator.width, separator.height), dpi);
        line->setGeometry(place.adjusted(0, 0, separator.height > 0 ? 2 : 0, separator.height > 0 ? 0 : 2));
    }
}

void RulePanel::paintEvent(QPaintEvent* /*event*/) {
    const auto metrics = fontMetrics();
    const QRect caption(toPixels(captionLeft, logicalDpiX()), 0, metrics.horizontalAdvance(title()),
                        metrics.height());
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(caption, Qt::AlignLeft | Qt::TextDontClip, title());
    painter.setClipRegion(QRegion(rect()) - caption.adjusted(-gap, 0, gap, 0));
    painter.setPen(palette().color(QPalette::Window).darker(lineShade));
    painter.drawRect(rect().adjusted(0, caption.center().y(), -1, -1));
}
