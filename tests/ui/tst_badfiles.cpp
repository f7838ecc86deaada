#include "TestSupport.h"

#include "Form1.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTreeWidget>

using namespace testsupport;

namespace {

const QByteArray kFirst = "950,120,300,200,100,110,120,130,140,150,Kept One,20,1,1,5";
const QByteArray kSecond = "9,500,500,500,500,500,500,500,500,500,Kept Two,12,10,0,2";
const QByteArray kGood = "100,87,12,301,95,102,340,298,415,1000,Fresh,30,4,1,6";

QString WriteBytes(const QString &name, const QByteArray &bytes) {
    const QString path = TempFolder() + QLatin1Char('/') + name;
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
    return path;
}

// Bytes of every value, line ends among them, the same on every run.
QByteArray Noise(int size) {
    QByteArray bytes;
    unsigned seed = 7;
    for (int i = 0; i < size; ++i) {
        seed = seed * 1103515245u + 12345u;
        bytes.append(static_cast<char>(seed >> 24));
    }
    return bytes;
}

QTreeWidget *List(Form1 *form) {
    return Find<QTreeWidget>(form, QStringLiteral("ListView1"));
}

} // namespace

class TestBadFiles : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QLocale::setDefault(QLocale::c());
        RemoveSettingsFile();
    }
    void cleanup() {
        RemoveSettingsFile();
        CloseAllWindows();
    }

    void appendKeepsWhatWasRead_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("added");
        QTest::addColumn<bool>("complete");
        QTest::addColumn<int>("lastNameLength");

        QTest::newRow("binary noise") << Noise(64 * 1024) << 0 << false << 0;
        QTest::newRow("noise after a sample") << kGood + "\r\n" + Noise(4096) << 1 << false << 5;
        QTest::newRow("100 000 characters, no commas")
            << kGood + "\r\n" + QByteArray(100000, 'x') + "\r\n" + kGood << 1 << false << 5;
        QTest::newRow("100 000 characters of name") << "1,2,3,4,5,6,7,8,9,10," + QByteArray(99979, 'N') + "\r\n"
                                                    << 1 << true << 99979;
        QByteArray many;
        for (int i = 0; i < 10000; ++i)
            many += kGood + "\r\n";
        QTest::newRow("10 000 lines fill the library") << many << 498 << false << 5;
        QTest::newRow("lone CR ends a line") << kGood + "\r" + kGood << 2 << true << 5;
        QTest::newRow("no final line end") << kGood + "\r\n" + kGood << 2 << true << 5;
        QTest::newRow("empty file") << QByteArray() << 0 << true << 0;
    }

    // A valid file first, then the bad one appended: the first samples and rows stay whole.
    void appendKeepsWhatWasRead() {
        QFETCH(QByteArray, bytes);
        QFETCH(int, added);
        QFETCH(bool, complete);
        QFETCH(int, lastNameLength);

        auto form = MakeForm1();
        AnswerFileDialog(WriteBytes(QStringLiteral("good.txt"), kFirst + "\r\n" + kSecond + "\r\n"));
        ToolbarAction(form.get(), QStringLiteral("Load"))->trigger();
        QCOMPARE(form->State().Library.Count, 2);

        const QString bad = WriteBytes(QStringLiteral("bad.txt"), bytes);
        AnswerFileDialog(bad);
        ToolbarAction(form.get(), QStringLiteral("Append DNA"))->trigger();

        const auto &library = form->State().Library;
        QTreeWidget *list = List(form.get());
        QCOMPARE(library.Count, 2 + added);
        QCOMPARE(RowCount(list), 2 + added);
        QCOMPARE(library.Records[1].Name, std::string("Kept One"));
        QCOMPARE(library.Records[2].Attributes[9], 500);
        QCOMPARE(Cell(list, 1, 1), QStringLiteral("Kept One"));
        QCOMPARE(Cell(list, 2, 13), QStringLiteral("Tatooine"));
        QCOMPARE(form->windowTitle().endsWith(QStringLiteral("[%1]").arg(bad)), complete);
        if (added > 0) {
            QCOMPARE(static_cast<int>(library.Records[2 + added].Name.size()), lastNameLength);
            QCOMPARE(Cell(list, 2 + added, 0), QString::number(2 + added));
        }
    }

    void startUpReloadOfAMissingFileOrAFolder_data() {
        QTest::addColumn<QString>("path");
        const QString gone = WriteBytes(QStringLiteral("gone.txt"), kGood + "\r\n");
        QFile::remove(gone);
        QTest::newRow("vanished file") << gone;
        QTest::newRow("folder") << TempFolder();
        QTest::newRow("folder with a slash") << TempFolder() + QLatin1Char('/');
    }

    // The settings file names the path to reload; the window still starts, empty, and loads later.
    void startUpReloadOfAMissingFileOrAFolder() {
        QFETCH(QString, path);
        WriteSettingsFile("Load\r\n" + QFile::encodeName(path) + "\r\n");
        auto form = MakeForm1();
        QCOMPARE(form->State().Library.Count, 0);
        QCOMPARE(RowCount(List(form.get())), 0);
        QCOMPARE(form->windowTitle(), QStringLiteral("Quorvel v0.55"));

        AnswerFileDialog(WriteBytes(QStringLiteral("later.txt"), kFirst + "\r\n"));
        ToolbarAction(form.get(), QStringLiteral("Append DNA"))->trigger();
        QCOMPARE(RowCount(List(form.get())), 1);
        QCOMPARE(Cell(List(form.get()), 1, 1), QStringLiteral("Kept One"));
    }
};

QTEST_MAIN(TestBadFiles)
#include "tst_badfiles.moc"
