// SPDX-License-Identifier: MIT
#include "shell/RulePanel.h"

#include <QFrame>
#include <QLabel>
#include <QPainter>
#include <iterator>

#include "model/NodeType.h"
#include "views/Look.h"
#include "views/NodeLook.h"
#include "views/Picture.h"
#include "views/Twips.h"

namespace {

constexpr QRgb textColour = qRgb(0, 0, 0);
constexpr QRgb red = qRgb(255, 0, 0);
constexpr QRgb blue = qRgb(0, 0, 255);

constexpr double fontPoints = 8.25;
constexpr double hintPoints = 7.5;  // the size at which the key hint fits on its line

// Positions and sizes are in twips, except these two.
constexpr int gap = 4;          // pixels between the caption and the line on either side of it
constexpr int lineShade = 118;  // percent of the background's darkness
constexpr double captionLeft = 120;

// The table has a row and a column for each type. A cell says how many nodes of the column's type may be below one of
// the row's.
constexpr double pictureLeft = 180;
constexpr double nameLeft = 540;
constexpr double columnLefts[] = {2880, 3210, 3570, 3930};  // given, not evenly spaced
constexpr double headerTop = 240;
constexpr double firstRowTop = 960;
constexpr double rowHeight = 480;
static_assert(std::size(columnLefts) == std::size(nodeTypes));

constexpr double rowTop(std::size_t row) {
    return firstRowTop + rowHeight * static_cast<double>(row);
}

constexpr const char* mostBelow(const NodeType& type, const NodeType& child) {
    if (type.mostChildren == 0 || (child.onlyBelow != 0 && child.onlyBelow != type.letter)) return "--";
    return type.mostChildren == 1 ? "1" : "N";
}

// A label of the panel.
struct Legend {
    const char* text;
    double left, top, width, height;
    QRgb colour;
    double points = fontPoints;
};

constexpr double oneLine = 255;
constexpr double twoLines = 480;
constexpr double nameWidth = 2300;
constexpr double letterWidth = 180;
constexpr double explanationWidth = 5640;

constexpr Legend explanations[] = {
    {.text = "Rules Explained:",
     .left = 4320,
     .top = 240,
     .width = explanationWidth,
     .height = oneLine,
     .colour = textColour},
    {.text = "(F)-Fixed Node , can have (N, any number) of (F), (G), (R) and/or (N) as Child Nodes.",
     .left = 4320,
     .top = 720,
     .width = explanationWidth,
     .height = twoLines,
     .colour = red},
    {.text = "(G), Generating Node MUST have only ONE child which is of type (G), (R) or (N). Only One Child Node "
             "must Exist!",
     .left = 4320,
     .top = 1380,
     .width = explanationWidth,
     .height = twoLines,
     .colour = blue},
    {.text = "(R), Recurring Node and (N)-Non-Generating Node cannot have any child nodes.",
     .left = 4320,
     .top = 2040,
     .width = explanationWidth,
     .height = twoLines,
     .colour = textColour},
    {.text = "When in Treeview: (Ins) Adds a Child Node,   (F2) Edits a Node,  (Del) Deletes a Node.",
     .left = 120,
     .top = 3000,
     .width = 6135,
     .height = oneLine,
     .colour = textColour,
     .points = hintPoints},
};

struct Separator {
    const char* name;
    double left, top, width, height;
};
constexpr Separator separators[] = {{.name = "Line1", .left = 2760, .top = 600, .width = 1440, .height = 0},
                                    {.name = "Line2", .left = 4230, .top = 300, .width = 0, .height = 2460}};

void addLabel(const Legend& legend, QWidget& panel) {
    const auto number = panel.findChildren<QLabel*>().size() + 1;
    auto* label = new QLabel(QString::fromLatin1(legend.text), &panel);
    label->setObjectName(QStringLiteral("Label%1").arg(number));
    auto font = captionFont();
    font.setPointSizeF(legend.points);
    label->setFont(font);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(legend.height > oneLine);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setGeometry(toPixels(QRectF(legend.left, legend.top, legend.width, legend.height), panel.logicalDpiX()));
    auto palette = label->palette();
    palette.setColor(QPalette::WindowText, QColor(legend.colour));
    label->setPalette(palette);
}

void addTable(QWidget& panel) {
    const auto looks = nodeLooks();
    for (std::size_t row = 0; row < looks.size(); ++row)
        addLabel({looks[row].caption, nameLeft, rowTop(row), nameWidth, oneLine, looks[row].captionColour}, panel);
    for (std::size_t column = 0; column < looks.size(); ++column) {
        const char letter[] = {looks[column].letter, '\0'};
        addLabel({letter, columnLefts[column], headerTop, letterWidth, oneLine, looks[column].letterColour}, panel);
    }
    for (std::size_t row = 0; row < looks.size(); ++row)
        for (std::size_t column = 0; column < looks.size(); ++column)
            addLabel({mostBelow(nodeTypes[row], nodeTypes[column]), columnLefts[column], rowTop(row), letterWidth,
                      oneLine, textColour},
                     panel);
}

void addPictures(QWidget& panel) {
    std::size_t row = 0;
    for (const auto& look : nodeLooks()) {
        const auto& source = pictureSources()[static_cast<std::size_t>(look.picture) - 1];
        auto* picture = new Picture(QIcon(QString::fromLatin1(source.file)), &panel);
        const int dpi = panel.logicalDpiX();
        picture->move(toPixels(pictureLeft, dpi), toPixels(rowTop(row++), dpi));
        picture->setObjectName(QStringLiteral("Image%1").arg(row));
    }
}

void addSeparators(QWidget& panel) {
    for (const auto& separator : separators) {
        auto* line = new QFrame(&panel);
        line->setObjectName(QString::fromLatin1(separator.name));
        line->setFrameShape(separator.height > 0 ? QFrame::VLine : QFrame::HLine);
        line->setFrameShadow(QFrame::Sunken);
        const auto place =
            toPixels(QRectF(separator.left, separator.top, separator.width, separator.height), panel.logicalDpiX());
        line->setGeometry(place.adjusted(0, 0, separator.height > 0 ? 2 : 0, separator.height > 0 ? 0 : 2));
    }
}

}  // namespace

RulePanel::RulePanel(QWidget* parent) : QGroupBox(QStringLiteral("Rules for Navigational Hierarchy"), parent) {
    setObjectName(QStringLiteral("frRule"));
    addTable(*this);
    for (const auto& legend : explanations) addLabel(legend, *this);
    addPictures(*this);
    addSeparators(*this);
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
