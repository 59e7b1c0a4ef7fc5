// SPDX-License-Identifier: MIT
// The program from start to end, used by a script instead of a user: both schemes are opened from the folder that the
// environment variable WIZARD_JOURNEY names, renumbered and saved there, one under a new name, one over the old file.
// It prints what it found; "end" comes last, when the main window is about to be closed.

#include <QStyle>
#include <cstdlib>
#include <iostream>
#include <memory>

#include "Helpers.h"

namespace {

constexpr int longestJourney = 60'000;  // milliseconds

void print(const std::string& what, const std::string& value) {
    std::cout << what << ": " << value << std::endl;
}

// Lets the dialog list the folder first.
void enter(fMain& window, const std::string& letters, const std::string& dialog, const std::filesystem::path& name) {
    Answers answers;
    answers.then(dialog, [&](QDialog& asks) {
        static_cast<QFileDialog&>(asks).setDirectory(text(name.parent_path().string()));
        QTest::qWait(200);
        enterName(asks, name);
    });
    choose(window, letters);
}

void chooseAndEscape(fMain& window, const std::string& letters, const std::string& opened) {
    Answers answers;
    answers.then(opened, escape);
    choose(window, letters);
}

void saveOver(fMain& window, const std::string& letters, const std::filesystem::path& name) {
    Answers answers;
    answers.then("GetSaveAsName", entering(name)).then("", [](QDialog& question) {
        clickOn(static_cast<QMessageBox&>(question).button(QMessageBox::Yes));
    });
    choose(window, letters);
}

void use(fMain& window, const std::filesystem::path& folder) {
    print("name", QApplication::applicationName().toStdString());
    print("icon", QApplication::windowIcon().isNull() ? "none" : "given");
    print("style", QApplication::style()->objectName().toStdString());
    print("font", QApplication::font().family().toStdString());
    print("maximized", window.isMaximized() ? "yes" : "no");
    print("new nodes", std::to_string(window.oNavs->Count()));
    enter(window, "FON", "GetOpenName", folder / "XST1.txt");
    enter(window, "FOW", "GetOpenName", folder / "XST2.txt");
    print("nodes", std::to_string(window.oNavs->Count()));
    print("paragraphs", std::to_string(window.oNavs->oWebs.Count()));
    choose(window, "NR");
    choose(window, "NC");
    enter(window, "NS", "GetSaveAsName", folder / "renumbered");
    saveOver(window, "WS", folder / "XST2.txt");
    chooseAndEscape(window, "FI", "fIntro");
    if (std::filesystem::exists(QCoreApplication::applicationDirPath().toStdString() + "/Pelmo.chm")) {
        Answers nothing;
        choose(window, "FH");
        QTest::qWait(500);
    } else {
        chooseAndEscape(window, "FH", "message");
    }
    choose(window, "NN");
    if (!testing::UnitTest::GetInstance()->Failed()) print("end", "reached");
    choose(window, "FX");
}

fMain* visibleMainWindow() {
    for (auto* widget : QApplication::topLevelWidgets())
        if (auto* window = dynamic_cast<fMain*>(widget); window && window->isVisible()) return window;
    return nullptr;
}

// Runs as soon as there is an application, before the program makes its first window.
void begin() {
    QTimer::singleShot(longestJourney, qApp, [] { std::_Exit(3); });
    auto answers = std::make_shared<Answers>();
    answers->then("fIntro", escape).then("message", escape);
    auto* seek = new QTimer(qApp);
    QObject::connect(seek, &QTimer::timeout, seek, [seek, answers]() mutable {
        if (auto* window = visibleMainWindow()) {
            seek->stop();
            answers.reset();
            use(*window, qEnvironmentVariable("WIZARD_JOURNEY").toStdString());
        }
    });
    seek->start(5);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(begin)
