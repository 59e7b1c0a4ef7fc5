// SPDX-License-Identifier: MIT
#include <QFrame>
#include <QGroupBox>
#include <algorithm>
#include <array>

#include "Helpers.h"
#include "shell/RulePanel.h"

namespace {

const QColor black(0, 0, 0);

struct Label {
    std::string text;
    int left, top;
    QColor colour;
};

const Label typeLabels[] = {
    {"Fixed Node (Red) ", 540, 960, black},
    {"Generating Node (Blue) ", 540, 1440, QColor(0, 0, 255)},
    {"Recurring Node (Green) ", 540, 1920, QColor(0, 128, 0)},
    {"Non-Generating (Brown) ", 540, 2400, QColor(128, 0, 0)},
};

const Label letters[] = {
    {"F", 2880, 240, QColor(192, 0, 0)},
    {"G", 3210, 240, QColor(0, 0, 192)},
    {"R", 3570, 240, QColor(0, 128, 0)},
    {"N", 3930, 240, QColor(128, 0, 0)},
    {"N", 2880, 960, black},
    {"N", 3210, 960, black},
    {"N", 3570, 960, black},
    {"N", 3930, 960, black},
    {"--", 2880, 1440, black},
    {"1", 3210, 1440, black},
    {"1", 3570, 1440, black},
    {"1", 3930, 1440, black},
    {"--", 2880, 1920, black},
    {"--", 3210, 1920, black},
    {"--", 3570, 1920, black},
    {"--", 3930, 1920, black},
    {"--", 2880, 2400, black},
    {"--", 3210, 2400, black},
    {"--", 3570, 2400, black},
    {"--", 3930, 2400, black},
};

const Label rules[] = {
    {"Rules Explained:", 4320, 240, black},
    {"(F)-Fixed Node , can have (N, any number) of (F), (G), (R) and/or (N) as Child Nodes.", 4320, 720,
     QColor(255, 0, 0)},
    {"(G), Generating Node MUST have only ONE child which is of type (G), (R) or (N). Only One Child Node must "
     "Exist!",
     4320, 1380, QColor(0, 0, 255)},
    {"(R), Recurring Node and (N)-Non-Generating Node cannot have any child nodes.", 4320, 2040, black},
};

const Label keyHint = {"When in Treeview: (Ins) Adds a Child Node,   (F2) Edits a Node,  (Del) Deletes a Node.", 120,
                       3000, black};

class Legend : public testing::Test {
  protected:
    fMain window;
    QGroupBox& panel = find<QGroupBox>(window, "frRule");

    // The labels in their order: types, letters row by row, rules, key hint.
    [[nodiscard]] QList<QLabel*> labels() const {
        return panel.findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    }

    [[nodiscard]] QLabel& labelAt(const Label& expected) const {
        const QPoint place(pixels(expected.left, panel), pixels(expected.top, panel));
        for (auto* label : labels())
            if (label->pos() == place) return *label;
        throw std::runtime_error("there is no label at " + std::to_string(expected.left) + ", " +
                                 std::to_string(expected.top));
    }

    // Where the caption is.
    [[nodiscard]] QRect caption() const {
        EXPECT_EQ(panel.title(), text("Rules for Navigational Hierarchy"));
        const auto metrics = panel.fontMetrics();
        return {pixels(120, panel), 0, metrics.horizontalAdvance(panel.title()), metrics.height()};
    }

    // The panel as it is painted, in the pixels of the screen.
    [[nodiscard]] QImage paintWithout(QWidget::RenderFlags flags) const {
        const auto scale = panel.devicePixelRatio();
        QImage image((QSizeF(panel.size()) * scale).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        panel.render(&image, {}, {}, (QWidget::DrawWindowBackground | QWidget::DrawChildren) & ~flags);
        return image;
    }
    static QRect inPixelsOf(const QImage& image, const QRect& place) {
        const auto scale = image.devicePixelRatio();
        return QRectF(place.x() * scale, place.y() * scale, place.width() * scale, place.height() * scale).toRect();
    }

    void expectLabel(const Label& expected) const {
        const auto& label = labelAt(expected);
        EXPECT_EQ(label.text(), text(expected.text));
        EXPECT_EQ(label.palette().color(QPalette::WindowText), expected.colour) << expected.text;
        EXPECT_EQ(label.foregroundRole(), QPalette::WindowText) << expected.text;
        EXPECT_EQ(label.textFormat(), Qt::PlainText) << expected.text;
        EXPECT_EQ(label.font().family(), text("Arial")) << expected.text;
        EXPECT_TRUE(label.isEnabled()) << expected.text;
        EXPECT_FALSE(label.isHidden()) << expected.text;
    }
};

// The mean colour of what a widget paints.
QColor meanColour(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::RenderFlags());
    int red = 0, green = 0, blue = 0, count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (const auto pixel = image.pixel(x, y); qAlpha(pixel) == 255) {
                red += qRed(pixel);
                green += qGreen(pixel);
                blue += qBlue(pixel);
                ++count;
            }
    EXPECT_GT(count, 30) << "there is a picture";
    if (count == 0) return {};
    return {red / count, green / count, blue / count};
}

QImage paint(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::RenderFlags());
    return image;
}

}  // namespace

TEST_F(Legend, NamesTheTypesInTheirColours) {
    for (const auto& label : typeLabels) expectLabel(label);
}

TEST_F(Legend, TabulatesWhatMayStandBelowWhat) {
    for (const auto& letter : letters) {
        expectLabel(letter);
        EXPECT_GE(labelAt(letter).width(), pixels(150, panel));
        EXPECT_LE(labelAt(letter).width(), pixels(180, panel));
    }
}

TEST_F(Legend, ExplainsTheRules) {
    for (const auto& rule : rules) expectLabel(rule);
}

TEST_F(Legend, HintsAtTheKeys) {
    expectLabel(keyHint);
    EXPECT_EQ(labelAt(keyHint).width(), pixels(6135, panel));
}

TEST_F(Legend, NumbersItsLabels) {
    int number = 0;
    for (const auto* label : labels())
        EXPECT_EQ(label->objectName(), text("Label" + std::to_string(++number))) << label->text().toStdString();
}

TEST_F(Legend, HasNothingElse) {
    EXPECT_EQ(labels().size(), 4 + 4 * 5 + 4 + 1);
    EXPECT_EQ(panel.findChildren<QWidget*>().size(), 29 + 4 + 2) << "labels, pictures and separators";
    for (const auto* widget : panel.findChildren<QWidget*>())
        EXPECT_EQ(widget->focusPolicy(), Qt::NoFocus) << widget->objectName().toStdString();
    EXPECT_EQ(panel.focusPolicy(), Qt::NoFocus);
    EXPECT_FALSE(panel.isCheckable());
}

TEST_F(Legend, NoTextIsClipped) {
    for (const auto* label : labels()) {
        const int flags = static_cast<int>(label->alignment()) | (label->wordWrap() ? Qt::TextWordWrap : 0);
        const auto needed =
            label->fontMetrics().boundingRect(QRect(0, 0, label->width(), 10000), flags, label->text());
        EXPECT_LE(needed.width(), label->width()) << label->text().toStdString();
        EXPECT_LE(needed.height(), label->height()) << label->text().toStdString();
        EXPECT_TRUE(panel.rect().contains(label->geometry())) << label->text().toStdString();
    }
}

TEST_F(Legend, TheKeyHintKeepsItsLastWordInItsLine) {
    const auto& hint = labelAt(keyHint);
    EXPECT_FALSE(hint.wordWrap());
    EXPECT_LE(hint.fontMetrics().horizontalAdvance(hint.text()), hint.width());
    EXPECT_DOUBLE_EQ(hint.font().pointSizeF(), 7.5);
    EXPECT_DOUBLE_EQ(labelAt(typeLabels[0]).font().pointSizeF(), 8.25);
}

// It ran through the letters of the table and through "Rules Explained:".
TEST_F(Legend, TheLineOfTheFrameRunsThroughNoText) {
    const auto frame = paintWithout(QWidget::DrawChildren);
    const auto background = frame.pixelColor(frame.width() / 2, frame.height() / 2);
    EXPECT_EQ(background, QColor(239, 239, 239));
    for (const auto* label : labels()) {
        const auto place = inPixelsOf(frame, label->geometry());
        for (int y = place.top(); y <= place.bottom(); ++y)
            for (int x = place.left(); x <= place.right(); ++x)
                ASSERT_EQ(frame.pixelColor(x, y), background) << label->text().toStdString() << ": " << x << " " << y;
    }
}

TEST_F(Legend, TheCaptionStandsOnTheLineOfTheFrame) {
    const auto frame = paintWithout(QWidget::DrawChildren);
    const auto background = frame.pixelColor(frame.width() / 2, frame.height() / 2);
    const auto text = inPixelsOf(frame, caption());
    const int line = inPixelsOf(frame, QRect(0, caption().center().y(), 1, 1)).center().y();

    int dark = 0;
    for (int y = text.top(); y <= text.bottom(); ++y)
        for (int x = text.left(); x <= text.right(); ++x) dark += frame.pixelColor(x, y).value() < 60 ? 1 : 0;
    EXPECT_GT(dark, 200) << "the caption is there, in black";

    const auto hasLine = [&](int x) {
        for (int y = line - 1; y <= line + 1; ++y)
            if (frame.pixelColor(x, y) != background) return true;
        return false;
    };
    EXPECT_TRUE(hasLine(1)) << "left of the caption";
    EXPECT_TRUE(hasLine(text.right() + 12)) << "right of it";
    EXPECT_TRUE(hasLine(frame.width() - 3));
    const auto gap = inPixelsOf(frame, caption().adjusted(-4, 0, 4, 0));
    const int next = frame.devicePixelRatio() == 1 ? 1 : 2;
    EXPECT_TRUE(hasLine(gap.left() - next)) << "up to the gap";
    EXPECT_FALSE(hasLine(gap.left() + next - 1)) << "not up to its first letter";
    EXPECT_FALSE(hasLine(gap.right() - next + 1)) << "nor to its last";
    EXPECT_TRUE(hasLine(gap.right() + next)) << "up to the gap";
    EXPECT_NE(frame.pixelColor(0, frame.height() / 2), background) << "the left side";
    const auto rightSide = frame.copy(frame.width() - 3, frame.height() / 2, 3, 1);
    EXPECT_TRUE(
        std::ranges::any_of(std::array{0, 1, 2}, [&](int x) { return rightSide.pixelColor(x, 0) != background; }));
    EXPECT_EQ(frame.pixelColor(frame.width() / 2, 0), background) << "nothing above the line";
}

TEST_F(Legend, NothingCoversAnything) {
    const auto title = caption();
    EXPECT_GT(title.width(), 100);

    const auto widgets = panel.findChildren<QWidget*>();
    for (const auto* one : widgets) {
        EXPECT_FALSE(one->geometry().intersects(title)) << one->objectName().toStdString();
        for (const auto* other : widgets)
            if (one != other) {
                EXPECT_FALSE(one->geometry().intersects(other->geometry()))
                    << one->objectName().toStdString() << " and " << other->objectName().toStdString();
            }
    }
}

TEST_F(Legend, ShowsThePictureOfEachTypeBesideItsName) {
    const char* pictures[] = {"Image1", "Image2", "Image3", "Image4"};
    const char* sources[] = {"imgFix", "imgGen", "imgRecur", "imgNonGen"};
    for (std::size_t type = 0; type < 4; ++type) {
        auto& picture = find(panel, pictures[type]);
        const auto& name = labelAt(typeLabels[type]);
        EXPECT_EQ(picture.size(), QSize(16, 16));
        EXPECT_LT(picture.geometry().right(), name.x());
        EXPECT_GT(picture.geometry().right(), name.x() - 48);
        EXPECT_LE(std::abs(picture.geometry().center().y() - name.geometry().center().y()), 8);
        EXPECT_EQ(paint(picture), paint(find(window, sources[type]))) << pictures[type];
    }
}

TEST_F(Legend, PicturesHaveTheColoursThatTheNamesSay) {
    const auto red = meanColour(find(panel, "Image1"));
    EXPECT_TRUE(red.red() > red.green() + 50 && red.red() > red.blue() + 50) << red.name().toStdString();
    const auto blue = meanColour(find(panel, "Image2"));
    EXPECT_TRUE(blue.blue() > blue.red() + 50 && blue.blue() > blue.green() + 50) << blue.name().toStdString();
    const auto green = meanColour(find(panel, "Image3"));
    EXPECT_TRUE(green.green() > green.red() + 50 && green.green() > green.blue() + 50) << green.name().toStdString();
    const auto brown = meanColour(find(panel, "Image4"));
    EXPECT_TRUE(brown.red() > brown.green() + 30 && brown.red() > brown.blue() + 30) << brown.name().toStdString();
}

TEST_F(Legend, HasOneSeparatorBelowTheLettersAndOneBesideTheRules) {
    const auto& below = find<QFrame>(panel, "Line1");
    const auto& beside = find<QFrame>(panel, "Line2");
    EXPECT_EQ(below.frameShape(), QFrame::HLine);
    EXPECT_EQ(beside.frameShape(), QFrame::VLine);

    const auto& firstLetter = labelAt(letters[0]);
    const auto& lastLetter = labelAt(letters[3]);
    EXPECT_GT(below.y(), firstLetter.geometry().bottom());
    EXPECT_LT(below.y(), labelAt(letters[4]).y());
    EXPECT_LT(below.x(), firstLetter.x());
    EXPECT_GE(below.geometry().right(), lastLetter.geometry().right() - 1);
    EXPECT_GT(beside.x(), lastLetter.geometry().right());
    EXPECT_LT(beside.geometry().right(), labelAt(rules[0]).x());
    EXPECT_GT(beside.height(), pixels(2000, panel));
    EXPECT_FALSE(below.isHidden() || beside.isHidden());
}

// The panel ends at the lower edge of the window; the hint must still be readable.
TEST(LegendOnTheScreen, KeyHintCanBeRead) {
    Wizard wizard;
    const auto& panel = find(wizard.window, "frRule");
    const auto fills = [&] { return wizard.window.height() > wizard.window.screen()->availableSize().height() / 2; };
    if (!QTest::qWaitFor(fills, 1000)) GTEST_SKIP() << "there is no window manager that maximizes windows";
    QTest::qWait(50);
    for (const auto* label : panel.findChildren<QLabel*>()) {
        if (!label->text().startsWith(text("When in Treeview"))) continue;
        const auto metrics = label->fontMetrics();
        EXPECT_LE(panel.y() + label->y() + metrics.height(), wizard.window.centralWidget()->height());
        return;
    }
    FAIL() << "there is no hint";
}
