#include "TestSupport.h"

#include "Form1.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QStandardPaths>

#include <csignal>
#include <sys/resource.h>

using namespace testsupport;
using namespace Qt::StringLiterals;

// Power (column 11) is 45, 10 and 900.
static const QStringList kSamples{u"100,200,300,400,500,600,700,800,900,45,Alpha,12,7,1,2.5"_s,
                                  u"1,2,3,4,5,6,7,8,9,10,Beta,2,1,0,2"_s, u"-7,7,7,7,7,7,7,7,7,900,Gamma,1,0,0,3"_s};

class TestSave : public WindowTest {
    Q_OBJECT

    std::unique_ptr<Form1> form_;
    QString boxTitle_, boxText_;

    static QByteArray Lines(const QStringList &lines) { return (lines.join(u"\r\n"_s) + u"\r\n"_s).toLatin1(); }
    // Runs a toolbar command, answering its file dialog (when `path` is given) and its message box.
    void Run(const QString &caption, const QString &path, QMessageBox::StandardButton button) {
        if (!path.isEmpty())
            AnswerFileDialog(path);
        AnswerMessageBox(button, &boxTitle_, &boxText_);
        ToolbarAction(form_.get(), caption)->trigger();
    }
    void Open(const QString &path) {
        form_ = MakeForm1();
        AnswerFileDialog(path);
        ToolbarAction(form_.get(), u"Load DNA"_s)->trigger();
    }

    // A key pressed in the main window, made the active window first as a user's click would.
    static void Press(Form1 *form, const QKeySequence &keys) {
        form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form));
        QTest::keySequence(form, keys);
    }

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void saveWritesTheLoadedFileAgainAndWysiwygTheShownOrder() {
        // Written by hand with a blank and a long quality: the save writes the plain form.
        const QString path = WriteDnaFile(
            u"again.txt"_s, {u"100, 200,300,400,500,600,700,800,900,45,Alpha,12,7,1,2.50"_s, kSamples[1], kSamples[2]});
        Open(path);
        Run(u"Save"_s, QString(), QMessageBox::Ok);
        QCOMPARE(boxTitle_, u"Saved"_s);
        QCOMPARE(boxText_, u"Your file has been saved as "_s + path);
        QCOMPARE(ReadFileBytes(path), Lines(kSamples));
        // The message closed, the main window has the keyboard again.
        QTRY_COMPARE(QApplication::activeWindow(), form_.get());
        // "WYSIWYG" writes the rows in the order shown; the words of "Save With Data" are unit-tested.
        ClickHeader(Find<QTreeWidget>(form_.get(), u"ListView1"_s), 11);
        const QString shown = TempFolder() + u"/shown.txt"_s;
        Run(u"WYSIWYG"_s, shown, QMessageBox::Yes);
        QCOMPARE(ReadFileBytes(shown), Lines({kSamples[1], kSamples[0], kSamples[2]}));
    }

    void refusedSaveAsKeepsThePathForSave() {
        form_ = MakeForm1();
        ClickWidget(Find<QPushButton>(form_.get(), u"Command4"_s));
        const QString path = TempFolder() + u"/new.txt"_s;
        Run(u"Save As"_s, path, QMessageBox::No);
        QCOMPARE(boxTitle_, u"Save DNA"_s);
        QCOMPARE(boxText_, u"Save to %1?"_s.arg(path));
        QVERIFY(!QFile::exists(path));
        Run(u"Save"_s, QString(), QMessageBox::Ok);
        QCOMPARE(ReadFileBytes(path), QByteArray("0,0,0,0,0,0,0,0,0,0,New DNA,0,0,0,0\r\n"));
        QCOMPARE(form_->windowTitle(), u"Quorvel v0.55 [%1]"_s.arg(path));
    }

    void failedSaveKeepsTheOldFileWhole() {
        QDir().mkpath(TempFolder() + u"/kept"_s);
        const QString path = TempFolder() + u"/kept/kept.txt"_s;
        QFile::copy(WriteDnaFile(u"kept-in.txt"_s, kSamples), path);
        Open(path);
        // A write that fails half-way (the file size limit stands in for a full disk).
        rlimit old{};
        getrlimit(RLIMIT_FSIZE, &old);
        const rlimit small{40, old.rlim_max};
        std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &small);
        Run(u"Save"_s, QString(), QMessageBox::Ok);
        setrlimit(RLIMIT_FSIZE, &old);
        QCOMPARE(boxTitle_, u"Save DNA"_s);
        QVERIFY(boxText_.contains(path));
        QCOMPARE(ReadFileBytes(path), Lines(kSamples));
        QCOMPARE(QDir(TempFolder() + u"/kept"_s).entryList(QDir::Files), QStringList{u"kept.txt"_s});
    }

    // The keys run the toolbar's commands; the window shows the user's decimal comma, the file keeps the point.
    void keysRunTheToolbarCommandsAndFilesKeepTheDecimalPoint() {
        const QString file = WriteDnaFile(u"keys.txt"_s, {kSamples[0]});
        auto form = MakeForm1();
        AnswerFileDialog(file);
        Press(form.get(), QKeySequence(QKeySequence::Open));
        QLocale::setDefault(QLocale(QLocale::German));
        ClickRow(Find<QAbstractItemView>(form.get(), u"ListView1"_s), 1);
        QVERIFY(DropOn(Find<QWidget>(form.get(), u"Label3"_s)));
        // 500 / 12 + 100 / 60, rounded to two decimals.
        QCOMPARE(TextOf(form.get(), u"Label23_5"_s), u"43,33%"_s);
        QVERIFY(QFile::remove(file));
        AnswerMessageBox(QMessageBox::Ok);
        Press(form.get(), QKeySequence(QKeySequence::Save));
        QCOMPARE(ReadFileBytes(file), Lines({kSamples[0]}));
        const QString copy = TempFolder() + u"/keys-copy.txt"_s;
        AnswerFileDialog(copy);
        AnswerMessageBox(QMessageBox::Yes);
        Press(form.get(), QKeySequence(u"Ctrl+Shift+S"_s));
        QCOMPARE(ReadFileBytes(copy), Lines({kSamples[0]}));
        // F1 and About open one About window.
        Press(form.get(), QKeySequence(Qt::Key_F1));
        ToolbarAction(form.get(), u"About"_s)->trigger();
        QWidget *about = TopLevel(u"Form4"_s);
        QCOMPARE(TextOf(about, u"Label4"_s), u"v0.55.1"_s);
        ClickWidget(Find<QWidget>(about, u"Command4"_s));
        QTRY_VERIFY(!TopLevel(u"Form4"_s));
        Press(form.get(), QKeySequence(u"Ctrl+Q"_s));
        QVERIFY(!form->isVisible());
    }

    void boxesHaveAccessibleNames() {
        auto form = MakeForm1();
        ToolbarAction(form.get(), u"Add DNA"_s)->trigger();
        ToolbarAction(form.get(), u"Options"_s)->trigger();
        ClickWidget(Find<QWidget>(form.get(), u"Command8"_s));
        // The toolkit's own scroll bars and inner lines have no objectName or a qt_ one.
        for (const char *name : {"Form1", "Form2", "Form3", "Form5"})
            for (QWidget *w : TopLevel(QLatin1StringView(name))->findChildren<QWidget *>())
                if (!w->objectName().isEmpty() && !w->objectName().startsWith("qt_"_L1) &&
                    (w->inherits("QComboBox") || w->inherits("QScrollBar") || w->inherits("QLineEdit")))
                    QVERIFY2(!w->accessibleName().isEmpty(), qPrintable(w->objectName()));
    }

    void readOnlyProgramFolderKeepsSettingsWithTheUser() {
        const QString folder = QCoreApplication::applicationDirPath();
        const QFile::Permissions old = QFile::permissions(folder);
        const QString userFile =
            QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + u"/quorvel.cfg"_s;
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

QTEST_MAIN(TestSave)
#include "tst_save.moc"
