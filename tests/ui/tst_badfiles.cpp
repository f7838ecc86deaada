#include "TestSupport.h"

#include "Form1.h"

#include <QFile>

using namespace testsupport;
using namespace Qt::StringLiterals;

static const QString kGood = u"100,87,12,301,95,102,340,298,415,1000,Fresh,30,4,1,6"_s;

class TestBadFiles : public WindowTest {
    Q_OBJECT

private slots:
    void badInputKeepsWhatWasRead_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("kept");
        QTest::addColumn<int>("added");
        QTest::addColumn<bool>("complete");
        // Bytes of every value, line ends among them, the same on every run.
        QByteArray noise;
        for (unsigned i = 0, seed = 7; i < 64 * 1024; ++i)
            noise += static_cast<char>((seed = seed * 1103515245u + 12345u) >> 24);
        // Appended after two samples loaded before; each file ends with CR LF.
        QTest::newRow("binary noise") << WriteDnaFile(u"noise.txt"_s, {QString::fromLatin1(noise)}) << 2 << 0 << false;
        QTest::newRow("100 000-char line")
            << WriteDnaFile(u"long.txt"_s, {kGood, QString(100000, u'x')}) << 2 << 1 << false;
        QTest::newRow("10 000 lines") << WriteDnaFile(u"many.txt"_s, QStringList(10000, kGood)) << 2 << 498 << false;
        const QString bare = TempFolder() + u"/bare.txt"_s;
        if (QFile file(bare); file.open(QIODevice::WriteOnly))
            file.write(kGood.toLatin1());
        QTest::newRow("no final line end") << bare << 2 << 1 << true;
        QTest::newRow("lone CR") << WriteDnaFile(u"cr.txt"_s, {kGood + u'\r' + kGood}) << 2 << 2 << true;
        // Named by the settings file's Load entry and read at start-up, before anything else.
        QTest::newRow("vanished file") << TempFolder() + u"/gone.txt"_s << 0 << 0 << false;
        QTest::newRow("folder") << TempFolder() << 0 << 0 << false;
    }

    void badInputKeepsWhatWasRead() {
        QFETCH(QString, path);
        QFETCH(int, kept);
        QFETCH(int, added);
        QFETCH(bool, complete);
        if (kept == 0)
            WriteSettingsFile("Load\r\n" + QFile::encodeName(path) + "\r\n");
        auto form = MakeForm1();
        auto *list = Find<QTreeWidget>(form.get(), u"ListView1"_s);
        if (kept > 0) {
            LoadSamples(form.get(),
                        {u"1,2,3,4,5,6,7,8,9,10,Kept One,5,1,0,2"_s, u"1,2,3,4,5,6,7,8,9,10,Kept Two,5,1,0,2"_s});
            AnswerFileDialog(path);
            ToolbarAction(form.get(), u"Append DNA"_s)->trigger();
            QCOMPARE(Cell(list, 2, 1), u"Kept Two"_s);
        }
        QCOMPARE(RowCount(list), kept + added);
        QCOMPARE(form->windowTitle().endsWith(u"[%1]"_s.arg(path)), complete);
        // Reading goes on afterwards with the next row number, while there is room.
        if (kept + added == 500)
            return;
        AnswerFileDialog(WriteDnaFile(u"later.txt"_s, {kGood}));
        ToolbarAction(form.get(), u"Append DNA"_s)->trigger();
        QCOMPARE(Cell(list, kept + added + 1, 0), QString::number(kept + added + 1));
    }
};

QTEST_MAIN(TestBadFiles)
#include "tst_badfiles.moc"
