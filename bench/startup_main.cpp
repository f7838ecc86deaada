// One start of the program's main window or of a bare QMainWindow of a given size, for the
// start-up and memory figures. The window is shown and the first zero timer, which runs once
// the event loop has nothing else to do, prints the time since `start` and the window's size.
//   quorvel_bench_startup form1 <start ns>
//   quorvel_bench_startup bare <start ns> <width> <height>
#include "Form1.h"

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>

namespace {

long long MonotonicNs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * 1000000000LL + now.tv_nsec;
}

} // namespace

int main(int argc, char *argv[]) {
    if (argc < 3)
        return 2;
    const bool bare = std::strcmp(argv[1], "bare") == 0;
    const long long start = std::atoll(argv[2]);
    QApplication app(argc, argv);
    std::unique_ptr<QMainWindow> window;
    if (bare) {
        window = std::make_unique<QMainWindow>();
        if (argc >= 5)
            window->resize(std::atoi(argv[3]), std::atoi(argv[4]));
    } else {
        window = std::make_unique<Form1>();
    }
    window->show();
    QTimer::singleShot(0, [&] {
        std::printf("%lld %d %d\n", MonotonicNs() - start, window->width(), window->height());
        std::fflush(stdout);
        app.quit();
    });
    return app.exec();
}
