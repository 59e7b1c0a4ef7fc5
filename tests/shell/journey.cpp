// The program from start to end, used by a script instead of a user: both schemes are opened from the folder that is
// named on the command line, renumbered and saved there, one under a new name, one over the old file.

#include <iostream>
#include <memory>

#include "Helpers.h"

namespace {

void close(QDialog& window) {
    press(window, Qt::Key_Escape);
}

void use(fMain& window, const std::string& folder) {
    const auto enter = [&](const std::string& letters, const std::string& dialog, const std::string& name) {
        Answers answers;
        answers.then(dialog, [&](QDialog& asking) { enterName(asking, folder + "/" + name); });
        choose(window, letters);
    };
    enter("FON", "GetOpenName", "XST1.txt");
    enter("FOW", "GetOpenName", "XST2.txt");
    choose(window, "NR");
    choose(window, "NC");
    enter("NS", "GetSaveAsName", "renumbered");
    {
        Answers answers;
        answers.then("GetSaveAsName", [&](QDialog& asking) { enterName(asking, folder + "/XST2.txt"); })
            .then("", [](QDialog& overwrite) { press(overwrite, Qt::Key_Y, Qt::AltModifier); });
        choose(window, "WS");
    }
    {
        Answers answers;
        answers.then("fIntro", close);
        choose(window, "FI");
    }
    {
        Answers answers;
        answers.then("message", close);
        choose(window, "FH");
    }
    std::cout << "nodes " << window.oNavs->Count() << ", paragraphs " << window.oNavs->oWebs.Count() << '\n'
              << "name " << QApplication::applicationName().toStdString() << '\n'
              << "icon " << QApplication::windowIcon().isNull() << '\n'
              << "failed " << testing::UnitTest::GetInstance()->Failed() << std::endl;
    choose(window, "FX");
}

void begin() {
    auto answers = std::make_shared<Answers>();
    answers->then("fIntro", close).then("message", close);
    auto* seek = new QTimer(qApp);
    QObject::connect(seek, &QTimer::timeout, seek, [seek, answers]() mutable {
        for (auto* widget : QApplication::topLevelWidgets())
            if (auto* window = dynamic_cast<fMain*>(widget); window && window->isVisible()) {
                seek->stop();
                answers.reset();
                use(*window, QApplication::arguments().at(1).toStdString());
                return;
            }
    });
    seek->start(5);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(begin)
