// The settings file as the main window uses it at start and at exit, and the Options window;
// the text of the file itself is pinned by the unit tests. The display scale goes to the
// user's preferences, not the file: it grows places and fonts together, 100 % leaves them as
// they were, and the window's place in the file stays in twips whatever the scale.
#include "TestSupport.h"

#include "DisplayScale.h"
#include "Form1.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QScopeGuard>
#include <QScrollBar>

using namespace testsupport;
using namespace Qt::StringLiterals;

using Bytes = QList<QByteArray>;

namespace {

// The labels of a window whose text does not fit their box.
QStringList CutLabels(QWidget *window) {
    QStringList cut;
    for (QLabel *label : window->findChildren<QLabel *>()) {
        if (!label->isVisibleTo(window) || label->wordWrap() || label->text() == "^"_L1)
            continue;
        for (const QString &line : label->text().split(u'\n'))
            if (label->fontMetrics().horizontalAdvance(line) > label->contentsRect().width())
                cut << label->text();
    }
    return cut;
}

} // namespace

class TestSettings : public WindowTest {
    Q_OBJECT

    double platformPoints_ = 0;

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
    static QCheckBox *Box(QWidget *form3, int i) { return Find<QCheckBox>(form3, u"Check1_%1"_s.arg(i)); }
    static QScrollBar *Scroll(QWidget *form3) { return Find<QScrollBar>(form3, u"HScroll1"_s); }
    static QWidget *OpenOptions(QWidget *form1) {
        ToolbarAction(form1, u"Options"_s)->trigger();
        return TopLevel(u"Form3"_s);
    }
    // Ticks boxes 0, 1, 6 and 7, moves the points up a page and a step, picks 175 % and presses a button.
    static void ChangeAndPress(QWidget *form3, const QString &button) {
        for (int i : {0, 1, 6, 7})
            ClickWidget(Box(form3, i));
        auto *scale = Find<QComboBox>(form3, u"DisplayScaleBox"_s);
        // With nothing stored the box follows the screen (96 dots per inch here).
        QCOMPARE(scale->currentText(), u"100 %"_s);
        scale->setCurrentIndex(scale->findText(u"175 %"_s));
        Scroll(form3)->triggerAction(QAbstractSlider::SliderPageStepAdd);
        Scroll(form3)->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        QCOMPARE(TextOf(form3, u"Label3"_s), u"5"_s);
        ClickWidget(Find<QWidget>(form3, button));
        QTRY_VERIFY(!TopLevel(u"Form3"_s));
    }

private slots:
    void initTestCase() { platformPoints_ = QApplication::font().pointSizeF(); }

    void screenDpiPicksAStepOf25Percent() {
        for (const auto &[dpi, percent] :
             {std::pair{72.0, 100}, {96.0, 100}, {110.0, 125}, {144.0, 150}, {192.0, 200}, {300.0, 200}})
            QCOMPARE(ScaleForDpi(dpi), percent);
    }

    void placesAndFontsGrowTogether_data() {
        QTest::addColumn<int>("percent");
        QTest::addColumn<QRect>("window");
        QTest::addColumn<QRect>("list");
        QTest::newRow("100 %") << 100 << QRect(67, 67, 800, 533) << QRect(8, 256, 129, 15);
        QTest::newRow("150 %") << 150 << QRect(100, 100, 1200, 800) << QRect(12, 384, 194, 23);
    }

    void placesAndFontsGrowTogether() {
        QFETCH(int, percent);
        QFETCH(QRect, window);
        QFETCH(QRect, list);
        const auto reset = qScopeGuard([] { ApplyDisplayScale(100); });
        ApplyDisplayScale(percent);
        const QByteArray settings("Size\r\n 1000 \r\n 1000 \r\n 12000 \r\n 8000 \r\nExp\r\n 1 \r\n");
        WriteSettingsFile(settings);
        auto form = MakeForm1();
        QCOMPARE(form->geometry(), window);
        QCOMPARE(Find<QWidget>(form.get(), u"List1_4"_s)->geometry(), list);
        QCOMPARE(Find<QWidget>(form.get(), u"Label2_0"_s)->font().pointSizeF(), platformPoints_ * percent / 100);

        // A full template of four-figure values gives every statistic and value its longest text.
        LoadSamples(form.get(), {u"1000,1000,1000,1000,1000,1000,1000,1000,1000,1000,Big,60,1,0,6"_s});
        for (int category = 0; category < 5; ++category)
            SendToCategory(form.get(), 1, category);
        QCOMPARE(TextOf(form.get(), u"Label14_0"_s).size(), 11);
        QCOMPARE(CutLabels(form.get()), QStringList());
        ToolbarAction(form.get(), u"Add DNA"_s)->trigger();
        QWidget *form2 = TopLevel(u"Form2"_s);
        ClickWidget(Find<QWidget>(form2, u"Label1"_s));
        QCOMPARE(form2->width(), 382 * percent / 100);
        QCOMPARE(CutLabels(form2), QStringList());

        form->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), settings);
    }

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
        QCOMPARE(Scroll(OpenOptions(form.get()))->value(), 8);
        form->close();
        const QByteArray written = ReadFileBytes(SettingsPath());
        QCOMPARE(written.left(written.indexOf("Col")).count("\r\n"), 2);
        QCOMPARE(written.mid(written.indexOf("Col")), shipped.mid(shipped.indexOf("Col")));
    }

    // The start takes LFocus and the last file; a maximised window keeps its normal place and
    // size in twips, and the widths (no whole pixels) come back as read, a resized one as shown.
    void theStartAndTheExitKeepLFocusTheFilePlaceAndWidths() {
        const QString path = WriteDnaFile(u"pets, old.txt"_s, {u"11,12,13,14,15,16,17,18,19,20,Beta,3,0,1,4"_s});
        Bytes lines{"LFocus", "Load", path.toLocal8Bit(), "Col"};
        for (int c = 0; c < 16; ++c)
            lines += ' ' + QByteArray::number(400 + c * 97) + ' ';
        lines += {"Size", " 1000 ", " 1000 ", " 12000 ", " 8000 ", "Exp", " 1 "};
        WriteSettingsFile(Lines(lines));
        auto form = MakeForm1();
        QCOMPARE(Cell(List(form.get()), 1, 1), u"Beta"_s);
        QVERIFY(Find<QAbstractButton>(form.get(), u"Check1"_s)->isChecked());
        QVERIFY(!Find<QWidget>(form.get(), u"Command3"_s)->isEnabled());
        form->resize(700, 533);
        List(form.get())->header()->resizeSection(3, 50);
        form->showMaximized();
        QTRY_VERIFY(form->isMaximized() && form->geometry().width() != 700);
        form->close();
        lines[7] = " 750 ";
        lines[23] = " 10500 ";
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines(lines));
    }

    void optionsShowTheCaptionsAndTheRangeAndOnlySaveKeepsTheChangesForTheFile() {
        auto form = MakeForm1();
        QWidget *form3 = OpenOptions(form.get());
        QStringList captions;
        for (int i = 0; i < 9; ++i)
            captions << Box(form3, i)->text();
        QCOMPARE(captions.join(u'|'),
                 u"Minimize when I open the Exp./Add DNA window|Use Always on top as default|"
                 "LostFocus edit function on by default|Load last used DNA file when I start the "
                 "Quorvel|Remember column width|Remember window size and position|Old|New 1|New 2"_s);
        QCOMPARE(Scroll(form3)->minimum(), 1);
        QCOMPARE(Scroll(form3)->maximum(), 12);
        // The opening alone brings the points without a file from 0 to 1.
        QCOMPARE(form->Model().Settings().ExpPoints, 1);
        ChangeAndPress(form3, u"Command1"_s);
        QVERIFY(form->Model().Settings().Options == quorvel::Settings().Options &&
                form->Model().Settings().ExpPoints == 1);
        ChangeAndPress(OpenOptions(form.get()), u"Command4"_s);
        QCOMPARE(PreferredDisplayScale(), 175);
        form->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), QByteArray("Min\r\nOnTop\r\nOld\r\nNew1\r\nExp\r\n 5 \r\n"));
    }
};

QTEST_MAIN(TestSettings)
#include "tst_settings.moc"
