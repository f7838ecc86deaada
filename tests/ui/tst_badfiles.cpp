#include "TestSupport.h"

#include "Form1.h"

#include <QFile>

using namespace testsupport;
using namespace Qt::StringLiterals;

class TestBadFiles : public WindowTest {
    Q_OBJECT

private slots:
    void badInputKeepsWhatWasRead_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("kept");
        QTest::addColumn<int>("added");
        QTest::addColumn<bool>("complete");
        // Appended after two samples loaded before; the vanished file and the folder are
        // named by the settings file's Load entry and read at start-up, before anything else.
        for (const BadDnaFile &bad : WriteBadDnaFiles()) {
            const int kept = bad.atStart ? 0 : 2;
            QTest::newRow(bad.tag) << bad.path << kept << std::min(bad.samples, 500 - kept) << bad.complete;
        }
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
        AnswerFileDialog(WriteDnaFile(u"later.txt"_s, {GoodDnaLine()}));
        ToolbarAction(form.get(), u"Append DNA"_s)->trigger();
        QCOMPARE(Cell(list, kept + added + 1, 0), QString::number(kept + added + 1));
    }
};

QTEST_MAIN(TestBadFiles)
#include "tst_badfiles.moc"
