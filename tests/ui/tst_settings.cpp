// The settings file at start and at exit, as the main window uses it: what it switches on,
// the last DNA file, and the window's place and column widths. The text of the file itself
// is pinned by the unit tests.
#include "TestSupport.h"

#include "Form1.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QScrollBar>

using namespace testsupport;

using Bytes = QList<QByteArray>;

class TestSettings : public WindowTest {
    Q_OBJECT

    static QByteArray Lines(const Bytes &lines) { return lines.join("\r\n") + "\r\n"; }

    // Starts the program on this settings file, closes it and returns the file written at exit.
    static QByteArray StartAndClose(const QByteArray &settings) {
        WriteSettingsFile(settings);
        MakeForm1()->close();
        return ReadFileBytes(SettingsPath());
    }

private slots:
    void withoutAFileOnlyThePointsAreWritten() {
        MakeForm1()->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines({"Exp", " 1 "}));
    }

    // The file a new install starts from: the three equations show a level, a session has
    // points, the widths are the list's own, and an unchanged run writes the file back as it was.
    void theShippedDefaultIsReadAndWrittenBackUnchanged() {
        auto bare = MakeForm1();
        QHeaderView *bareHeader = Find<QTreeWidget>(bare.get(), QStringLiteral("ListView1"))->header();
        QList<int> bareWidths;
        for (int c = 0; c < 16; ++c)
            bareWidths << bareHeader->sectionSize(c);
        bare->close();

        const QByteArray shipped = ReadFileBytes(QStringLiteral(QUORVEL_DEFAULT_SETTINGS));
        QVERIFY(shipped.endsWith("\r\n"));
        WriteSettingsFile(shipped);
        auto form = MakeForm1();
        QHeaderView *header = Find<QTreeWidget>(form.get(), QStringLiteral("ListView1"))->header();
        for (int c = 0; c < 16; ++c)
            QCOMPARE(header->sectionSize(c), bareWidths[c]);
        LoadSamples(form.get(), {QStringLiteral("300,300,300,300,300,300,300,300,300,300,Even,10,1,0,2")});
        ClickRow(Find<QAbstractItemView>(form.get(), QStringLiteral("ListView1")), 1);
        QVERIFY(DropOn(Find<QWidget>(form.get(), QStringLiteral("Label3"))));
        QCOMPARE(TextOf(form.get(), QStringLiteral("Label23_10")).count(QStringLiteral(" / ")), 2);

        ToolbarAction(form.get(), QStringLiteral("Options"))->trigger();
        QWidget *options = TopLevel(QStringLiteral("Form3"));
        QVERIFY(options);
        QCOMPARE(Find<QScrollBar>(options, QStringLiteral("HScroll1"))->value(), 8);
        options->close();
        // Loading a file keeps its path for the next start.
        form->close();
        const QByteArray written = ReadFileBytes(SettingsPath());
        QCOMPARE(written.left(written.indexOf("Col")).count("\r\n"), 2);
        QCOMPARE(written.mid(written.indexOf("Col")), shipped.mid(shipped.indexOf("Col")));
    }

    void lfocusChecksTheEditorSwitchAndDisablesItsButton() {
        WriteSettingsFile(Lines({"LFocus"}));
        auto form = MakeForm1();
        QVERIFY(Find<QAbstractButton>(form.get(), QStringLiteral("Check1"))->isChecked());
        QVERIFY(!Find<QWidget>(form.get(), QStringLiteral("Command3"))->isEnabled());
    }

    void loadAppendsTheLastFileAtStart() {
        const QString path = WriteDnaFile(QStringLiteral("pets, old.txt"),
                                          {QStringLiteral("11,12,13,14,15,16,17,18,19,20,Beta,3,0,1,4")});
        WriteSettingsFile(Lines({"Load", path.toLocal8Bit(), "Exp", " 5 "}));
        auto form = MakeForm1();
        QCOMPARE(Cell(Find<QTreeWidget>(form.get(), QStringLiteral("ListView1")), 1, 1).trimmed(),
                 QStringLiteral("Beta"));
    }

    void placesAndWidthsAreStableFromTheSecondStart() {
        Bytes lines{"Size", "1000.5", "999", "11993", "8000", "Col"};
        for (int c = 0; c < 16; ++c)
            lines += QByteArray::number(c * 97 + 0.25);
        const QByteArray first = StartAndClose(Lines(lines));
        QVERIFY2(first.startsWith("Col\r\n 0 \r\n 97 \r\n") && first.contains("Size\r\n 1000.5 \r\n"), first);
        QCOMPARE(StartAndClose(first), first);
    }

    void aMaximisedWindowKeepsItsNormalPlaceAndSizeAndAResizedColumnIsWrittenAsShown() {
        Bytes lines = Bytes{"Col"} + Bytes(16, " 600 ");
        lines += {"Size", " 1000 ", " 1000 ", " 12000 ", " 8000 ", "Exp", " 1 "};
        WriteSettingsFile(Lines(lines));
        auto form = MakeForm1();
        QCOMPARE(form->geometry(), QRect(67, 67, 800, 533));
        form->resize(700, 533);
        Find<QTreeWidget>(form.get(), QStringLiteral("ListView1"))->header()->resizeSection(3, 50);
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
