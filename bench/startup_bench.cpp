// Start-up to a ready window, beside the floor of a bare Qt window with a menu bar and a tab
// control, in the same run. Offscreen.
//
// Ready is what the user waits for: TKestelMainWind created, shown, its first activation done
// (language, files read, the start page initialised) and the window drawn. The other pages are
// made after that, in the window's idle time; BM_KestelMainWindEveryPage measures the window
// with all of them, the work the program does in its first moments in all.
//
// Measured two ways: within one process (the windows made again and again, Qt already up), and
// as a program start (this program run again as a child that starts Qt, makes the window, waits
// until it is ready and exits), which is what a user waits for.
//
// The window is started as the program starts it: on a copy of the demo prefix, from the
// folder that holds the language libraries.

#include <benchmark/benchmark.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>

#include "pages/page_table.h"
#include "platform/message_box.h"
#include "platform/scratch_directory.h"
#include "platform/windows_directory.h"
#include "shell/kestel_main_wind.h"

namespace fs = std::filesystem;

namespace {

// A copy of the demo prefix, so that the measured start-ups read a realistic machine.
class BenchPrefix {
public:
    BenchPrefix() : root_(wk::platform::MakeScratchDirectory("wkestel-bench-")) {
        fs::copy(WKESTEL_DEMO_PREFIX, root_,
                 fs::copy_options::recursive | fs::copy_options::copy_symlinks);
        wk::platform::SetWinePrefixOverride(root_.string());
    }
    ~BenchPrefix() {
        wk::platform::SetWinePrefixOverride("");
        wk::platform::RemoveScratchDirectory(root_);
    }

private:
    fs::path root_;
};

void WaitUntil(const std::function<bool()>& done) {
    while (!done()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    }
}

// Watches a window for being drawn once `ready` holds: the moment the user sees it as it will
// be used. What the window does afterwards, in its idle time, is not waited for.
class DrawnWatch : public QObject {
public:
    DrawnWatch(QWidget& window, std::function<bool()> ready)
        : window_(window), ready_(std::move(ready)) {
        QCoreApplication::instance()->installEventFilter(this);
    }
    ~DrawnWatch() override { QCoreApplication::instance()->removeEventFilter(this); }
    bool Drawn() const { return drawn_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && !drawn_ && ready_()) {
            auto* widget = qobject_cast<QWidget*>(watched);
            drawn_ = widget && widget->window() == &window_;
        }
        return false;
    }

private:
    QWidget& window_;
    std::function<bool()> ready_;
    bool drawn_ = false;
};

// The floor: what any Qt program with a menu bar and a tab control pays to be on screen.
void ShowBareWindow() {
    {
        QMainWindow window;
        for (const char* title : {"&File", "&General", "&Element", "&Other", "&Help"}) {
            QMenu* menu = window.menuBar()->addMenu(QString::fromLatin1(title));
            for (int i = 0; i < 4; ++i) {
                menu->addAction(QStringLiteral("Entry %1").arg(i));
            }
        }
        auto* central = new QWidget(&window);
        auto* layout = new QVBoxLayout(central);
        auto* tabs = new QTabWidget(central);
        auto* page = new QWidget;
        auto* pageLayout = new QVBoxLayout(page);
        for (int i = 0; i < 5; ++i) {
            pageLayout->addWidget(new QLabel(QStringLiteral("Label %1").arg(i)));
            pageLayout->addWidget(new QLineEdit);
        }
        tabs->addTab(page, QStringLiteral("Page"));
        layout->addWidget(tabs);
        layout->addWidget(new QPushButton(QStringLiteral("OK")));
        window.setCentralWidget(central);
        DrawnWatch drawn(window, [&] { return window.isActiveWindow(); });
        window.show();
        window.activateWindow();
        WaitUntil([&] { return drawn.Drawn(); });
    }
}

// The window as the program shows it; false when it did not start. The caller has chosen the
// prefix and the working directory.
bool ShowKestelWindow() {
    wk::TKestelMainWind window({"WKestel32"}, wk::PageTable());
    wk::SetMessageBoxPresenter([](const wk::MessageBoxRequest&) { return wk::IDOK; });
    DrawnWatch drawn(window, [&] { return window.Ready(); });
    window.show();
    window.activateWindow();
    WaitUntil([&] { return drawn.Drawn() || window.TerminationRequested(); });
    return window.Ready();
}

// The window with every page made, as it is a moment after it was first drawn.
bool ShowKestelWindowWithEveryPage() {
    wk::TKestelMainWind window({"WKestel32"}, wk::PageTable());
    wk::SetMessageBoxPresenter([](const wk::MessageBoxRequest&) { return wk::IDOK; });
    window.show();
    window.activateWindow();
    WaitUntil([&] { return window.AllPagesBuilt() || window.TerminationRequested(); });
    return window.AllPagesBuilt();
}

void BM_BareQtWindow(benchmark::State& state) {
    for (auto _ : state) {
        ShowBareWindow();
    }
}
BENCHMARK(BM_BareQtWindow)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_KestelMainWindReady(benchmark::State& state) {
    BenchPrefix prefix;
    const fs::path previous = fs::current_path();
    fs::current_path(WKESTEL_LANGUAGE_DIR);
    for (auto _ : state) {
        if (!ShowKestelWindow()) {
            state.SkipWithError("the window did not start");
            break;
        }
    }
    wk::SetMessageBoxPresenter({});
    fs::current_path(previous);
}
BENCHMARK(BM_KestelMainWindReady)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_KestelMainWindEveryPage(benchmark::State& state) {
    BenchPrefix prefix;
    const fs::path previous = fs::current_path();
    fs::current_path(WKESTEL_LANGUAGE_DIR);
    for (auto _ : state) {
        if (!ShowKestelWindowWithEveryPage()) {
            state.SkipWithError("the window did not start");
            break;
        }
    }
    wk::SetMessageBoxPresenter({});
    fs::current_path(previous);
}
BENCHMARK(BM_KestelMainWindEveryPage)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// This program again, as a child that shows one window and exits: the program start.
std::string g_self;

bool RunChild(const char* which) {
    const pid_t pid = fork();
    if (pid == 0) {
        execl(g_self.c_str(), g_self.c_str(), "--startup-child", which,
              static_cast<char*>(nullptr));
        _exit(127);
    }
    int status = 0;
    return pid > 0 && waitpid(pid, &status, 0) == pid && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
}

void BM_ProgramStart_BareQtWindow(benchmark::State& state) {
    for (auto _ : state) {
        if (!RunChild("bare")) {
            state.SkipWithError("the child failed");
            break;
        }
    }
}
BENCHMARK(BM_ProgramStart_BareQtWindow)->Unit(benchmark::kMillisecond)->MinTime(3.0)->UseRealTime();

void BM_ProgramStart_KestelMainWindReady(benchmark::State& state) {
    BenchPrefix prefix;  // the child inherits the prefix through WINEPREFIX
    setenv("WINEPREFIX", wk::platform::WinePrefix().c_str(), 1);
    for (auto _ : state) {
        if (!RunChild("kestel")) {
            state.SkipWithError("the child failed");
            break;
        }
    }
}
BENCHMARK(BM_ProgramStart_KestelMainWindReady)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(3.0)
    ->UseRealTime();

// The program start until every page is made, a moment after the window was first drawn.
void BM_ProgramStart_KestelMainWindEveryPage(benchmark::State& state) {
    BenchPrefix prefix;
    setenv("WINEPREFIX", wk::platform::WinePrefix().c_str(), 1);
    for (auto _ : state) {
        if (!RunChild("kestel-every-page")) {
            state.SkipWithError("the child failed");
            break;
        }
    }
}
BENCHMARK(BM_ProgramStart_KestelMainWindEveryPage)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(3.0)
    ->UseRealTime();

int Child(int argc, char** argv, const std::string& which) {
    QApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    if (which == "bare") {
        ShowBareWindow();
        return 0;
    }
    fs::current_path(WKESTEL_LANGUAGE_DIR);
    if (which == "kestel-every-page") {
        return ShowKestelWindowWithEveryPage() ? 0 : 1;
    }
    return ShowKestelWindow() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (!std::getenv("QT_QPA_PLATFORM")) {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    }
    if (argc == 3 && std::string(argv[1]) == "--startup-child") {
        return Child(argc, argv, argv[2]);
    }
    g_self = fs::read_symlink("/proc/self/exe").string();
    QApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
