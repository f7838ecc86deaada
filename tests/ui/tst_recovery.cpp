// Samples no DNA file holds survive closing the main window: the recovery file beside the
// settings file, "Recover Unsaved Samples" and the status bar's note.
#include "TestSupport.h"

#include "Form1.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QStatusBar>

using namespace testsupport;
using namespace Qt::StringLiterals;

static const QStringList kMine{u"100,200,300,400,500,600,700,800,900,45,Alpha,12,7,1,2"_s,
                               u"1,2,3,4,5,6,7,8,9,10,Beta,2,1,0,2"_s};
static const QString kNote = u"Unsaved samples from the last run can be recovered: Load, Recover Unsaved Samples."_s;

class TestRecovery : public WindowTest {
    Q_OBJECT

    static QString Recovery() { return QCoreApplication::applicationDirPath() + u"/quorvel-unsaved.txt"_s; }
    static QByteArray Lines(const QStringList &lines) { return (lines.join(u"\r\n"_s) + u"\r\n"_s).toLatin1(); }
    static QTreeWidget *List(Form1 *form) { return Find<QTreeWidget>(form, u"ListView1"_s); }
    static QString Note(Form1 *form) { return Find<QStatusBar>(form, u"StatusBar1"_s)->currentMessage(); }
    static QAction *Recover(Form1 *form) { return ToolbarAction(form, u"Recover Unsaved Samples"_s); }
    static void Load(Form1 *form, const QString &path) {
        AnswerFileDialog(path);
        ToolbarAction(form, u"Load DNA"_s)->trigger();
    }
    static QString Mine() {
        QFile::remove(Recovery());
        return WriteDnaFile(u"mine.txt"_s, kMine);
    }

private slots:
    void editedSamplesComeBackInTheNextRun() {
        const QString mine = Mine();
        auto form = MakeForm1();
        Load(form.get(), mine);
        ClickRow(List(form.get()), 2);
        Find<QLineEdit>(form.get(), u"Text1_10"_s)->setText(u"Beta renamed"_s);
        ClickWidget(Find<QWidget>(form.get(), u"Command3"_s));
        ClickWidget(Find<QWidget>(form.get(), u"Command4"_s));
        // Closing asks nothing and leaves the user's file alone.
        form->close();
        QCOMPARE(ReadFileBytes(mine), Lines(kMine));
        const QByteArray unsaved =
            Lines({kMine[0], u"1,2,3,4,5,6,7,8,9,10,Beta renamed,2,1,0,2"_s, u"0,0,0,0,0,0,0,0,0,0,New DNA,0,0,0,0"_s});
        QCOMPARE(ReadFileBytes(Recovery()), unsaved);

        // The next run reloads the user's file at start; that changes nothing, and the note stays.
        WriteSettingsFile("Load\r\n" + QFile::encodeName(mine) + "\r\n");
        form = MakeForm1();
        QCOMPARE(Note(form.get()), kNote);
        Recover(form.get())->trigger();
        QCOMPARE(RowCount(List(form.get())), 5);
        QCOMPARE(Cell(List(form.get()), 4, 1), u"Beta renamed"_s);
        QCOMPARE(Note(form.get()), QString());
        // "Save" still writes the user's file.
        QCOMPARE(QString::fromStdString(form->Model().LastDnaFile()), mine);
    }

    void aSaveOrALoadLeavesNothingToRecover() {
        const QString mine = Mine();
        WriteSettingsFile("Load\r\n" + QFile::encodeName(mine) + "\r\n");
        auto form = MakeForm1();
        ClickWidget(Find<QWidget>(form.get(), u"Command4"_s));
        AnswerMessageBox(QMessageBox::Ok);
        ToolbarAction(form.get(), u"Save"_s)->trigger();
        form->close();
        QVERIFY(!QFile::exists(Recovery()));

        // The last run's samples go once the user loads a file.
        QFile::copy(mine, Recovery());
        form = MakeForm1();
        QVERIFY(Recover(form.get())->isEnabled());
        Load(form.get(), mine);
        QVERIFY(!QFile::exists(Recovery()));
        QVERIFY(!Recover(form.get())->isEnabled());
        QCOMPARE(Note(form.get()), QString());
    }

    void aRecoveryFileThatCannotBeWrittenChangesNothingElse() {
        const QString mine = Mine();
        // A folder stands where the recovery file would go (permissions do not stop root).
        QDir().mkpath(Recovery());
        const QString inside = Recovery() + u"/kept.txt"_s;
        QFile::copy(mine, inside);
        auto form = MakeForm1();
        Load(form.get(), mine);
        ClickWidget(Find<QWidget>(form.get(), u"Command4"_s));
        form->close();
        QCOMPARE(QDir(Recovery()).entryList(QDir::Files), QStringList{u"kept.txt"_s});
        QCOMPARE(ReadFileBytes(inside), Lines(kMine));
        QCOMPARE(ReadFileBytes(mine), Lines(kMine));
        QCOMPARE(ReadFileBytes(SettingsPath()), QByteArray("Exp\r\n 1 \r\n"));
        form = MakeForm1();
        QVERIFY(!Recover(form.get())->isEnabled());
        QCOMPARE(Note(form.get()), QString());
        QDir(Recovery()).removeRecursively();
    }
};

QTEST_MAIN(TestRecovery)
#include "tst_recovery.moc"
