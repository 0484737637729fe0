// lumivex-plus: the desktop program. A folder given on the command line is a document-open
// event and ends the process; otherwise the main window runs until it is closed. SIGTERM and
// SIGINT take the same road as a close, so the settings are saved.
#include <sys/socket.h>
#include <unistd.h>

#include <QApplication>
#include <QIcon>
#include <QSocketNotifier>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "app/App.h"
#include "app/CommandLine.h"
#include "app/ConsolePrompter.h"
#include "browser/MainWindow.h"
#include "browser/QtPrompter.h"
#include "core/AppId.h"
#include "core/HeapTuning.h"
#include "core/Version.h"
#include "platform/ReadyNotice.h"

namespace {

using lumivex::CommandLine;

int gSignalFd[2] = {-1, -1};

void OnSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const auto n = ::write(gSignalFd[1], &byte, 1);
}

// Signals arrive on a socket that the event loop watches: the handler itself does nothing
// that is unsafe in a signal.
void RouteSignalsToClose(lumivex::MainWindow& window) {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, gSignalFd) != 0) return;
    auto* notifier = new QSocketNotifier(gSignalFd[0], QSocketNotifier::Read, &window);
    QObject::connect(notifier, &QSocketNotifier::activated, &window, [&window] {
        char byte;
        [[maybe_unused]] const auto n = ::read(gSignalFd[0], &byte, 1);
        window.close();
    });
    struct sigaction sa {};
    sa.sa_handler = OnSignal;
    sigemptyset(&sa.sa_mask);
    sa.sa_flags = SA_RESTART;
    ::sigaction(SIGTERM, &sa, nullptr);
    ::sigaction(SIGINT, &sa, nullptr);
}

std::vector<std::string> Arguments(const QStringList& args) {
    std::vector<std::string> out;
    for (qsizetype i = 1; i < args.size(); ++i)
        out.push_back(args.at(i).toStdString());
    return out;
}

// --help and --version answer before Qt starts, so that they need no display.
bool AnsweredEarly(int argc, char** argv) {
    const CommandLine c = CommandLine::Parse(std::vector<std::string>(argv + 1, argv + argc));
    if (c.action == CommandLine::Action::Help) std::fputs(CommandLine::HelpText().c_str(), stdout);
    if (c.action == CommandLine::Action::Version)
        std::fputs(CommandLine::VersionText().c_str(), stdout);
    return c.action == CommandLine::Action::Help || c.action == CommandLine::Action::Version;
}

// Where nobody can see a dialog, nobody can answer one: the console takes the questions.
std::unique_ptr<lumivex::Prompter> MakePrompter() {
    if (lumivex::ConsolePrompter::PlatformHasNoScreen())
        return std::make_unique<lumivex::ConsolePrompter>();
    return std::make_unique<lumivex::QtPrompter>();
}

// Arguments the program cannot act on are said, never passed over in silence.
int Refuse(const std::string& error, lumivex::Prompter& prompter) {
    std::fprintf(stderr, "lumivex-plus: %s\n", error.c_str());
    if (!lumivex::ConsolePrompter::PlatformHasNoScreen())
        prompter.Message(nullptr, QString::fromStdString(error));
    return 2;
}

// Every document event ends the process, so the first folder's is the only one handled.
int OpenDocuments(lumivex::App& app, const std::vector<std::filesystem::path>& folders) {
    for (std::size_t i = 1; i < folders.size(); ++i)
        std::fprintf(stderr,
                     "lumivex-plus: 「%s」は取り出しません（最初のフォルダだけを取り出します）。\n",
                     folders[i].c_str());
    return app.Event_OpenDocument(folders.front());
}

}  // namespace

int main(int argc, char** argv) {
    if (AnsweredEarly(argc, argv)) return 0;
    lumivex::TuneHeapForScans();
    QApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication qapp(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lumivex Plus"));
    QApplication::setApplicationVersion(QString::fromUtf8(lumivex::kVersionString));
    // The desktop file's name ties the window to its menu entry and icon (Wayland's app id).
    QGuiApplication::setDesktopFileName(QString::fromUtf8(lumivex::kAppId));
    Q_INIT_RESOURCE(resources);
    QApplication::setWindowIcon(QIcon(QString::fromUtf8(lumivex::kAppIconResource)));
    QApplication::setQuitOnLastWindowClosed(true);

    // QApplication has taken its own options (-platform, -style, ...) out by now.
    const CommandLine command = CommandLine::Parse(Arguments(QApplication::arguments()));
    const std::unique_ptr<lumivex::Prompter> prompter = MakePrompter();
    if (command.action == CommandLine::Action::Error) return Refuse(command.error, *prompter);
    lumivex::App app(*prompter);
    app.InitApp();
    if (command.action == CommandLine::Action::Extract) return OpenDocuments(app, command.folders);

    lumivex::MainWindow* window = app.MakeWindow();
    RouteSignalsToClose(*window);
    // Said once the event loop runs, when the window is up and a SIGTERM takes the close road.
    QTimer::singleShot(0, [] { lumivex::ReadyNotice::Send(); });
    return QApplication::exec();
}
