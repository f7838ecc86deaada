// The settings file as the main window uses it at start and at exit; the text of the file
// itself is pinned by the unit tests.
#include "TestSupport.h"

#include "Form1.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QHeaderView>
#include <QScrollBar>

using namespace testsupport;
using namespace Qt::StringLiterals;

using Bytes = QList<QByteArray>;

class TestSettings : public WindowTest {
    Q_OBJECT

    static QByteArray Lines(const Bytes &lines) { return lines.join("\r\n") + "\r\n"; }
    static QTreeWidget *List(Form1 *form) { return Find<QTreeWidget>(form, u"ListView1"_s); }
    static QList<int> Widths(Form1 *form) {
        QList<int> widths;
        for (int c = 0; c < 16; ++c)
            widths << List(form)->header()->sectionSize(c);
        return widths;
    }
    // Opens the skin list, moves to its first or last item by `key` and takes it with Enter.
    static void ChooseSkin(QComboBox *combo, Qt::Key key) {
        combo->showPopup();
        QTRY_VERIFY(combo->view()->isVisible());
        QTest::keyClick(combo->view(), key);
        QTest::keyClick(combo->view(), Qt::Key_Return);
    }
    // Starts the program on this settings file, closes it and returns the file written at exit.
    static QByteArray StartAndClose(const QByteArray &settings) {
        WriteSettingsFile(settings);
        MakeForm1()->close();
        return ReadFileBytes(SettingsPath());
    }

private slots:
    // A new install's file: three equations, 8 points, the list's own widths; a run that only
    // loads a file writes it back with the file's path added.
    void theShippedDefaultShowsThreeLevelsAndIsWrittenBackUnchanged() {
        const QList<int> bareWidths = Widths(MakeForm1().get());
        const QByteArray shipped = ReadFileBytes(QStringLiteral(QUORVEL_DEFAULT_SETTINGS));
        QVERIFY(shipped.endsWith("\r\n"));
        WriteSettingsFile(shipped);
        auto form = MakeForm1();
        QCOMPARE(Widths(form.get()), bareWidths);
        // The skin box stands on its first item, but no skin is chosen: leaving it changes nothing.
        auto *skins = Find<QComboBox>(form.get(), u"Combo3"_s);
        QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
        QCoreApplication::sendEvent(skins, &out);
        QCOMPARE(TextOf(form.get(), u"Label23_10"_s), u"0"_s);
        LoadSamples(form.get(), {u"300,300,300,300,300,300,300,300,300,300,Even,10,1,0,2"_s});
        ClickRow(List(form.get()), 1);
        QVERIFY(DropOn(Find<QWidget>(form.get(), u"Label3"_s)));
        const QString levels = TextOf(form.get(), u"Label23_10"_s);
        QCOMPARE(levels.count(u" / "_s), 2);
        // Kimogila raises the last equation's level to 40; Angler [2] shows that level again.
        const double last = levels.section(u" / "_s, -1).toDouble();
        QVERIFY(last > 2 && last < 40);
        ChooseSkin(skins, Qt::Key_End);
        QCOMPARE(skins->currentText(), u"Kimogila [40]"_s);
        QCOMPARE(TextOf(form.get(), u"Label23_10"_s), u"40"_s);
        ChooseSkin(skins, Qt::Key_Home);
        QCOMPARE(TextOf(form.get(), u"Label23_10"_s), levels.section(u" / "_s, -1));
        ToolbarAction(form.get(), u"Options"_s)->trigger();
        QCOMPARE(Find<QScrollBar>(TopLevel(u"Form3"_s), u"HScroll1"_s)->value(), 8);
        form->close();
        const QByteArray written = ReadFileBytes(SettingsPath());
        QCOMPARE(written.left(written.indexOf("Col")).count("\r\n"), 2);
        QCOMPARE(written.mid(written.indexOf("Col")), shipped.mid(shipped.indexOf("Col")));
    }

    void theStartLoadsTheLastFileAndTakesLFocus() {
        const QString path = WriteDnaFile(u"pets, old.txt"_s, {u"11,12,13,14,15,16,17,18,19,20,Beta,3,0,1,4"_s});
        WriteSettingsFile(Lines({"LFocus", "Load", path.toLocal8Bit()}));
        auto form = MakeForm1();
        QCOMPARE(Cell(List(form.get()), 1, 1), u"Beta"_s);
        QVERIFY(Find<QAbstractButton>(form.get(), u"Check1"_s)->isChecked());
        QVERIFY(!Find<QWidget>(form.get(), u"Command3"_s)->isEnabled());
    }

    void placesAndWidthsAreStableFromTheSecondStart() {
        Bytes lines{"Size", "1000.5", "999", "11993", "8000", "Col"};
        for (int c = 0; c < 16; ++c)
            lines += QByteArray::number(c * 97 + 0.25);
        const QByteArray first = StartAndClose(Lines(lines));
        QVERIFY2(first.startsWith("Col\r\n 0 \r\n 97 \r\n") && first.contains("Size\r\n 1000.5 \r\n"), first);
        QCOMPARE(StartAndClose(first), first);
    }

    // A maximised window keeps its normal place and size; a resized column is written as shown.
    void maximisedWindowAndResizedColumn() {
        Bytes lines = Bytes{"Col"} + Bytes(16, " 600 ");
        lines += {"Size", " 1000 ", " 1000 ", " 12000 ", " 8000 ", "Exp", " 1 "};
        WriteSettingsFile(Lines(lines));
        auto form = MakeForm1();
        QCOMPARE(form->geometry(), QRect(67, 67, 800, 533));
        form->resize(700, 533);
        List(form.get())->header()->resizeSection(3, 50);
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
