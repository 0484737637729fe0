// lumivex-plus: the desktop program. A folder given on the command line is a document-open
// event and ends the process; otherwise the main window runs until it is closed. SIGTERM and
// SIGINT take the same road as a close, so the settings are saved.
#include <sys/socket.h>
#include <unistd.h>

#include <QApplication>
#include <QSocketNotifier>
#include <csignal>

#include "app/App.h"
#include "browser/MainWindow.h"
#include "browser/QtPrompter.h"
#include "core/HeapTuning.h"

namespace {

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

}  // namespace

int main(int argc, char** argv) {
    lumivex::TuneHeapForScans();
    QApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication qapp(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lumivex Plus"));
    QApplication::setApplicationVersion(QStringLiteral("4.3a1"));
    QApplication::setQuitOnLastWindowClosed(true);

    lumivex::QtPrompter prompter;
    lumivex::App app(prompter);
    app.InitApp();
    const QStringList args = QApplication::arguments();
    if (args.size() > 1) return app.Event_OpenDocument(args.at(1).toStdString());

    lumivex::MainWindow* window = app.MakeWindow();
    RouteSignalsToClose(*window);
    return QApplication::exec();
}
