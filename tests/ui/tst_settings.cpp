// The settings file at start and at exit: what it switches on, where it puts the window and
// the columns, and that a run that changes nothing writes the file back as it was read.
#include "TestSupport.h"

#include "Form1.h"

#include <QAbstractButton>
#include <QHeaderView>

using namespace testsupport;

using Bytes = QList<QByteArray>;

class TestSettings : public WindowTest {
    Q_OBJECT

    static QByteArray Lines(const Bytes &lines) { return lines.join("\r\n") + "\r\n"; }
    static QHeaderView *Header(Form1 *form) { return Find<QTreeWidget>(form, QStringLiteral("ListView1"))->header(); }

    // Starts the program on this settings file, closes it and returns the file written at exit.
    static QByteArray StartAndClose(const QByteArray &settings) {
        WriteSettingsFile(settings);
        MakeForm1()->close();
        return ReadFileBytes(SettingsPath());
    }

private slots:
    void withoutFileEverythingIsOffAndOnlyThePointsAreWritten() {
        MakeForm1()->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines({"Exp", " 1 "}));
    }

    void writesBackOnlyWhatWasRead_data() {
        QTest::addColumn<Bytes>("read");
        QTest::addColumn<Bytes>("written");
        QTest::newRow("New2 and points") << Bytes{"New2", "Exp", " 4 "} << Bytes{"New2", "Exp", " 4 "};
        QTest::newRow("LFocus and New1") << Bytes{"New1", "LFocus"} << Bytes{"LFocus", "New1", "Exp", " 1 "};
        QTest::newRow("points above 12") << Bytes{"Exp", " 13 "} << Bytes{"Exp", " 12 "};
        QTest::newRow("Load as last line") << Bytes{"Old", "Load"} << Bytes{"Load", "", "Old", "Exp", " 1 "};
        QTest::newRow("Load with empty path") << Bytes{"Load", "", "Exp", " 5 "} << Bytes{"Load", "", "Exp", " 5 "};
    }
    void writesBackOnlyWhatWasRead() {
        QFETCH(Bytes, read);
        QFETCH(Bytes, written);
        QCOMPARE(StartAndClose(Lines(read)), Lines(written));
    }

    void lfocusChecksTheEditorSwitchAndDisablesItsButton() {
        WriteSettingsFile(Lines({"LFocus"}));
        auto form = MakeForm1();
        QVERIFY(Find<QAbstractButton>(form.get(), QStringLiteral("Check1"))->isChecked());
        QVERIFY(!Find<QWidget>(form.get(), QStringLiteral("Command3"))->isEnabled());
    }

    void loadAppendsTheLastFileAtStart() {
        // A path with a comma survives, and the samples are appended without a dialog.
        const QString path = WriteDnaFile(QStringLiteral("pets, old.txt"),
                                          {QStringLiteral("11,12,13,14,15,16,17,18,19,20,Beta,3,0,1,4")});
        const QByteArray settings = Lines({"Load", path.toLocal8Bit(), "Exp", " 5 "});
        WriteSettingsFile(settings);
        auto form = MakeForm1();
        QCOMPARE(Cell(Find<QTreeWidget>(form.get(), QStringLiteral("ListView1")), 1, 1).trimmed(),
                 QStringLiteral("Beta"));
        form->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), settings);
    }

    void everyOptionOnIsThirtyTwoLines() {
        Bytes lines{"Min", "OnTop", "LFocus", "Load", "/nowhere/dna.txt", "Col"};
        lines += {" 0 ",   " 1000 ", " 540 ", " 601 ", " 700 ",  " 615 ",  " 600 ",  " 800 ",
                  " 599 ", " 600 ",  " 700 ", " 700 ", " 1200 ", " 1000 ", " 1000 ", " 2455 "};
        lines += {"Size", " 1005 ", " 780 ", " 12000 ", " 8610 ", "Old", "New1", "New2", "Exp", " 8 "};
        QCOMPARE(lines.size(), 32);
        WriteSettingsFile(Lines(lines));
        auto form = MakeForm1();
        QCOMPARE(form->geometry(), QRect(67, 52, 800, 574));
        QCOMPARE(Header(form.get())->sectionSize(2), 36);
        QCOMPARE(Header(form.get())->sectionSize(15), 164);
        form->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines(lines));
    }

    void roundTripAcrossTwoStarts() {
        Bytes lines{"Size", "1000.5", "999", "11993", "8000", "Junk", "Col"};
        for (int c = 0; c < 16; ++c)
            lines += QByteArray::number(c * 97 + 0.25);
        lines[9] = "540.5";
        lines += {"Exp", "3.5", "OnTop"};
        // Widths are written rounded down, the points to even.
        const QByteArray first = StartAndClose(Lines(lines));
        QVERIFY(first.startsWith(Lines({"OnTop", "Col", " 0 ", " 97 ", " 540 "})));
        QVERIFY(first.endsWith(Lines({"Size", " 1000.5 ", " 999 ", " 11993 ", " 8000 ", "Exp", " 4 "})));
        QCOMPARE(StartAndClose(first), first);
    }

    void changedPlacesAndWidthsAreWrittenAsShown() {
        Bytes lines{"Col",    " 0 ",   " 1400 ", " 600 ",  " 600 ",   " 600 ",  " 700 ",  " 600 ",
                    " 600 ",  " 800 ", " 600 ",  " 600 ",  " 700 ",   " 700 ",  " 1200 ", " 1000 ",
                    " 1000 ", "Size",  " 1000 ", " 1000 ", " 12000 ", " 8000 ", "Exp",    " 1 "};
        WriteSettingsFile(Lines(lines));
        auto form = MakeForm1();
        QCOMPARE(form->geometry(), QRect(67, 67, 800, 533));
        form->resize(700, 533);
        Header(form.get())->resizeSection(3, 50);
        // A maximized window keeps its normal place and size for the file.
        form->showMaximized();
        QTRY_VERIFY(form->isMaximized() && form->geometry().width() != 700);
        form->close();
        lines[4] = " 750 ";
        lines[20] = " 10500 ";
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines(lines));
    }
};

QTEST_MAIN(TestSettings)
#include "tst_settings.moc"
