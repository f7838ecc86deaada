// The settings file at start and at exit: what it switches on, where it puts the window and
// the columns, and that a run that changes nothing writes the file back as it was read.
#include "TestSupport.h"

#include "DnaListPanel.h"
#include "DnaListView.h"
#include "Form1.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLocale>
#include <QPushButton>

using namespace testsupport;

namespace {

QByteArray Lines(const QList<QByteArray> &lines) {
    QByteArray text;
    for (const QByteArray &line : lines)
        text += line + "\r\n";
    return text;
}

// Starts the program on this settings file, closes it and returns the file written at exit.
QByteArray StartAndClose(const QByteArray &settings) {
    WriteSettingsFile(settings);
    auto form = MakeForm1();
    form->close();
    return ReadFileBytes(SettingsPath());
}

const QList<QByteArray> kStartWidths{" 0 ",   " 1400 ", " 600 ", " 600 ", " 600 ", " 700 ",  " 600 ",  " 600 ",
                                     " 800 ", " 600 ",  " 600 ", " 700 ", " 700 ", " 1200 ", " 1000 ", " 1000 "};

} // namespace

class TestSettings : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void cleanup() {
        CloseAllWindows();
        RemoveSettingsFile();
    }

    void withoutFileEverythingIsOff() {
        RemoveSettingsFile();
        auto form = MakeForm1();
        const AppState &state = form->State();
        for (bool option : state.Settings.Options)
            QVERIFY(!option);
        QCOMPARE(state.Settings.ExpPoints, 0);
        auto *list = Find<QTreeWidget>(form.get(), QStringLiteral("ListView1"));
        QCOMPARE(list->header()->sectionSize(0), 0);
        QCOMPARE(list->header()->sectionSize(1), 1400 / 15);
        QVERIFY(!Find<QCheckBox>(form.get(), QStringLiteral("Check1"))->isChecked());
        form->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines({"Exp", " 1 "}));
    }

    void readingRules() {
        // Only the keys that are present switch on.
        QCOMPARE(StartAndClose(Lines({"New2", "Exp", " 4 "})), Lines({"New2", "Exp", " 4 "}));
        QCOMPARE(StartAndClose(Lines({"New1"})), Lines({"New1", "Exp", " 1 "}));
        // Points from a hand-edited file are brought into 0..12 at once, 1..12 when written.
        WriteSettingsFile(Lines({"Exp", " 13 "}));
        auto high = MakeForm1();
        QCOMPARE(high->State().Settings.ExpPoints, 12);
        high->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines({"Exp", " 12 "}));
        WriteSettingsFile(Lines({"Exp", "-7"}));
        auto low = MakeForm1();
        QCOMPARE(low->State().Settings.ExpPoints, 0);
        low->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines({"Exp", " 1 "}));
    }

    void fileCutShortKeepsWhatCameBefore() {
        WriteSettingsFile("Min\r\nCol\r\n 705 \r\n 800");
        auto form = MakeForm1();
        QVERIFY(form->State().Settings[quorvel::Min]);
        QVERIFY(form->State().Settings[quorvel::Col]);
        QCOMPARE(form->State().Settings.ExpPoints, 0);
        QHeaderView *header = Find<QTreeWidget>(form.get(), QStringLiteral("ListView1"))->header();
        QCOMPARE(header->sectionSize(0), 47);
        QCOMPARE(header->sectionSize(1), 53);
        QCOMPARE(header->sectionSize(2), 40);
        form->close();
        QList<QByteArray> expected{"Min", "Col", " 705 ", " 800 "};
        expected += kStartWidths.mid(2, 14);
        expected += {"Exp", " 1 "};
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines(expected));

        // "Load" as the last line: the option is on with no file to load.
        QCOMPARE(StartAndClose(Lines({"Old", "Load"})), Lines({"Load", "", "Old", "Exp", " 1 "}));
    }

    void lfocusChecksTheEditorSwitch() {
        WriteSettingsFile(Lines({"LFocus"}));
        auto on = MakeForm1();
        QVERIFY(Find<QCheckBox>(on.get(), QStringLiteral("Check1"))->isChecked());
        QVERIFY(!Find<QPushButton>(on.get(), QStringLiteral("Command3"))->isEnabled());
        on->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines({"LFocus", "Exp", " 1 "}));

        WriteSettingsFile(Lines({"Exp", " 2 "}));
        auto off = MakeForm1();
        QVERIFY(!Find<QCheckBox>(off.get(), QStringLiteral("Check1"))->isChecked());
        QVERIFY(Find<QPushButton>(off.get(), QStringLiteral("Command3"))->isEnabled());
    }

    void loadAppendsTheLastFileAtStart() {
        // A path with a comma survives, and the samples are appended without a dialog.
        const QString path = WriteDnaFile(QStringLiteral("pets, old.txt"),
                                          {QStringLiteral("1,2,3,4,5,6,7,8,9,10,Alpha,5,1,0,2"),
                                           QStringLiteral("11,12,13,14,15,16,17,18,19,20,Beta,3,0,1,4")});
        const QByteArray settings = Lines({"Load", QFile::encodeName(path), "Exp", " 5 "});
        WriteSettingsFile(settings);
        auto form = MakeForm1();
        auto *list = Find<QTreeWidget>(form.get(), QStringLiteral("ListView1"));
        QCOMPARE(RowCount(list), 2);
        QCOMPARE(Cell(list, 2, 1).trimmed(), QStringLiteral("Beta"));
        QVERIFY(form->windowTitle().endsWith(QStringLiteral("[%1]").arg(path)));
        form->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), settings);

        // An empty path loads nothing and is written back as an empty line.
        const QByteArray empty = Lines({"Load", "", "Exp", " 5 "});
        WriteSettingsFile(empty);
        auto none = MakeForm1();
        QCOMPARE(RowCount(Find<QTreeWidget>(none.get(), QStringLiteral("ListView1"))), 0);
        none->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), empty);
    }

    void everyOptionOnIsThirtyTwoLines() {
        QList<QByteArray> lines{"Min", "OnTop", "LFocus", "Load", "/nowhere/dna.txt", "Col"};
        lines += {" 0 ",   " 1000 ", " 540 ", " 601 ", " 700 ",  " 615 ",  " 600 ",  " 800 ",
                  " 599 ", " 600 ",  " 700 ", " 700 ", " 1200 ", " 1000 ", " 1000 ", " 2455 "};
        lines += {"Size", " 1005 ", " 780 ", " 12000 ", " 8610 ", "Old", "New1", "New2", "Exp", " 8 "};
        QCOMPARE(lines.size(), 32);
        WriteSettingsFile(Lines(lines));
        auto form = MakeForm1();
        QCOMPARE(form->geometry(), QRect(67, 52, 800, 574));
        QHeaderView *header = Find<QTreeWidget>(form.get(), QStringLiteral("ListView1"))->header();
        QCOMPARE(header->sectionSize(2), 36);
        QCOMPARE(header->sectionSize(15), 164);
        form->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines(lines));
    }

    void widthsAreWrittenRoundedDown() {
        QList<QByteArray> lines{"Col"};
        lines += kStartWidths;
        lines[3] = " 540.5 ";
        lines += {"Exp", " 1 "};
        const QByteArray written = StartAndClose(Lines(lines));
        lines[3] = " 540 ";
        QCOMPARE(written, Lines(lines));
    }

    void roundTripAcrossTwoStarts() {
        QList<QByteArray> lines{"Size", "1000.5", "999", "11993", "8000", "Junk", "Col"};
        for (int c = 0; c < 16; ++c)
            lines += QByteArray::number(c * 97 + 0.25);
        lines += {"Exp", "3.5", "OnTop"};
        const QByteArray first = StartAndClose(Lines(lines));
        QVERIFY(first.startsWith(Lines({"OnTop", "Col", " 0 ", " 97 "})));
        QVERIFY(first.endsWith(Lines({"Size", " 1000.5 ", " 999 ", " 11993 ", " 8000 ", "Exp", " 4 "})));
        QCOMPARE(StartAndClose(first), first);
    }

    void changedPlacesAndWidthsAreWrittenAsShown() {
        QList<QByteArray> lines{"Col"};
        lines += kStartWidths;
        lines += {"Size", " 1000 ", " 1000 ", " 12000 ", " 8000 ", "Exp", " 1 "};
        WriteSettingsFile(Lines(lines));
        auto form = MakeForm1();
        QCOMPARE(form->geometry(), QRect(67, 67, 800, 533));
        form->resize(700, 533);
        Find<QTreeWidget>(form.get(), QStringLiteral("ListView1"))->header()->resizeSection(3, 50);
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
