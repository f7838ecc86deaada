// A long random use of the real windows: QUORVEL_SOAK_ACTIONS actions (2000 unless set) from
// the seed QUORVEL_SOAK_SEED (1 unless set); the same pair replays a run exactly.
#include "Soak.h"

#include <QAbstractButton>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>

#include <csignal>
#include <cstdio>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

QString g_current;
// The action under way as plain bytes, for a crash or a sanitizer's report.
char g_note[512];

void WriteNote() {
    std::snprintf(g_note, sizeof g_note, "\nsoak: stopped during %s\n", qPrintable(g_current));
    [[maybe_unused]] const auto written = write(STDERR_FILENO, g_note, std::strlen(g_note));
}

void OnFatalSignal(int signal) {
    WriteNote();
    std::signal(signal, SIG_DFL);
    raise(signal);
}

// The offscreen platform's notes on window features it lacks would drown the run's output.
QtMessageHandler g_handler = nullptr;

void QuietPlatform(QtMsgType type, const QMessageLogContext &context, const QString &message) {
    if (!message.startsWith(QLatin1String("This plugin does not support")))
        g_handler(type, context, message);
}

} // namespace

using namespace quorvel;

Soak::Soak(quint64 seed) : random_(seed), seed_(seed) {
    folder_ = testsupport::TempFolder() + QStringLiteral("/soak");
    QDir().mkpath(folder_);
    testsupport::RemoveSettingsFile();
    QFile::remove(RecoveryPath());
    form_ = testsupport::MakeForm1();
    Restarted();
    answerer_.setInterval(1);
    QObject::connect(&answerer_, &QTimer::timeout, [this] {
        QWidget *modal = QApplication::activeModalWidget();
        if (!modal || !modal->isVisible())
            return;
        if (auto *dialog = qobject_cast<QFileDialog *>(modal)) {
            auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
            if (path_.isEmpty() || typedInto_ == dialog || !edit)
                return QTest::keyClick(dialog, Qt::Key_Escape);
            typedInto_ = dialog;
            edit->setText(path_);
            QTest::keyClick(edit, Qt::Key_Return);
        } else if (auto *box = qobject_cast<QMessageBox *>(modal)) {
            seen_ << box->windowTitle() + QLatin1Char(':') + box->text();
            QAbstractButton *button = box->button(yes_ ? QMessageBox::Yes : QMessageBox::No);
            if (button || (button = box->button(QMessageBox::Ok)))
                button->click();
            else
                box->reject();
        } else {
            seen_ << QStringLiteral("other:") + modal->objectName();
            modal->close();
        }
    });
}

Soak::~Soak() {
    form_.reset();
    testsupport::CloseAllWindows();
}

QString Soak::Run(int count) {
    const auto ready = [this](const QString &needs) {
        if (needs.startsWith(QLatin1String("Form")))
            return Open(qPrintable(needs)) != nullptr;
        QWidget *w = needs == QLatin1String("rows") ? List() : Main().findChild<QWidget *>(needs);
        return needs.isEmpty() || (w && w->isVisible() && !w->visibleRegion().isEmpty() &&
                                   (w != List() || List()->topLevelItemCount() > 0));
    };
    QStringList recent;
    for (int n = 1; n <= count; ++n) {
        std::vector<const SoakAction *> drawn; // each action as often as its weight
        for (const SoakAction &a : kSoakActions)
            drawn.insert(drawn.end(), ready(QLatin1String(a.needs)) ? a.weight : 0, &a);
        const SoakAction *action = OneOf(drawn);
        said_ = QLatin1String(action->name);
        g_current = QStringLiteral("seed %1, action %2 (%3)").arg(seed_).arg(n).arg(said_);
        Before();
        Plan(QString());
        const unsigned effects = action->run(*this);
        answerer_.stop();
        Settle();
        After(effects);
        recent = recent.mid(recent.size() - 11) << QStringLiteral("%1 %2").arg(n).arg(said_);
        done = n;
        if (n % 10000 == 0)
            qInfo("soak: %d actions, %lld invariants checked", n, checks);
        if (!failure_.isEmpty())
            return QStringLiteral("seed %1, action %2: %3\nthe last actions:\n  %4\nreplay: tools/soak.sh %2 %1")
                .arg(seed_)
                .arg(n)
                .arg(failure_, recent.join(QStringLiteral("\n  ")));
    }
    return {};
}

// Lets the event loop run as it would between two user actions: posted events, and the
// deletion of windows just closed.
void Soak::Settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Soak::Plan(const QString &path, bool yes) {
    path_ = path;
    yes_ = yes;
    seen_.clear();
    typedInto_.clear();
    answerer_.start();
}

bool Soak::SawBox(const QString &title, const QString &text) const {
    const QString box = title + QLatin1Char(':') + text;
    return std::any_of(seen_.begin(), seen_.end(), [&](const QString &s) { return s.startsWith(box); });
}

QString Numbered(QAnyStringView stem, int count) {
    QStringList names;
    for (int i = 0; i < count; ++i)
        names << stem.toString() + QString::number(i);
    return names.join(u' ');
}

class TestSoak : public testsupport::WindowTest {
    Q_OBJECT

private slots:
    // After Qt Test's own crash handler, which knows nothing of the action under way.
    void initTestCase() {
#if defined(__SANITIZE_ADDRESS__)
        __sanitizer_set_death_callback(WriteNote);
#else
        for (int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS, SIGILL})
            std::signal(signal, OnFatalSignal);
#endif
        g_handler = qInstallMessageHandler(QuietPlatform);
    }

    void randomUseKeepsEveryInvariant() {
        QElapsedTimer clock;
        clock.start();
        const quint64 seed = qEnvironmentVariable("QUORVEL_SOAK_SEED", QStringLiteral("1")).toULongLong();
        Soak soak(seed);
        const QString failure = soak.Run(qEnvironmentVariable("QUORVEL_SOAK_ACTIONS", QStringLiteral("2000")).toInt());
        qInfo("soak: seed %llu, %d actions done, %lld invariants checked, %.1f s", seed, soak.done, soak.checks,
              double(clock.elapsed()) / 1000.0);
        QVERIFY2(failure.isEmpty(), qPrintable(failure));
    }
};

int main(int argc, char **argv) {
    // Qt Test stops a test function after five minutes; a long run takes hours.
    qputenv("QTEST_FUNCTION_TIMEOUT", "2000000000");
    QApplication app(argc, argv);
    app.setAttribute(Qt::AA_Use96Dpi, true);
    // Qt Test stops printing after 2 000 messages; a long run may print more.
    TestSoak test;
    return QTest::qExec(&test, app.arguments() << QStringLiteral("-maxwarnings") << QStringLiteral("0"));
}

#include "tst_soak.moc"
