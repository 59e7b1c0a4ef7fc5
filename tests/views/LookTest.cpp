// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QStyle>

#include "Helpers.h"
#include "views/Look.h"

namespace {

std::string colour(QPalette::ColorGroup group, QPalette::ColorRole role) {
    return QApplication::palette().color(group, role).name().toStdString();
}

constexpr QPalette::ColorGroup usable[] = {QPalette::Active, QPalette::Inactive};
constexpr QPalette::ColorGroup all[] = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};

}  // namespace

// Outside the commands, for example while a window is painted.
TEST(Application, DropsAnEventThatRunsOutOfMemory) {
    struct Greedy final : QObject {
        bool event(QEvent*) override { throw std::bad_alloc(); }
    };
    Greedy greedy;
    QEvent event(QEvent::User);
    EXPECT_FALSE(QCoreApplication::sendEvent(&greedy, &event));
}

TEST(Look, IsFusion) {
    EXPECT_EQ(QApplication::style()->name(), QStringLiteral("fusion"));
}

TEST(Look, IsLight) {
    for (const auto group : all) {
        EXPECT_EQ(colour(group, QPalette::Base), "#ffffff") << group << ": a disabled field is white too";
        EXPECT_EQ(colour(group, QPalette::Window), "#efefef") << group;
        EXPECT_EQ(colour(group, QPalette::Button), "#efefef") << group;
        EXPECT_EQ(colour(group, QPalette::AlternateBase), "#f7f7f7") << group;
        EXPECT_EQ(colour(group, QPalette::ToolTipBase), "#ffffdc") << group;
        EXPECT_EQ(colour(group, QPalette::ToolTipText), "#000000") << group;
    }
}

TEST(Look, WritesBlackAndGreysWhatIsDisabled) {
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        for (const auto group : usable) EXPECT_EQ(colour(group, role), "#000000") << group << " " << role;
        EXPECT_EQ(colour(QPalette::Disabled, role), "#6e6e6e") << role;
    }
}

TEST(Look, SelectsInWhiteOnBlue) {
    for (const auto group : all) {
        EXPECT_EQ(colour(group, QPalette::Highlight), "#306cb2") << group;
        EXPECT_EQ(colour(group, QPalette::HighlightedText), "#ffffff") << group;
        EXPECT_EQ(colour(group, QPalette::Link), "#0000ee") << group;
        EXPECT_EQ(QApplication::palette().color(group, QPalette::PlaceholderText), QColor(0, 0, 0, 128)) << group;
    }
}

TEST(Look, WritesInArial) {
    EXPECT_EQ(captionFont().family(), QStringLiteral("Arial"));
    EXPECT_DOUBLE_EQ(captionFont().pointSizeF(), 9);
    EXPECT_FALSE(captionFont().bold());
    EXPECT_EQ(arial(12.5).family(), QStringLiteral("Arial"));
    EXPECT_DOUBLE_EQ(arial(12.5).pointSizeF(), 12.5);
    EXPECT_FALSE(arial(12.5).bold());
    EXPECT_TRUE(arial(12.5, QFont::Bold).bold());
    EXPECT_EQ(QApplication::font().family(), QStringLiteral("Arial"));
    EXPECT_DOUBLE_EQ(QApplication::font().pointSizeF(), 9);
}

TEST(Look, ReachesEveryKindOfWidget) {
    QLabel label;
    QLineEdit field;
    QMenu menu;
    SchemeWindow window;
    for (const QWidget* widget :
         std::initializer_list<QWidget*>{&label, &field, &menu, window.navGrid, window.webGrid}) {
        EXPECT_EQ(widget->font().family(), QStringLiteral("Arial"));
        EXPECT_DOUBLE_EQ(widget->font().pointSizeF(), 9);
    }
    field.setEnabled(false);
    field.resize(60, 24);
    EXPECT_EQ(field.grab().toImage().pixelColor(30, 12), QColor(Qt::white));
}
