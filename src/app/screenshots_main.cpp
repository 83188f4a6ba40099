// wkestel-screenshots DIR: the window on the current Wine prefix (WINEPREFIX), one PNG per
// page that exists, one of the directory dialog and one of the about box, drawn offscreen. For
// the README.
//
// Run it from the folder that holds the language libraries, as the program itself.

#include <QApplication>
#include <QDir>
#include <QTimer>
#include <clocale>
#include <cstdio>
#include <cstdlib>

#include "dialogs/about_box.h"
#include "dialogs/open_dir_dialog.h"
#include "pages/page_table.h"
#include "platform/message_box.h"
#include "shell/kestel_main_wind.h"
#include "widgets/page_control.h"
#include "widgets/pictures.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: wkestel-screenshots DIR\n");
        return 2;
    }
    if (!std::getenv("QT_QPA_PLATFORM")) {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    }
    QApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setWindowIcon(wk::MainIcon());

    const QString dir = QString::fromLocal8Bit(argv[1]);
    if (!QDir().mkpath(dir)) {
        std::fprintf(stderr, "wkestel-screenshots: cannot create %s\n", argv[1]);
        return 1;
    }

    // Messages of the start-up sequence go to standard error instead of waiting for a click.
    wk::TKestelMainWind mainWind({"WKestel32"}, wk::PageTable());
    wk::SetMessageBoxPresenter([](const wk::MessageBoxRequest& request) {
        std::fprintf(stderr, "wkestel-screenshots: message: %s\n", request.text.c_str());
        return wk::IDOK;
    });
    mainWind.show();
    mainWind.activateWindow();
    for (int i = 0; i < 100 && !mainWind.Ready() && !mainWind.TerminationRequested(); ++i) {
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    if (!mainWind.Ready()) {
        std::fprintf(stderr, "wkestel-screenshots: the window did not start (see above)\n");
        return 1;
    }

    // Every page, made now: the window takes the size the largest of them needs before the
    // first picture.
    mainWind.BuildRemainingPages();
    QApplication::processEvents();

    int written = 0;
    auto save = [&](QWidget& widget, const QString& name) {
        QApplication::processEvents();
        const QString path = QDir(dir).filePath(name + QStringLiteral(".png"));
        if (widget.grab().save(path)) {
            std::printf("%s\n", path.toLocal8Bit().constData());
            ++written;
        } else {
            std::fprintf(stderr, "wkestel-screenshots: cannot write %s\n",
                         path.toLocal8Bit().constData());
        }
    };
    wk::PageControl* pages = mainWind.PageCtl();
    for (int i = 0; i < pages->SheetCount(); ++i) {
        QWidget* sheet = pages->Sheet(i);
        pages->SetActivePage(sheet);
        save(mainWind, sheet->objectName());
    }
    // The directory dialog of the directories page, open at the data directory.
    if (auto* dialog = mainWind.findChild<wk::TOpenDirDialog*>(QStringLiteral("OpenDirDialog"))) {
        dialog->SetDirectory(mainWind.Settings().DataDir);
        dialog->show();
        save(*dialog, QStringLiteral("OpenDirDialog"));
        dialog->hide();
    }
    wk::TAboutBox about(&mainWind);
    about.show();
    save(about, QStringLiteral("AboutBox"));
    about.hide();
    return written > 0 ? 0 : 1;
}
