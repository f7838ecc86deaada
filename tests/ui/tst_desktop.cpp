#include "TestSupport.h"

#include "Form1.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollBar>
#include <QStandardPaths>

using namespace testsupport;

namespace {

// Quality 2.5 and Intellect 95 / Hardiness 412 give decimals in the file and in the prediction.
const QString kSample = QStringLiteral("412,388,270,301,95,102,340,298,415,502,Kusak Alpha,18,7,0,2.5");

// A key pressed in the main window, made the active window first as a user's click would.
void Press(Form1 *form, const QKeySequence &keys) {
    form->activateWindow();
    if (!QTest::qWaitForWindowActive(form))
        qWarning("main window not active");
    QTest::keySequence(form, keys);
}

// The colour a box shows at its centre, as its accessible name calls it.
QString ColourWord(QWidget *box) {
    const QImage image = box->grab().toImage();
    const QColor c = image.pixelColor(image.rect().center());
    return QLatin1String(c == QColor(Qt::white)    ? "white"
                         : c == QColor(Qt::yellow) ? "yellow"
                         : c == QColor(Qt::green)  ? "green"
                                                   : "?");
}

// Every shown box of the experimentation window names its place and the colour it shows.
void CheckBoxNames(QWidget *form5) {
    const QStringList places{QStringLiteral("Point"),  QStringLiteral("Physique"),   QStringLiteral("Prowess"),
                             QStringLiteral("Mental"), QStringLiteral("Psychology"), QStringLiteral("Aggressiveness")};
    for (int p = 0; p < 6; ++p) {
        for (int b = 0; b < (p == 0 ? 12 : 10); ++b) {
            auto *box = Find<QWidget>(form5, QStringLiteral("Picture%1_%2").arg(p + 4).arg(b));
            const QString prefix = QStringLiteral("%1 box %2: %3, ").arg(places[p]).arg(b + 1).arg(ColourWord(box));
            QVERIFY2(box->isHidden() || box->accessibleName().startsWith(prefix), qPrintable(box->accessibleName()));
        }
    }
}

} // namespace

class TestDesktop : public WindowTest {
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void standardKeysRunTheToolbarCommands() {
        const QString file = WriteDnaFile(QStringLiteral("keys.txt"), {kSample});
        auto form = MakeForm1();
        AnswerFileDialog(file);
        Press(form.get(), QKeySequence(QKeySequence::Open));
        QCOMPARE(RowCount(Find<QAbstractItemView>(form.get(), QStringLiteral("ListView1"))), 1);
        QCOMPARE(form->windowTitle(), QStringLiteral("Quorvel v0.55 [%1]").arg(file));

        // Save writes the loaded file again without a dialog.
        QVERIFY(QFile::remove(file));
        QString title;
        AnswerMessageBox(QMessageBox::Ok, &title);
        Press(form.get(), QKeySequence(QKeySequence::Save));
        QCOMPARE(title, QStringLiteral("Saved"));
        QCOMPARE(ReadFileBytes(file), kSample.toLatin1() + "\r\n");

        // Save As asks for a new name, also where the platform has no key of its own for it.
        const QString copy = TempFolder() + QStringLiteral("/keys-copy.txt");
        AnswerFileDialog(copy);
        AnswerMessageBox(QMessageBox::Yes, &title);
        Press(form.get(), QKeySequence(QStringLiteral("Ctrl+Shift+S")));
        QCOMPARE(title, QStringLiteral("Save DNA"));
        QCOMPARE(ReadFileBytes(copy), kSample.toLatin1() + "\r\n");

        Press(form.get(), QKeySequence(Qt::Key_F1));
        QVERIFY(TopLevel(QStringLiteral("Form4")));
        // Quit runs the window's closing steps, which close the other windows.
        Press(form.get(), QKeySequence(QStringLiteral("Ctrl+Q")));
        QVERIFY(!form->isVisible());
        QVERIFY(!TopLevel(QStringLiteral("Form4")));
    }

    void boxesHaveAccessibleNames() {
        auto form = MakeForm1();
        LoadSamples(form.get(), {kSample});
        ClickRow(Find<QAbstractItemView>(form.get(), QStringLiteral("ListView1")), 1);
        ToolbarAction(form.get(), QStringLiteral("Add DNA"))->trigger();
        ToolbarAction(form.get(), QStringLiteral("Options"))->trigger();
        ClickWidget(Find<QPushButton>(form.get(), QStringLiteral("Command8")));
        // Every named box a user types into or moves, in every window, carries a name for screen
        // readers (the toolkit's own scroll bars and inner lines have no objectName or a qt_ one).
        for (const char *name : {"Form1", "Form2", "Form3", "Form5"}) {
            QWidget *window = TopLevel(QLatin1String(name));
            QVERIFY2(window, name);
            for (QWidget *w : window->findChildren<QWidget *>()) {
                const bool box =
                    qobject_cast<QComboBox *>(w) || qobject_cast<QScrollBar *>(w) || qobject_cast<QLineEdit *>(w);
                if (box && !w->objectName().isEmpty() && !w->objectName().startsWith(QLatin1String("qt_")))
                    QVERIFY2(!w->accessibleName().isEmpty(), qPrintable(w->objectName()));
            }
        }
        QCOMPARE(Find<QLineEdit>(TopLevel(QStringLiteral("Form2")), QStringLiteral("Text1_9"))->accessibleName(),
                 QStringLiteral("Power"));

        // The experimentation window's boxes say their colour, also after a click changes it.
        QWidget *form5 = TopLevel(QStringLiteral("Form5"));
        CheckBoxNames(form5);
        QWidget *placed = nullptr;
        for (int b = 9; b >= 0; --b) {
            auto *box = Find<QWidget>(form5, QStringLiteral("Picture5_%1").arg(b));
            if (!box->isHidden() && ColourWord(box) == QLatin1String("white"))
                placed = box;
        }
        QVERIFY(placed);
        ClickWidget(placed);
        QCOMPARE(ColourWord(placed), QStringLiteral("green"));
        CheckBoxNames(form5);
    }

    void decimalCommaInWindowsPointInFiles() {
        auto form = MakeForm1();
        LoadSamples(form.get(), {kSample});
        ClickRow(Find<QAbstractItemView>(form.get(), QStringLiteral("ListView1")), 1);
        QWidget *dropLabel = Find<QWidget>(form.get(), QStringLiteral("Label3"));
        QVERIFY(DropOn(dropLabel));
        QStringList withPoint;
        for (int i = 0; i <= 10; ++i)
            withPoint << TextOf(form.get(), QStringLiteral("Label23_%1").arg(i));
        QVERIFY(withPoint.join(QString()).contains(QLatin1Char('.')));

        QLocale::setDefault(QLocale(QLocale::German));
        QVERIFY(DropOn(dropLabel));
        // 95 / 12 + 412 / 60 rounded to two decimals.
        QCOMPARE(TextOf(form.get(), QStringLiteral("Label23_5")), QStringLiteral("14,78%"));
        for (int i = 0; i <= 10; ++i)
            QCOMPARE(TextOf(form.get(), QStringLiteral("Label23_%1").arg(i)),
                     QString(withPoint[i]).replace(QLatin1Char('.'), QLatin1Char(',')));

        const QString saved = TempFolder() + QStringLiteral("/comma-saved.txt");
        AnswerFileDialog(saved);
        AnswerMessageBox(QMessageBox::Yes);
        ToolbarAction(form.get(), QStringLiteral("Save As"))->trigger();
        QCOMPARE(ReadFileBytes(saved), kSample.toLatin1() + "\r\n");
    }

    void readOnlyProgramFolderKeepsSettingsWithTheUser() {
        const QString folder = QCoreApplication::applicationDirPath();
        const QString userFile =
            QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + QStringLiteral("/quorvel.cfg");
        QFile::remove(userFile);
        const QFile::Permissions old = QFile::permissions(folder);
        const auto restore = qScopeGuard([&] {
            QFile::setPermissions(folder, old);
            QFile::remove(userFile);
        });
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                                          QFile::ReadOther | QFile::ExeOther);
        if (QFileInfo(folder).isWritable())
            QSKIP("the program's folder stays writable for this user (root)");

        QDir().mkpath(QFileInfo(userFile).path());
        QFile seeded(userFile);
        QVERIFY(seeded.open(QIODevice::WriteOnly));
        seeded.write("LFocus\r\n");
        seeded.close();
        auto form = MakeForm1();
        QVERIFY(Find<QCheckBox>(form.get(), QStringLiteral("Check1"))->isChecked());
        QVERIFY(QFile::remove(userFile));
        form->close();
        QVERIFY(ReadFileBytes(userFile).startsWith("LFocus\r\n"));
        QVERIFY(!QFile::exists(SettingsPath()));
    }
};

QTEST_MAIN(TestDesktop)
#include "tst_desktop.moc"
