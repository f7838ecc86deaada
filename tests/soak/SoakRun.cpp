#include "SoakRun.h"

#include "Form1.h"
#include "ProgramState.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

namespace {

// The action under way; a crash handler prints it.
QString g_current;

constexpr int kRecentShown = 12;

} // namespace

SoakRun::SoakRun(quint64 seed) : random_(seed), seed_(seed) {
    trace_ = qEnvironmentVariableIsSet("QUORVEL_SOAK_TRACE");
    folder_ = testsupport::TempFolder() + QStringLiteral("/soak");
    QDir().mkpath(folder_);
    badFiles_ = testsupport::WriteBadDnaFiles();
    AddFileActions();
    AddListActions();
    AddTemplateActions();
    AddSessionActions();
    AddEditorActions();
    AddAddDnaActions();
    AddWindowActions();
    testsupport::RemoveSettingsFile();
    QFile::remove(ProgramState::RecoveryPath());
    form_ = testsupport::MakeForm1();
}

SoakRun::~SoakRun() {
    answer_.End();
    if (form_)
        form_->close();
    form_.reset();
    testsupport::CloseAllWindows();
}

QString SoakRun::Current() {
    return g_current;
}

void SoakRun::Add(const char *name, int weight, std::function<bool()> available, std::function<unsigned()> run) {
    actions_.push_back({name, weight, std::move(available), std::move(run)});
}

int SoakRun::Below(int n) {
    return n <= 1 ? 0 : static_cast<int>(random_() % static_cast<quint64>(n));
}

bool SoakRun::Chance(int percent) {
    return Below(100) < percent;
}

void SoakRun::Say(const QString &what) {
    said_ += (said_.isEmpty() ? QString() : QStringLiteral("; ")) + what.left(160);
}

QString SoakRun::Run(int count) {
    for (int n = 1; n <= count; ++n) {
        int total = 0;
        std::vector<const Action *> open;
        for (const Action &a : actions_) {
            if (a.available()) {
                open.push_back(&a);
                total += a.weight;
            }
        }
        int pick = Below(total);
        const Action *action = open.front();
        for (const Action *a : open) {
            if (pick < a->weight) {
                action = a;
                break;
            }
            pick -= a->weight;
        }
        said_ = QString::fromLatin1(action->name);
        g_current = QStringLiteral("seed %1, action %2 (%3)").arg(seed_).arg(n).arg(said_);
        checks_.Before(Main());
        const unsigned effects = action->run();
        answer_.End();
        Settle();
        const QString failure = checks_.After(Main(), effects);
        if (trace_)
            qInfo("%d %s", n, qPrintable(said_));
        recent_ << QStringLiteral("%1 %2").arg(n).arg(said_);
        if (recent_.size() > kRecentShown)
            recent_.removeFirst();
        done_ = n;
        if (n % 10000 == 0)
            qInfo("soak: %d actions, %lld invariants checked", n, checks_.Checks());
        if (!failure.isEmpty()) {
            return QStringLiteral("seed %1, action %2: %3\nthe last actions:\n  %4\nreplay: tools/soak.sh %2 %1")
                .arg(seed_)
                .arg(n)
                .arg(failure, recent_.join(QStringLiteral("\n  ")));
        }
    }
    return {};
}

// Lets the event loop run as it would between two user actions: posted events, and the
// deletion of windows just closed.
void SoakRun::Settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QWidget *SoakRun::Open(const char *name) {
    return testsupport::TopLevel(QLatin1String(name));
}

QTreeWidget *SoakRun::List() {
    return In<QTreeWidget>(&Main(), QStringLiteral("ListView1"));
}

bool SoakRun::ListShown() {
    return List()->isVisible() && List()->topLevelItemCount() > 0;
}

// Shown and not clipped away by a folded panel.
bool SoakRun::Reachable(QWidget *w) {
    return w && w->isVisible() && !w->visibleRegion().isEmpty();
}

void SoakRun::ClickToolbar(const QString &caption) {
    QAction *action = testsupport::ToolbarAction(&Main(), caption);
    auto *toolbar = In<QToolBar>(&Main(), QStringLiteral("Toolbar1"));
    // A button of its own is clicked; an entry of a button's menu is chosen from the menu.
    if (auto *button = qobject_cast<QToolButton *>(toolbar->widgetForAction(action)))
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(4, button->height() / 2));
    else
        action->trigger();
}

// Clicks into a box and types: short Latin-1 texts key by key, others as a paste. Most of
// the time the whole old text is replaced; sometimes the typing goes on after it.
void SoakRun::TypeInto(QLineEdit *box, const QString &text) {
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(2, box->height() / 2));
    if (Chance(80))
        box->selectAll();
    else
        box->end(false);
    const bool keys = text.size() <= 30 && std::all_of(text.begin(), text.end(), [](QChar c) {
                          return c.unicode() >= 0x20 && c.unicode() < 0x7f;
                      });
    if (keys && !text.isEmpty())
        QTest::keyClicks(box, text);
    else if (!keys)
        box->insert(text);
    else
        QTest::keyClick(box, Qt::Key_Backspace);
    Say(QStringLiteral("typed '%1' into %2").arg(text.left(40), box->objectName()));
}

// Opens a drop-down list and clicks an entry, or types a text into the box.
void SoakRun::ChooseInCombo(QComboBox *combo) {
    if (Chance(60) && combo->count() > 0) {
        const int index = Below(combo->count());
        combo->showPopup();
        QAbstractItemView *view = combo->view();
        const QModelIndex item = view->model()->index(index, combo->modelColumn());
        view->scrollTo(item);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, view->visualRect(item).center());
        if (view->isVisible())
            combo->hidePopup();
        Say(QStringLiteral("chose entry %1 of %2").arg(index).arg(combo->objectName()));
        return;
    }
    static const QStringList typed{QStringLiteral("Lok"),      QStringLiteral("naboo"), QStringLiteral("HQ"),
                                   QStringLiteral("vhq"),      QStringLiteral("?"),     QStringLiteral("Any"),
                                   QStringLiteral("Tatooine"), QStringLiteral("xyz"),   QString()};
    const QString text = Chance(80) ? typed[Below(static_cast<int>(typed.size()))] : Noise(Below(8));
    TypeInto(combo->lineEdit(), text);
    Say(QStringLiteral("in %1").arg(combo->objectName()));
}

// Numbers as people type them, and what they type by mistake.
QString SoakRun::NumberText() {
    static const QStringList odd{QString(),
                                 QStringLiteral("abc"),
                                 QStringLiteral("12abc"),
                                 QStringLiteral("-"),
                                 QStringLiteral("."),
                                 QStringLiteral("1,5"),
                                 QStringLiteral("32767"),
                                 QStringLiteral("32768"),
                                 QStringLiteral("-32768"),
                                 QStringLiteral("-32769"),
                                 QStringLiteral("99999999999999999999"),
                                 QStringLiteral("1e400"),
                                 QStringLiteral("-0"),
                                 QStringLiteral("+7"),
                                 QStringLiteral(" 1 2 "),
                                 QStringLiteral("2.5"),
                                 QStringLiteral("3.5"),
                                 QStringLiteral("-2.5")};
    switch (Below(10)) {
    case 0:
        return QString::number(Below(85536) - 42768);
    case 1:
        return QStringLiteral("%1.5").arg(Below(2001) - 1000);
    case 2:
        return QStringLiteral("%1E%2").arg(Below(10)).arg(Below(6));
    case 3:
        return QStringLiteral("&H") + QString::number(Below(0x10000), 16).toUpper();
    case 4:
        return QStringLiteral("&O") + QString::number(Below(0100000), 8);
    case 5:
        return odd[Below(static_cast<int>(odd.size()))];
    case 6:
        return Noise(1 + Below(12));
    case 7:
        return QString(1000 + Below(4000), QLatin1Char('9'));
    default:
        return QString::number(Below(1001));
    }
}

QString SoakRun::NameText() {
    static const QStringList names{QStringLiteral("Kusak Alpha"),
                                   QStringLiteral("Mott"),
                                   QStringLiteral("Bol  "),
                                   QStringLiteral("-"),
                                   QStringLiteral("New DNA"),
                                   QStringLiteral("Rex, the second"),
                                   QString(),
                                   QStringLiteral("Crème brûlée"),
                                   QStringLiteral("€ 5")};
    switch (Below(6)) {
    case 0:
        return Noise(1 + Below(20));
    case 1:
        return Noise(2000 + Below(8000));
    default:
        return names[Below(static_cast<int>(names.size()))];
    }
}

// Letters, digits, signs and a few characters from beyond Latin-1.
QString SoakRun::Noise(int length) {
    static const QString pool = QStringLiteral(" aAzZ09.,-+E&HO;?é€\u0101\u4e2d'\"");
    QString text;
    for (int i = 0; i < length; ++i)
        text += pool[Below(static_cast<int>(pool.size()))];
    return text;
}

QString SoakRun::PathInFolder(const QString &stem) {
    return QStringLiteral("%1/%2-%3.txt").arg(folder_, stem).arg(++files_);
}
