// A long random use of the real windows (see SoakRun). The number of actions and the seed
// come from the command line (-actions N -seed S) or the environment (QUORVEL_SOAK_ACTIONS,
// QUORVEL_SOAK_SEED); the same pair replays a run exactly. QUORVEL_SOAK_TRACE=1 prints
// every action.
#include "SoakRun.h"

#include <QElapsedTimer>
#include <QTest>

#include <csignal>
#include <cstdio>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

int g_actions = 2000;
quint64 g_seed = 1;

// The action under way, kept as plain bytes for a signal handler.
char g_crashNote[512];
struct sigaction g_previous[32];

void NoteCurrent() {
    std::snprintf(g_crashNote, sizeof g_crashNote, "\nsoak: stopped during %s\n", qPrintable(SoakRun::Current()));
}

void OnFatalSignal(int signal) {
    NoteCurrent();
    [[maybe_unused]] const auto written = write(STDERR_FILENO, g_crashNote, std::strlen(g_crashNote));
    sigaction(signal, &g_previous[signal], nullptr);
    raise(signal);
}

void ReportCrashes() {
    for (int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS, SIGILL}) {
        struct sigaction action {};
        action.sa_handler = OnFatalSignal;
        sigemptyset(&action.sa_mask);
        sigaction(signal, &action, &g_previous[signal]);
    }
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback([] {
        NoteCurrent();
        std::fputs(g_crashNote, stderr);
    });
#endif
}

// The offscreen platform's notes on window features it lacks would drown the run's own output.
QtMessageHandler g_handler = nullptr;

void QuietPlatform(QtMsgType type, const QMessageLogContext &context, const QString &message) {
    if (type == QtWarningMsg && message.startsWith(QLatin1String("This plugin does not support")))
        return;
    g_handler(type, context, message);
}

} // namespace

class TestSoak : public testsupport::WindowTest {
    Q_OBJECT

private slots:
    void initTestCase() {
        ReportCrashes();
        g_handler = qInstallMessageHandler(QuietPlatform);
    }

    void randomUseKeepsEveryInvariant() {
        QElapsedTimer clock;
        clock.start();
        SoakRun run(g_seed);
        const QString failure = run.Run(g_actions);
        qInfo("soak: seed %llu, %d actions done, %lld invariants checked, %.1f s", g_seed, run.Done(), run.Checks(),
              static_cast<double>(clock.elapsed()) / 1000.0);
        QVERIFY2(failure.isEmpty(), qPrintable(failure));
    }
};

int main(int argc, char **argv) {
    // Qt Test stops a test function after five minutes; a long run takes hours.
    if (!qEnvironmentVariableIsSet("QTEST_FUNCTION_TIMEOUT"))
        qputenv("QTEST_FUNCTION_TIMEOUT", "2000000000");
    QApplication app(argc, argv);
    app.setAttribute(Qt::AA_Use96Dpi, true);
    if (const QByteArray n = qgetenv("QUORVEL_SOAK_ACTIONS"); !n.isEmpty())
        g_actions = n.toInt();
    if (const QByteArray s = qgetenv("QUORVEL_SOAK_SEED"); !s.isEmpty())
        g_seed = s.toULongLong();
    QStringList args = app.arguments();
    for (int i = 1; i + 1 < args.size();) {
        if (args[i] == QLatin1String("-actions"))
            g_actions = args[i + 1].toInt();
        else if (args[i] == QLatin1String("-seed"))
            g_seed = args[i + 1].toULongLong();
        else {
            ++i;
            continue;
        }
        args.remove(i, 2);
    }
    // A long run prints a line every 10 000 actions, a traced one a line an action.
    args << QStringLiteral("-maxwarnings") << QStringLiteral("0");
    TestSoak test;
    return QTest::qExec(&test, args);
}

#include "tst_soak.moc"
