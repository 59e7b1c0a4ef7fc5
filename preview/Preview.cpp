// SPDX-License-Identifier: MIT
#include "preview/Preview.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QSocketNotifier>
#include <QString>
#include <algorithm>
#include <array>
#include <csignal>
#include <optional>
#include <stdexcept>

#include "database/Verify.h"
#include "preview/FileWatch.h"
#include "preview/Server.h"
#include "preview/Site.h"

namespace {

// 192 bits of the operating system's own random numbers.
std::string randomName() {
    std::array<quint32, 6> numbers{};
    QRandomGenerator::system()->fillRange(numbers.data(), static_cast<qsizetype>(numbers.size()));
    std::string name;
    for (const auto number : numbers) name += QString::number(number, 16).rightJustified(8, u'0').toStdString();
    return name;
}

std::string asset(std::string_view name) {
    QFile file(QStringLiteral(":/preview/") + QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("a part of the preview is missing");
    return file.readAll().toStdString();
}

// Ends the event loop at Ctrl+C and its like. A second one ends the program at once.
class EndBySignal {
  public:
    EndBySignal() {
        if (pipe(ends_.data()) != 0) throw std::runtime_error("no pipe can be made");
        writeEnd = ends_[1];
        notifier_.emplace(ends_[0], QSocketNotifier::Read);
        QObject::connect(&*notifier_, &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
        for (const auto signal : {SIGINT, SIGTERM, SIGHUP}) {
            struct sigaction action {};
            action.sa_handler = [](int) { [[maybe_unused]] const auto written = write(writeEnd, "x", 1); };
            action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
            sigaction(signal, &action, nullptr);
        }
    }
    EndBySignal(const EndBySignal&) = delete;
    EndBySignal& operator=(const EndBySignal&) = delete;
    ~EndBySignal() {
        for (const auto signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, SIG_DFL);
        for (const auto end : ends_) close(end);
    }

  private:
    inline static int writeEnd = -1;  // a handler of signals knows nothing else
    std::array<int, 2> ends_{};
    std::optional<QSocketNotifier> notifier_;
};

std::string fileName(const std::string& path) {
    return path.substr(path.find_last_of('/') + 1);
}

// Fewer rows than the command takes, and less time, since pages wait meanwhile.
std::vector<QueryFinding> verified(const clsNavSchemes& navs, Database& database, const PreviewSettings& settings) {
    VerifyOptions options;
    options.today = dayForQueries(settings.day);
    options.rows = 1;
    options.limits.time = std::min(settings.limits.time, std::chrono::milliseconds(1000));
    return verifyQueries(navs, database, options);
}

SiteSettings siteSettings(const PreviewSettings& settings, Database& database) {
    return {.files = fileName(settings.nodes) + ", " + fileName(settings.paragraphs),
            .load = settings.load,
            .today = [day = settings.day] { return dayForQueries(day); },
            .limits = settings.limits,
            .runsAllActions = settings.runsAllActions,
            .verify = [&](const clsNavSchemes& navs) { return verified(navs, database, settings); },
            .asset = asset,
            .newName = randomName};
}

// The browser may run on when the preview has ended. What it says about itself is not for this terminal.
void openBrowser(const std::string& address) {
    const auto script = QStringLiteral(
        "xdg-open \"$1\" >/dev/null 2>&1 || echo 'No browser could be opened: open the address yourself.'");
    QProcess::startDetached(QStringLiteral("/bin/sh"),
                            {QStringLiteral("-c"), script, QStringLiteral("sh"), QString::fromStdString(address)});
}

}  // namespace

void servePreview(const PreviewSettings& settings, Database& database) {
    int count = 1;
    std::array<char, 13> name = {"pelmo-scheme"};
    std::array<char*, 2> arguments = {name.data(), nullptr};
    std::optional<QCoreApplication> application;
    if (!QCoreApplication::instance()) application.emplace(count, arguments.data());
    const EndBySignal endBySignal;
    Site site(siteSettings(settings, database), database);
    const Server server(randomName(), [&](const Request& request) { return site.answer(request); });
    const FileWatch watch({settings.nodes, settings.paragraphs}, [&] { site.reload(); });
    settings.say(server.address());
    if (settings.opensBrowser) openBrowser(server.address());
    QCoreApplication::exec();
}
