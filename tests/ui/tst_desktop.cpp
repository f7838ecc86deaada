#include "TestSupport.h"

#include "Form1.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QScopeGuard>
#include <QStandardPaths>

using namespace testsupport;

class TestDesktop : public WindowTest {
    Q_OBJECT

    static inline const QString kSample = QStringLiteral("412,388,270,301,95,102,340,298,415,502,Kusak,18,7,0,2.5");

    // A key pressed in the main window, made the active window first as a user's click would.
    static void Press(Form1 *form, const QKeySequence &keys) {
        form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form));
        QTest::keySequence(form, keys);
    }

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    // The keys run the toolbar's commands; the window shows the user's decimal comma, the file keeps the point.
    void keysRunTheToolbarCommandsAndFilesKeepTheDecimalPoint() {
        const QString file = WriteDnaFile(QStringLiteral("keys.txt"), {kSample});
        auto form = MakeForm1();
        AnswerFileDialog(file);
        Press(form.get(), QKeySequence(QKeySequence::Open));
        QLocale::setDefault(QLocale(QLocale::German));
        ClickRow(Find<QAbstractItemView>(form.get(), QStringLiteral("ListView1")), 1);
        QVERIFY(DropOn(Find<QWidget>(form.get(), QStringLiteral("Label3"))));
        // 95 / 12 + 412 / 60, rounded to two decimals.
        QCOMPARE(TextOf(form.get(), QStringLiteral("Label23_5")), QStringLiteral("14,78%"));
        QVERIFY(QFile::remove(file));
        AnswerMessageBox(QMessageBox::Ok);
        Press(form.get(), QKeySequence(QKeySequence::Save));
        QCOMPARE(ReadFileBytes(file), kSample.toLatin1() + "\r\n");
        const QString copy = TempFolder() + QStringLiteral("/keys-copy.txt");
        AnswerFileDialog(copy);
        AnswerMessageBox(QMessageBox::Yes);
        Press(form.get(), QKeySequence(QStringLiteral("Ctrl+Shift+S")));
        QCOMPARE(ReadFileBytes(copy), kSample.toLatin1() + "\r\n");
        // F1 and About open one About window.
        Press(form.get(), QKeySequence(Qt::Key_F1));
        ToolbarAction(form.get(), QStringLiteral("About"))->trigger();
        QWidget *about = TopLevel(QStringLiteral("Form4"));
        QCOMPARE(TextOf(about, QStringLiteral("Label4")), QStringLiteral("v0.55.1"));
        ClickWidget(Find<QWidget>(about, QStringLiteral("Command4")));
        QTRY_VERIFY(!TopLevel(QStringLiteral("Form4")));
        Press(form.get(), QKeySequence(QStringLiteral("Ctrl+Q")));
        QVERIFY(!form->isVisible());
    }

    void boxesHaveAccessibleNames() {
        auto form = MakeForm1();
        ToolbarAction(form.get(), QStringLiteral("Add DNA"))->trigger();
        ToolbarAction(form.get(), QStringLiteral("Options"))->trigger();
        ClickWidget(Find<QWidget>(form.get(), QStringLiteral("Command8")));
        // The toolkit's own scroll bars and inner lines have no objectName or a qt_ one.
        for (const char *name : {"Form1", "Form2", "Form3", "Form5"})
            for (QWidget *w : TopLevel(QLatin1String(name))->findChildren<QWidget *>())
                if (!w->objectName().isEmpty() && !w->objectName().startsWith(QLatin1String("qt_")) &&
                    (w->inherits("QComboBox") || w->inherits("QScrollBar") || w->inherits("QLineEdit")))
                    QVERIFY2(!w->accessibleName().isEmpty(), qPrintable(w->objectName()));
    }

    void readOnlyProgramFolderKeepsSettingsWithTheUser() {
        const QString folder = QCoreApplication::applicationDirPath();
        const QFile::Permissions old = QFile::permissions(folder);
        const QString userFile =
            QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + QStringLiteral("/quorvel.cfg");
        const auto restore = qScopeGuard([&] { QFile::setPermissions(folder, old); });
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
        if (QFileInfo(folder).isWritable())
            QSKIP("the program's folder stays writable for this user (root)");
        auto form = MakeForm1();
        form->Model().Settings()[quorvel::Setting::LFocus] = true;
        form->close();
        QVERIFY(ReadFileBytes(userFile).startsWith("LFocus\r\n"));
        QVERIFY(MakeForm1()->Model().Settings()[quorvel::Setting::LFocus]);
        QVERIFY(QFile::remove(userFile));
    }
};

QTEST_MAIN(TestDesktop)
#include "tst_desktop.moc"
