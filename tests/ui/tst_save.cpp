#include "TestSupport.h"

#include "Form1.h"

#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>

#include <csignal>
#include <span>
#include <sys/resource.h>

using namespace testsupport;
using namespace Qt::StringLiterals;

namespace {

// Power (column 11) is 45, 10 and 900.
const QStringList kSamples{
    u"100,200,300,400,500,600,700,800,900,45,Alpha,12,7,1,2.5"_s,
    u"1,2,3,4,5,6,7,8,9,10,Beta,2,1,0,2"_s,
    u"-7,7,7,7,7,7,7,7,7,900,Gamma,1,0,0,3"_s,
};

// The title and text of each message box, in the order they came.
using Seen = QList<QPair<QString, QString>>;

// Answers the next message boxes in turn, one button each, and notes what they said.
void AnswerMessageBoxes(QList<QMessageBox::StandardButton> buttons, Seen *seen) {
    if (buttons.isEmpty())
        return;
    QTimer::singleShot(50, [buttons, seen]() mutable {
        for (QWidget *w : QApplication::topLevelWidgets()) {
            auto *box = qobject_cast<QMessageBox *>(w);
            if (box && box->isVisible()) {
                seen->append({box->windowTitle(), box->text()});
                if (QAbstractButton *button = box->button(buttons.takeFirst()))
                    button->click();
                break;
            }
        }
        AnswerMessageBoxes(buttons, seen);
    });
}

} // namespace

class TestSave : public WindowTest {
    Q_OBJECT

    static QByteArray Lines(const QStringList &lines) { return (lines.join(u"\r\n"_s) + u"\r\n"_s).toLatin1(); }
    static QString Caption(const QString &path) { return u"Quorvel v0.55 [%1]"_s.arg(path); }
    static QString PathIn(const QString &folder, const QString &name) {
        QDir().mkpath(TempFolder() + u'/' + folder);
        return TempFolder() + u'/' + folder + u'/' + name;
    }
    // Runs a toolbar command, answering its file dialog with `path` (none when null) and its boxes in turn.
    static Seen Run(Form1 *form, const QString &caption, const QString &path,
                    QList<QMessageBox::StandardButton> buttons) {
        Seen seen;
        if (!path.isNull())
            AnswerFileDialog(path);
        AnswerMessageBoxes(buttons, &seen);
        ToolbarAction(form, caption)->trigger();
        return seen;
    }
    static void Load(Form1 *form, const QString &path) { Run(form, u"Load DNA"_s, path, {}); }

private slots:
    void saveWritesTheLoadedFileAgainWithoutAsking() {
        auto form = MakeForm1();
        // Written by hand with blanks and a short quality: the save writes the plain form.
        const QString path = WriteDnaFile(
            u"again.txt"_s, {u"100, 200,300,400,500,600,700,800,900,45,Alpha,12,7,1,2.50"_s, kSamples[1], kSamples[2]});
        Load(form.get(), path);
        const Seen seen = Run(form.get(), u"Save"_s, QString(), {QMessageBox::Ok});
        QCOMPARE(seen, (Seen{{u"Saved"_s, u"Your file has been saved as "_s + path}}));
        QCOMPARE(ReadFileBytes(path), Lines(kSamples));
        QCOMPARE(form->windowTitle(), Caption(path));
        // The message closed, the main window has the keyboard again.
        QTRY_COMPARE(QApplication::activeWindow(), form.get());
    }

    void saveAsAsksFirstAndARefusalKeepsThePath() {
        auto form = MakeForm1();
        ClickWidget(Find<QPushButton>(form.get(), u"Command4"_s));
        const QString path = PathIn(u"first"_s, u"new.txt"_s);
        Seen seen = Run(form.get(), u"Save As"_s, path, {QMessageBox::No});
        QCOMPARE(seen, (Seen{{u"Save DNA"_s, u"Save to "_s + path + u"?"_s}}));
        QVERIFY(!QFile::exists(path));
        QCOMPARE(form->State().LastDnaFile, path);
        QCOMPARE(form->windowTitle(), u"Quorvel v0.55"_s);
        // The refused path is the next plain Save's target.
        seen = Run(form.get(), u"Save"_s, QString(), {QMessageBox::Ok});
        QCOMPARE(seen.value(0).first, u"Saved"_s);
        QCOMPARE(ReadFileBytes(path), QByteArray("0,0,0,0,0,0,0,0,0,0,New DNA,0,0,0,0\r\n"));
        QCOMPARE(form->windowTitle(), Caption(path));
    }

    void plainSaveWithNoFileAsksLikeSaveAs() {
        auto form = MakeForm1();
        const QString path = PathIn(u"plain"_s, u"empty.txt"_s);
        const Seen seen = Run(form.get(), u"Save"_s, path, {QMessageBox::Yes});
        QCOMPARE(seen.size(), 1);
        QCOMPARE(seen[0].first, u"Save DNA"_s);
        // An empty library gives an empty file.
        QVERIFY(QFile::exists(path));
        QCOMPARE(ReadFileBytes(path), QByteArray());
        QCOMPARE(form->windowTitle(), Caption(path));
        // A cancelled dialog changes nothing and asks nothing.
        AnswerFileDialog(QString());
        QVERIFY(Run(form.get(), u"Save As"_s, QString(), {}).isEmpty());
        QCOMPARE(form->State().LastDnaFile, path);
    }

    void saveWithDataWritesWordsThatReadBackAsZero() {
        auto form = MakeForm1();
        Load(form.get(), WriteDnaFile(u"words-in.txt"_s, kSamples));
        const QString path = PathIn(u"words"_s, u"words.txt"_s);
        Run(form.get(), u"Save With Data"_s, path, {QMessageBox::Yes});
        QCOMPARE(ReadFileBytes(path), Lines({u"100,200,300,400,500,600,700,800,900,45,Alpha,12,Naboo,Mission,Average"_s,
                                             u"1,2,3,4,5,6,7,8,9,10,Beta,2,Corellia,Wild,Average"_s,
                                             u"-7,7,7,7,7,7,7,7,7,900,Gamma,1,?,Wild,Above Average"_s}));
        Load(form.get(), path);
        QCOMPARE(form->State().Library.Count, 3);
        for (const quorvel::DnaRecord &record : std::span(form->State().Library.Records).subspan(1, 3))
            QVERIFY(record.Planet == 0 && record.Origin == 0 && record.Quality == 0.0f);
    }

    void wysiwygFollowsTheSortedList() {
        auto form = MakeForm1();
        Load(form.get(), WriteDnaFile(u"shown-in.txt"_s, kSamples));
        auto *list = Find<QTreeWidget>(form.get(), u"ListView1"_s);
        ClickHeader(list, 11);
        ClickHeader(list, 11);
        QCOMPARE(Cell(list, 1, 1), u"Gamma"_s);
        const QString path = PathIn(u"shown"_s, u"shown.txt"_s);
        Run(form.get(), u"WYSIWYG"_s, path, {QMessageBox::Yes});
        QCOMPARE(ReadFileBytes(path), Lines({kSamples[2], kSamples[0], kSamples[1]}));
        // Saving leaves the library in slot order.
        QCOMPARE(form->State().Library.Records[1].Name, std::string("Alpha"));
    }

    void failedSaveKeepsTheOldFileWhole() {
        auto form = MakeForm1();
        const QString path = PathIn(u"kept"_s, u"kept.txt"_s);
        QFile::copy(WriteDnaFile(u"kept-in.txt"_s, kSamples), path);
        Load(form.get(), path);
        ClickWidget(Find<QPushButton>(form.get(), u"Command4"_s));
        const QByteArray before = ReadFileBytes(path);
        // A folder that does not exist: the user is told the path; nothing is made.
        const QString missing = TempFolder() + u"/kept/none/lost.txt"_s;
        Seen seen = Run(form.get(), u"Save As"_s, missing, {QMessageBox::Yes, QMessageBox::Ok});
        QCOMPARE(seen.size(), 2);
        QCOMPARE(seen[1].first, u"Save DNA"_s);
        QVERIFY(seen[1].second.contains(missing));
        QVERIFY(!QFile::exists(missing));
        QCOMPARE(form->windowTitle(), Caption(path));

        // A write that fails half-way (the file size limit stands in for a full disk).
        rlimit old{};
        getrlimit(RLIMIT_FSIZE, &old);
        rlimit small = old;
        small.rlim_cur = 40;
        std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &small);
        seen = Run(form.get(), u"Save As"_s, path, {QMessageBox::Yes, QMessageBox::Ok});
        setrlimit(RLIMIT_FSIZE, &old);
        QCOMPARE(seen.size(), 2);
        QCOMPARE(seen[1].first, u"Save DNA"_s);
        QVERIFY(seen[1].second.contains(path));
        QCOMPARE(ReadFileBytes(path), before);
        QCOMPARE(QDir(TempFolder() + u"/kept"_s).entryList(QDir::Files), QStringList{u"kept.txt"_s});
        QCOMPARE(form->State().Library.Count, 4);
        QCOMPARE(RowCount(Find<QTreeWidget>(form.get(), u"ListView1"_s)), 4);
    }
};

QTEST_MAIN(TestSave)
#include "tst_save.moc"
