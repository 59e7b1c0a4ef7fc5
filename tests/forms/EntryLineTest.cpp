// SPDX-License-Identifier: MIT
#include "forms/EntryLine.h"

#include <QAccessible>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QRegularExpression>
#include <QToolTip>

#include "Helpers.h"

using namespace std::string_literals;

namespace {

class Line : public testing::Test {
  protected:
    Line() {
        window.resize(400, 100);
        line.setObjectName(text("line"));
        line.resize(300, 30);
        window.show();
        activate(window);
        line.setFocus();
    }
    ~Line() override { QToolTip::hideText(); }

    // Types characters that a keyboard may have.
    void type(const QString& characters) {
        for (const auto& character : characters)
            QTest::sendKeyEvent(QTest::Click, window.windowHandle(), Qt::Key_unknown, QString(character),
                                Qt::NoModifier);
    }
    void paste(const QString& pasted) {
        QGuiApplication::clipboard()->setText(pasted);
        press(window, Qt::Key_V, Qt::ControlModifier);
    }
    // What an input method hands over at the end of a composition.
    void compose(const QString& composed) {
        QInputMethodEvent event;
        event.setCommitString(composed);
        QApplication::sendEvent(&line, &event);
    }
    // The tip since the last time. One that goes away fades.
    [[nodiscard]] QString tip() {
        const auto shown = QToolTip::isVisible() ? QToolTip::text() : QString();
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, patience));
        return shown;
    }
    // Each way of bringing a text into the field.
    [[nodiscard]] std::vector<std::pair<std::string, std::function<void(const QString&)>>> waysIn() {
        return {{"typed", [this](const QString& put) { type(put); }},
                {"pasted", [this](const QString& put) { paste(put); }},
                {"composed", [this](const QString& put) { compose(put); }}};
    }

    QWidget window;
    EntryLine line{&window};
};

// Every byte but the ends of lines.
std::string allBytes() {
    return allBytesBut("\r\n");
}

}  // namespace

TEST_F(Line, KeepsEveryByte) {
    line.setBytes(allBytes());
    EXPECT_EQ(line.bytes(), allBytes());
    EXPECT_EQ(line.text().size(), 254);
    for (const auto& bytes :
         {"\0"s, "\x1A"s, "\xA0"s, " \xA0 "s, "\t"s, "\x80\x81\x8D\x8F\x90\x9D\xFF"s, ""s, "\"\""s}) {
        line.setBytes(bytes);
        EXPECT_EQ(line.bytes(), bytes);
    }
}

TEST_F(Line, KeepsTheBytesOfATextThatNobodyHasChanged) {
    line.setBytes("one\r\ntwo");
    EXPECT_EQ(line.bytes(), "one\r\ntwo");
    type(text("x"));
    EXPECT_EQ(line.bytes(), "xone two");
    press(window, Qt::Key_Backspace);
    EXPECT_EQ(line.bytes(), "one\r\ntwo") << "it is the same text again";
    line.setBytes("three");
    EXPECT_EQ(line.bytes(), "three");
    line.setText(text("one\r\ntwo"));
    EXPECT_EQ(line.bytes(), "one two") << "not the bytes from before";
}

TEST_F(Line, ShowsTheBytesAsCharactersOfTheCodePage) {
    line.setBytes("\x80 \xE9\xDF \x93\x94 \x85");
    EXPECT_EQ(line.text(), text("\u20AC \u00E9\u00DF \u201C\u201D \u2026"));
}

TEST_F(Line, KeepsTheBytesAroundWhatIsTyped) {
    line.setBytes(allBytes());
    press(window, Qt::Key_End);
    type(text("z\u20AC"));
    EXPECT_EQ(line.bytes(), allBytes() + "z\x80");
    press(window, Qt::Key_Home);
    type(text("a"));
    EXPECT_EQ(line.bytes(), "a" + allBytes() + "z\x80");
}

TEST_F(Line, BeginsWithTheCursorBeforeTheText) {
    line.setBytes("text");
    EXPECT_EQ(line.cursorPosition(), 0);
}

TEST_F(Line, TakesTheCharactersOfTheCodePage) {
    for (const auto& [way, put] : waysIn()) {
        SCOPED_TRACE(way);
        line.setBytes("");
        put(text("a\u20AC\u00E9\u2026\u00FF~"));
        EXPECT_EQ(line.bytes(), "a\x80\xE9\x85\xFF~");
        EXPECT_EQ(tip(), QString());
    }
}

TEST_F(Line, RefusesACharacterThatCannotBeStored) {
    struct Case {
        QString character;
        QString tip;
    };
    for (const auto& [character, expected] : std::vector<Case>{
             {text("\u03A9"),
              text("The character \u03A9 (U+03a9) cannot be stored: it is not in the code page of the files.")},
             {text("\u0141"),
              text("The character \u0141 (U+0141) cannot be stored: it is not in the code page of the files.")},
             {text("\u2260"),
              text("The character \u2260 (U+2260) cannot be stored: it is not in the code page of the files.")},
             {text("\u4E2D"),
              text("The character \u4E2D (U+4e2d) cannot be stored: it is not in the code page of the files.")}})
        for (const auto& [way, put] : waysIn()) {
            SCOPED_TRACE(way);
            line.setBytes("ab");
            press(window, Qt::Key_Right);
            put(character);
            EXPECT_EQ(line.bytes(), "ab");
            EXPECT_EQ(line.cursorPosition(), 1);
            EXPECT_EQ(tip(), expected);
            type(text("-"));
            EXPECT_EQ(line.bytes(), "a-b") << "the next one is taken";
        }
}

TEST_F(Line, NamesACharacterOfTwoUnits) {
    for (const auto put : {0, 1}) {
        line.setBytes("");
        put == 0 ? paste(text("\U0001F600")) : compose(text("\U0001F600"));
        EXPECT_EQ(line.bytes(), "");
        EXPECT_EQ(
            tip(),
            text("The character \U0001F600 (U+1f600) cannot be stored: it is not in the code page of the files."));
    }
}

TEST_F(Line, RefusesTheWholeTextThatCannotBeStored) {
    line.setBytes("old");
    press(window, Qt::Key_End);
    paste(text("good \u03A9 good \u03A8"));
    EXPECT_EQ(line.bytes(), "old");
    EXPECT_EQ(tip(),
              text("The character \u03A9 (U+03a9) cannot be stored: it is not in the code page of the files."));
    press(window, Qt::Key_A, Qt::ControlModifier);
    paste(text("\u03A9"));
    EXPECT_EQ(line.bytes(), "old") << "nor does it replace anything";
}

TEST_F(Line, WritesNoQuestionMarkForWhatItRefused) {
    type(text("a\u03A9b"));
    EXPECT_EQ(line.bytes(), "ab");
}

TEST_F(Line, MakesBlanksOfLineBreaks) {
    for (const auto& [pasted, expected] :
         std::vector<std::pair<std::string, std::string>>{{"one\r\ntwo", "one two"},
                                                          {"one\ntwo\rthree", "one two three"},
                                                          {"one\n", "one"},
                                                          {"\r\n\r\none two\r\n", "one two"},
                                                          {"one\n\ntwo", "one  two"},
                                                          {"one\u2028two\u2029three", "one two three"},
                                                          {"\n", ""}}) {
        line.setBytes("");
        paste(text(pasted));
        EXPECT_EQ(line.bytes(), expected);
        EXPECT_EQ(line.displayText(),
                  QString(text(pasted)).replace(QRegularExpression(text("[\r\n\u2028\u2029]")), text(" ")));
        EXPECT_EQ(tip(), QString());
    }
}

TEST_F(Line, TypesOnBehindWhatWasPasted) {
    for (const auto& [pasted, expected] : std::vector<std::pair<std::string, std::string>>{
             {"\nSELECT a ", "SELECT a -FROM t"}, {"a\r\nb\r\nc", "a b c-FROM t"}, {"a\n", "a -FROM t"}}) {
        line.setBytes("FROM t");
        paste(text(pasted));
        type(text("-"));
        EXPECT_EQ(line.bytes(), expected);
    }
}

TEST_F(Line, TakesBackWhatWasPastedWithLineBreaks) {
    line.setBytes("old");
    press(window, Qt::Key_A, Qt::ControlModifier);
    paste(text("first\nsecond\n"));
    EXPECT_EQ(line.bytes(), "first second");
    press(window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(line.bytes(), "old");
}

// Programs that write for a user who cannot type do it past the keyboard.
TEST_F(Line, TakesFromAssistiveProgramsOnlyWhatCanBeStored) {
    line.setBytes("ab");
    auto* field = QAccessible::queryAccessibleInterface(&line)->editableTextInterface();
    ASSERT_NE(field, nullptr);
    field->insertText(1, text("x\ny"));
    EXPECT_EQ(line.bytes(), "ax yb");
    for (const char* refused : {"\u03A9", "\u03A9\n"}) {
        field->insertText(1, text(refused));
        EXPECT_EQ(line.bytes(), "ax yb");
        EXPECT_EQ(tip(),
                  text("The character \u03A9 (U+03a9) cannot be stored: it is not in the code page of the files."));
        type(text("\u03A9"));
        EXPECT_EQ(line.bytes(), "ax yb") << "nor is anything let through afterwards";
        EXPECT_NE(tip(), QString());
    }
}

TEST_F(Line, CutsNoLongText) {
    for (const std::size_t size : {std::size_t{32766}, std::size_t{32767}, std::size_t{32768}, std::size_t{100000}}) {
        std::string bytes;
        while (bytes.size() < size) bytes += static_cast<char>('a' + bytes.size() % 23);
        line.setBytes(bytes);
        EXPECT_EQ(line.bytes(), bytes);
        press(window, Qt::Key_End);
        type(text("!"));
        EXPECT_EQ(line.bytes(), bytes + "!");
    }
    line.setBytes("");
    paste(QString(50000, QLatin1Char('x')));
    EXPECT_EQ(line.bytes(), std::string(50000, 'x'));
}

namespace {

class FieldBytes : public BothForms {};

}  // namespace

RUN_WITH_BOTH_FORMS(FieldBytes);

TEST_P(FieldBytes, SurviveTheRoundThroughTheForm) {
    for (const auto& bytes :
         {allBytes(), "\xA0\x80\xFF "s, " \0 \x1A "s, std::string(40000, '\xE9'), "<dummy> & \"A\""s}) {
        if (isNode()) {
            Stage::open(makeNode(7, 2, "G", bytes, bytes, "Text", bytes, bytes));
        } else {
            auto full = makeFullParagraph(5, "S");
            full->formIs = 0;
            full->titleIs = full->queryIs = full->colsAre = bytes;
            full->parmIs = "Text";
            Stage::open(full);
        }
        const auto before = edited();
        key(Qt::Key_F3);
        EXPECT_EQ(refused(), Rows());
        EXPECT_EQ(stored(), before);
        EXPECT_EQ(edited(), before);
        key(Qt::Key_Escape);
        EXPECT_FALSE(isOpen());
    }
}
