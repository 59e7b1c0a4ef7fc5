// SPDX-License-Identifier: MIT
#include <QImage>
#include <cmath>

#include "Helpers.h"

// The borders of the fields, pixel by pixel, in the pixels of the screen. Run at every scale that desktops offer.

namespace {

constexpr int corner = 6;  // pixels at either end of an edge that its round corners may take

class FieldBorders : public BothForms {
  protected:
    // The form as it is on the screen, in the screen's own pixels.
    [[nodiscard]] QImage picture() const {
        settle();
        auto image = form->grab().toImage().convertToFormat(QImage::Format_RGB32);
        EXPECT_EQ(image.width(), std::lround(form->width() * form->devicePixelRatioF()));
        image.setDevicePixelRatio(1);
        return image;
    }

    // The place of a field in that picture.
    [[nodiscard]] QRect place(const std::string& field) const {
        const auto scale = form->devicePixelRatioF();
        const auto& widget = find(*form, field);
        const QRectF logical(widget.mapTo(form.get(), QPoint(0, 0)), widget.size());
        return QRectF(logical.topLeft() * scale, logical.size() * scale).toRect();
    }

    // Whether the pixels from `from` to `to`, in a row or a column, are all of one colour that can be told from those
    // of the window and of the field.
    static bool isLine(const QImage& image, QPoint from, QPoint to, const QColor& inside) {
        const QColor line(image.pixel(from));
        for (const auto& beside : {QColor(239, 239, 239), inside})
            if (std::abs(line.lightness() - beside.lightness()) < 20) return false;
        const QPoint step((to.x() > from.x()) ? 1 : 0, (to.y() > from.y()) ? 1 : 0);
        for (auto at = from; at != to; at += step)
            if (QColor(image.pixel(at)) != line) return false;
        return true;
    }

    // The edges of a field that have no such line within two pixels of where they should be.
    [[nodiscard]] Rows brokenEdges(const std::string& field) const {
        const auto image = picture();
        const auto place = this->place(field);
        const auto inside = background(field);
        const auto isThere = [&](auto lineAt) {
            for (const int off : {-2, -1, 0, 1, 2})
                if (lineAt(off)) return true;
            return false;
        };
        const int left = place.left() + corner;
        const int right = place.right() - corner;
        const int top = place.top() + corner;
        const int bottom = place.bottom() - corner;
        const auto row = [&](int y) { return isLine(image, {left, y}, {right, y}, inside); };
        const auto column = [&](int x) { return isLine(image, {x, top}, {x, bottom}, inside); };
        Rows broken;
        if (!isThere([&](int off) { return row(place.top() + off); })) broken.emplace_back("top");
        if (!isThere([&](int off) { return row(place.bottom() + off); })) broken.emplace_back("bottom");
        if (!isThere([&](int off) { return column(place.left() + off); })) broken.emplace_back("left");
        if (!isThere([&](int off) { return column(place.right() + off); })) broken.emplace_back("right");
        return broken;
    }
};

}  // namespace

RUN_WITH_BOTH_FORMS(FieldBorders);

TEST_P(FieldBorders, AreWhole) {
    open();
    for (const auto& field : fields()) EXPECT_EQ(brokenEdges(field), Rows()) << field;
}

TEST_P(FieldBorders, AreWholeWithTheFocusToo) {
    open();
    for (const auto& field : fields()) {
        if (!enabled(field)) continue;
        focus(field);
        EXPECT_EQ(brokenEdges(field), Rows()) << field;
    }
}

// The colours of the frame across its left edge, from the window to the text.
TEST_P(FieldBorders, TellWhichListHasTheKeyboard) {
    open();
    const auto edge = [&](const std::string& field) {
        const auto image = picture();
        const auto place = this->place(field);
        Rows colours;
        const int width = static_cast<int>(std::ceil(2 * form->devicePixelRatioF()));
        for (int x = place.left(); x < place.left() + width; ++x)
            colours.push_back(QColor(image.pixel(x, place.top() + corner)).name().toStdString());
        return colours;
    };
    focus("txtID");
    const auto without = edge(titleField());
    const auto with = edge("txtID");
    ASSERT_NE(with, without);
    for (const char* list : {"lstType", "lstParm"}) {
        SCOPED_TRACE(list);
        focus(list);
        EXPECT_EQ(edge(list), with) << "as a text box";
        focus("txtID");
        EXPECT_EQ(edge(list), without);
    }
}

// The colours of the chosen entry: beside its text, and whether any pixel has that of the text.
TEST_P(FieldBorders, KeepTheColoursOfTheChoiceToListsThatCanBeUsed) {
    open();
    const auto has = [&](const std::string& field, const QColor& colour) {
        const auto image = picture();
        const auto& list = this->list(field);
        const auto scale = form->devicePixelRatioF();
        const auto entry = list.visualItemRect(list.selectedItems().front());
        const QRectF logical(list.viewport()->mapTo(form.get(), entry.topLeft()), entry.size());
        const auto place = QRectF(logical.topLeft() * scale, logical.size() * scale).toRect().adjusted(3, 3, -3, -3);
        for (int y = place.top(); y <= place.bottom(); ++y)
            for (int x = place.left(); x <= place.right(); ++x)
                if (QColor(image.pixel(x, y)) == colour) return true;
        return false;
    };
    const QColor blue(48, 108, 178);
    const QColor grey(217, 217, 217);
    const QColor greyText(110, 110, 110);
    for (const char* list : {"lstType", "lstParm"}) {
        SCOPED_TRACE(list);
        EXPECT_TRUE(has(list, blue));
        EXPECT_TRUE(has(list, Qt::white));
        EXPECT_FALSE(has(list, grey));
        find(*form, list).setEnabled(false);
        EXPECT_TRUE(has(list, grey));
        EXPECT_TRUE(has(list, greyText));
        EXPECT_FALSE(has(list, blue));
        EXPECT_FALSE(has(list, Qt::white));
        find(*form, list).setEnabled(true);
        EXPECT_TRUE(has(list, blue));
    }
}
