// WKestel32: the "General Setup" editor of the measuring application's settings files.
//
// The Windows directory is that of the Wine prefix named by WINEPREFIX; the language libraries
// are looked for in the working directory. The only word of the command line that matters is
// UPGRADE (any case).

#include <QApplication>
#include <clocale>
#include <exception>
#include <string>
#include <vector>

#include "pages/page_table.h"
#include "platform/message_box.h"
#include "shell/kestel_main_wind.h"
#include "widgets/pictures.h"

namespace {

// Handlers run inside the event loop, which cannot carry an exception out to here: an
// exception that leaves a handler is shown as the application's default handler shows it,
// and the program goes on.
class KestelApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& error) {
            wk::MessageBoxA(activeWindow(), error.what(), "WKestel32", wk::MB_OK | wk::MB_ICONSTOP);
        }
        return false;
    }
};

}  // namespace

int main(int argc, char** argv) {
    // Every word as given, before Qt takes its own options out of argv.
    const std::vector<std::string> commandLine(argv, argv + argc);

    KestelApplication app(argc, argv);
    // The settings files are read and written with scanf and printf formats that expect '.'.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationName(QStringLiteral("WKestel32"));
    QApplication::setWindowIcon(wk::MainIcon());

    try {
        wk::TKestelMainWind mainWind(commandLine, wk::PageTable());
        QObject::connect(&mainWind, &wk::TKestelMainWind::TerminateRequested, &app,
                         &QCoreApplication::quit, Qt::QueuedConnection);
        mainWind.show();
        // The start-up sequence runs on the first activation; a display without a window
        // manager does not activate a window that is merely shown.
        mainWind.activateWindow();
        const int status = QApplication::exec();
        // A start-up that failed ends the program as any other end does; scripts and service
        // tools still need to tell it from a normal end.
        return mainWind.StartupFailed() ? 1 : status;
    } catch (const std::exception& error) {
        wk::MessageBoxA(nullptr, error.what(), "WKestel32", wk::MB_OK | wk::MB_ICONSTOP);
        return 1;
    }
}
