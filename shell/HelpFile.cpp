// SPDX-License-Identifier: MIT
#include "shell/HelpFile.h"

#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QProcess>
#include <QUrl>
#include <QWidget>

#include "views/MessageBox.h"

namespace {

void reportNoViewer(QWidget* window, const QString& path) {
    showMessage(window, QStringLiteral("No program could show the help file:\n%1\n"
                                       "Please install a viewer for CHM files, for example xchm.")
                            .arg(QDir::toNativeSeparators(path)));
}

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
// QDesktopServices does not report that the desktop knows no viewer; the exit code of its opener does. Where no
// desktop runs, the opener waits for the viewer and passes on its exit code. An error after some time therefore comes
// from a viewer that did show the help.
void open(const QString& path, QWidget* window, std::chrono::milliseconds patience) {
    auto* opener = new QProcess;  // without an owner: the viewer may outlive the wizard
    opener->setStandardOutputFile(QProcess::nullDevice());
    opener->setStandardErrorFile(QProcess::nullDevice());
    const QPointer<QWidget> owner(window);
    const auto fail = [opener, owner, path] {
        opener->deleteLater();
        reportNoViewer(owner, path);
    };
    QObject::connect(opener, &QProcess::errorOccurred, opener, [fail](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) fail();
    });
    const QDeadlineTimer shown(patience);
    QObject::connect(opener, &QProcess::finished, opener, [=](int exitCode, QProcess::ExitStatus status) {
        if (status == QProcess::NormalExit && exitCode != 0 && !shown.hasExpired())
            fail();
        else
            opener->deleteLater();
    });
    opener->start(QStringLiteral("xdg-open"), {path});
}
#else
void open(const QString& path, QWidget* window, std::chrono::milliseconds /*patience*/) {
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path))) reportNoViewer(window, path);
}
#endif

}  // namespace

void HelpFile::show(QWidget* window) const {
    if (QFileInfo(path_).isFile())
        open(path_, window, patience_);
    else
        showMessage(window, QStringLiteral("The help file was not found:\n%1").arg(QDir::toNativeSeparators(path_)));
}
