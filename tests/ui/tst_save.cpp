#include "TestSupport.h"

#include "Form1.h"

#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>

#include <csignal>
#include <sys/resource.h>

using namespace testsupport;

namespace {

// Power (column 11) is 45, 10 and 900.
const QStringList kSamples{
    QStringLiteral("100,200,300,400,500,600,700,800,900,45,Alpha,12,7,1,2.5"),
    QStringLiteral("1,2,3,4,5,6,7,8,9,10,Beta,2,1,0,2"),
    QStringLiteral("-7,7,7,7,7,7,7,7,7,900,Gamma,1,0,0,3"),
};

QByteArray Lines(const QStringList &lines) {
    QByteArray bytes;
    for (const QString &line : lines)
        bytes += line.toLatin1() + "\r\n";
    return bytes;
}

QString Folder(const QString &name) {
    const QString path = TempFolder() + QLatin1Char('/') + name;
    QDir().mkpath(path);
    return path;
}

void Trigger(Form1 *form, const char *caption) {
    ToolbarAction(form, QString::fromLatin1(caption))->trigger();
}

void Load(Form1 *form, const QString &path) {
    AnswerFileDialog(path);
    Trigger(form, "Load DNA");
}

struct SeenBox {
    QString title;
    QString text;
};

// Answers the next message boxes in turn, one button each, and notes what they said.
void AnswerMessageBoxes(QList<QMessageBox::StandardButton> buttons, QList<SeenBox> *seen) {
    if (buttons.isEmpty())
        return;
    QTimer::singleShot(50, [buttons, seen]() mutable {
        for (QWidget *w : QApplication::topLevelWidgets()) {
            auto *box = qobject_cast<QMessageBox *>(w);
            if (!box || !box->isVisible())
                continue;
            seen->append({box->windowTitle(), box->text()});
            if (QAbstractButton *button = box->button(buttons.takeFirst()))
                button->click();
            break;
        }
        AnswerMessageBoxes(buttons, seen);
    });
}

QString Caption(const QString &path) {
    return QStringLiteral("Quorvel v0.55 [%1]").arg(path);
}

} // namespace

class TestSave : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QLocale::setDefault(QLocale::c());
        RemoveSettingsFile();
    }
    void cleanup() { CloseAllWindows(); }

    void saveWritesTheLoadedFileAgainWithoutAsking() {
        auto form = MakeForm1();
        // Written by hand with blanks and a short quality: the save writes the plain form.
        const QString path = WriteDnaFile(
            QStringLiteral("again.txt"),
            {QStringLiteral("100, 200,300,400,500,600,700,800,900,45,Alpha,12,7,1,2.50"), kSamples[1], kSamples[2]});
        Load(form.get(), path);
        QList<SeenBox> seen;
        AnswerMessageBoxes({QMessageBox::Ok}, &seen);
        Trigger(form.get(), "Save");
        QCOMPARE(seen.size(), 1);
        QCOMPARE(seen[0].title, QStringLiteral("Saved"));
        QCOMPARE(seen[0].text, QStringLiteral("Your file has been saved as ") + path);
        QCOMPARE(ReadFileBytes(path), Lines(kSamples));
        QCOMPARE(form->windowTitle(), Caption(path));
        // The message closed, the main window has the keyboard again.
        QTRY_COMPARE(QApplication::activeWindow(), form.get());
    }

    void saveWithoutFileAsksFirstAndRefusalKeepsThePath() {
        auto form = MakeForm1();
        ClickWidget(Find<QPushButton>(form.get(), QStringLiteral("Command4")));
        const QString path = Folder(QStringLiteral("first")) + QStringLiteral("/new.txt");
        QList<SeenBox> seen;
        AnswerFileDialog(path);
        AnswerMessageBoxes({QMessageBox::No}, &seen);
        Trigger(form.get(), "Save As");
        QCOMPARE(seen.size(), 1);
        QCOMPARE(seen[0].title, QStringLiteral("Save DNA"));
        QCOMPARE(seen[0].text, QStringLiteral("Save to ") + path + QStringLiteral("?"));
        QVERIFY(!QFile::exists(path));
        QCOMPARE(form->State().LastDnaFile, path);
        QCOMPARE(form->windowTitle(), QStringLiteral("Quorvel v0.55"));

        // The refused path is the next plain Save's target.
        AnswerMessageBoxes({QMessageBox::Ok}, &seen);
        Trigger(form.get(), "Save");
        QCOMPARE(seen.size(), 2);
        QCOMPARE(seen[1].title, QStringLiteral("Saved"));
        QCOMPARE(ReadFileBytes(path), QByteArray("0,0,0,0,0,0,0,0,0,0,New DNA,0,0,0,0\r\n"));
        QCOMPARE(form->windowTitle(), Caption(path));
    }

    void plainSaveWithNoFileAsksLikeSaveAs() {
        auto form = MakeForm1();
        const QString path = Folder(QStringLiteral("plain")) + QStringLiteral("/empty.txt");
        QList<SeenBox> seen;
        AnswerFileDialog(path);
        AnswerMessageBoxes({QMessageBox::Yes}, &seen);
        Trigger(form.get(), "Save");
        QCOMPARE(seen.size(), 1);
        QCOMPARE(seen[0].title, QStringLiteral("Save DNA"));
        // An empty library gives an empty file.
        QVERIFY(QFile::exists(path));
        QCOMPARE(ReadFileBytes(path), QByteArray());
        QCOMPARE(form->windowTitle(), Caption(path));

        // A cancelled dialog changes nothing.
        AnswerFileDialog(QString());
        Trigger(form.get(), "Save As");
        QCOMPARE(form->State().LastDnaFile, path);
        QCOMPARE(seen.size(), 1);
    }

    void saveWithDataWritesWordsThatReadBackAsZero() {
        auto form = MakeForm1();
        Load(form.get(), WriteDnaFile(QStringLiteral("words-in.txt"), kSamples));
        const QString path = Folder(QStringLiteral("words")) + QStringLiteral("/words.txt");
        QList<SeenBox> seen;
        AnswerFileDialog(path);
        AnswerMessageBoxes({QMessageBox::Yes}, &seen);
        Trigger(form.get(), "Save With Data");
        QCOMPARE(ReadFileBytes(path),
                 Lines({QStringLiteral("100,200,300,400,500,600,700,800,900,45,Alpha,12,Naboo,Mission,Average"),
                        QStringLiteral("1,2,3,4,5,6,7,8,9,10,Beta,2,Corellia,Wild,Average"),
                        QStringLiteral("-7,7,7,7,7,7,7,7,7,900,Gamma,1,?,Wild,Above Average")}));

        Load(form.get(), path);
        QCOMPARE(form->State().Library.Count, 3);
        for (int slot = 1; slot <= 3; ++slot) {
            const quorvel::DnaRecord &record = form->State().Library.Records[static_cast<std::size_t>(slot)];
            QCOMPARE(record.Planet, 0);
            QCOMPARE(record.Origin, 0);
            QCOMPARE(record.Quality, 0.0f);
        }
    }

    void wysiwygFollowsTheSortedList() {
        auto form = MakeForm1();
        Load(form.get(), WriteDnaFile(QStringLiteral("shown-in.txt"), kSamples));
        auto *list = Find<QTreeWidget>(form.get(), QStringLiteral("ListView1"));
        ClickHeader(list, 11);
        ClickHeader(list, 11);
        QCOMPARE(Cell(list, 1, 1), QStringLiteral("Gamma"));
        const QString path = Folder(QStringLiteral("shown")) + QStringLiteral("/shown.txt");
        QList<SeenBox> seen;
        AnswerFileDialog(path);
        AnswerMessageBoxes({QMessageBox::Yes}, &seen);
        Trigger(form.get(), "WYSIWYG");
        QCOMPARE(ReadFileBytes(path), Lines({kSamples[2], kSamples[0], kSamples[1]}));
        // Saving leaves the library in slot order.
        QCOMPARE(form->State().Library.Records[1].Name, std::string("Alpha"));
    }

    void failedSaveKeepsTheOldFileWhole() {
        auto form = MakeForm1();
        const QString folder = Folder(QStringLiteral("kept"));
        const QString path = folder + QStringLiteral("/kept.txt");
        QFile::copy(WriteDnaFile(QStringLiteral("kept-in.txt"), kSamples), path);
        Load(form.get(), path);
        ClickWidget(Find<QPushButton>(form.get(), QStringLiteral("Command4")));
        const QByteArray before = ReadFileBytes(path);

        // A folder that does not exist: the user is told the path; nothing is made.
        const QString missing = folder + QStringLiteral("/none/lost.txt");
        QList<SeenBox> seen;
        AnswerFileDialog(missing);
        AnswerMessageBoxes({QMessageBox::Yes, QMessageBox::Ok}, &seen);
        Trigger(form.get(), "Save As");
        QCOMPARE(seen.size(), 2);
        QCOMPARE(seen[1].title, QStringLiteral("Save DNA"));
        QVERIFY(seen[1].text.contains(missing));
        QVERIFY(!QFile::exists(missing));
        QCOMPARE(form->windowTitle(), Caption(path));

        // A write that fails half-way (the file size limit stands in for a full disk).
        rlimit old{};
        getrlimit(RLIMIT_FSIZE, &old);
        rlimit small = old;
        small.rlim_cur = 40;
        std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &small);
        AnswerFileDialog(path);
        AnswerMessageBoxes({QMessageBox::Yes, QMessageBox::Ok}, &seen);
        Trigger(form.get(), "Save As");
        setrlimit(RLIMIT_FSIZE, &old);
        QCOMPARE(seen.size(), 4);
        QCOMPARE(seen[3].title, QStringLiteral("Save DNA"));
        QVERIFY(seen[3].text.contains(path));
        QCOMPARE(ReadFileBytes(path), before);
        QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList{QStringLiteral("kept.txt")});
        QCOMPARE(form->State().Library.Count, 4);
        QCOMPARE(RowCount(Find<QTreeWidget>(form.get(), QStringLiteral("ListView1"))), 4);
    }
};

QTEST_MAIN(TestSave)
#include "tst_save.moc"
