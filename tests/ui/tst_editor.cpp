// The sample editor of the main window and the Add DNA window: what they store and refuse,
// and the main window while Add DNA is open. Statistics and sorting are unit-tested.
#include "TestSupport.h"

#include "DnaFile.h"
#include "Form1.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

using namespace testsupport;
using namespace Qt::StringLiterals;

// Power (column 11) is 45, 10 and 900: sorting by it changes the order.
static const QStringList kSamples{u"100,200,300,400,500,600,700,800,900,45,Alpha,12,10,1,3"_s,
                                  u"1,2,3,4,5,6,7,8,9,10,Beta,2,1,0,2"_s, u"7,7,7,7,7,7,7,7,7,900,Gamma,1,0,0,7"_s};

static const QList<int> kAllColumns{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};

class TestEditor : public WindowTest {
    Q_OBJECT

    std::unique_ptr<Form1> form_;

    QTreeWidget *List() { return Find<QTreeWidget>(form_.get(), u"ListView1"_s); }
    QLineEdit *Box(int i) { return Find<QLineEdit>(form_.get(), u"Text1_%1"_s.arg(i)); }
    void Click(const QString &name) { ClickWidget(Find<QWidget>(form_.get(), name)); }
    const quorvel::DnaRecord &Record(int slot) { return form_->Model().Library().Records[std::size_t(slot)]; }
    // A new main window with the samples loaded; it takes the keyboard back from the file dialog.
    void Open(const QStringList &lines = kSamples) {
        form_.reset();
        form_ = MakeForm1();
        LoadSamples(form_.get(), lines);
        QTRY_COMPARE(QApplication::activeWindow(), form_.get());
    }
    // Focuses a box or drop-down and replaces its whole text by typing.
    static void Type(QWidget *box, const QString &text) {
        box->setFocus();
        auto *edit = qobject_cast<QLineEdit *>(box);
        (edit ? edit : qobject_cast<QComboBox *>(box)->lineEdit())->selectAll();
        QTest::keyClick(box, Qt::Key_Backspace);
        QTest::keyClicks(box, text);
    }
    QString Row(int row, const QList<int> &columns) { return RowText(List(), row, columns); }
    // The Add DNA window, opened from the toolbar, with its boxes.
    QWidget *OpenAddDna() {
        ToolbarAction(form_.get(), u"Add DNA"_s)->trigger();
        QWidget *form2 = TopLevel(u"Form2"_s);
        return form2 && QTest::qWaitForWindowActive(form2) ? form2 : nullptr;
    }
    static QLineEdit *Box(QWidget *form2, int i) { return Find<QLineEdit>(form2, u"Text1_%1"_s.arg(i)); }

private slots:
    // Every control reaches the sample and its row through Edit; a number beyond 16 bits keeps the old value.
    void editStoresWhatWasTyped() {
        Open();
        ClickRow(List(), 1);
        const QStringList typed{u"12abc"_s, u"2.5"_s, u"3.5"_s, u"40000"_s};
        for (int i = 0; i < typed.size(); ++i)
            Type(Box(i), typed[i]);
        Type(Box(10), u"Alpha, renamed"_s);
        Type(Box(11), u"33"_s);
        Type(Find<QComboBox>(form_.get(), u"Combo1"_s), u"HQ"_s);
        Type(Find<QComboBox>(form_.get(), u"Combo2"_s), u"Lok"_s);
        Click(u"Option1_0"_s);
        Click(u"Command3"_s);
        QCOMPARE(Row(1, {1, 2, 3, 4, 5, 12, 13, 14, 15}),
                 u"Alpha, renamed|   12|   2|   4|   400|   33|Lok|Wild|High"_s);
        QCOMPARE(Box(3)->text(), u"40000"_s);
    }

    // With LFocus a box is stored when it is left, in the row that shows the sample of a sorted list.
    void leavingABoxStoresItOnlyWithLFocus() {
        Open();
        ClickHeader(List(), 11);
        Click(u"Check1"_s);
        QVERIFY(!Find<QPushButton>(form_.get(), u"Command3"_s)->isEnabled());
        ClickRow(List(), 2);
        // Entering a box selects its text, so typing replaces it; Tab stores the box left.
        Box(0)->setFocus();
        QTest::keyClicks(Box(0), u"78"_s);
        QTest::keyClick(Box(0), Qt::Key_Tab);
        QVERIFY(Box(1)->hasFocus());
        QCOMPARE(Record(1).Attributes[0], 78);
        QCOMPARE(Row(2, {1, 2}), u"Alpha|   78"_s);
        // Enter in the Level box stays there and stores nothing until the box is left.
        Type(Box(11), u"33"_s);
        QTest::keyClick(Box(11), Qt::Key_Return);
        QVERIFY(Box(11)->hasFocus());
        QCOMPARE(Record(1).Level, 12);
        // Picking another row stores the box first.
        Type(Box(5), u"99"_s);
        ClickRow(List(), 1);
        QCOMPARE(Row(2, {7, 12}), u"   99|   33"_s);
        QCOMPARE(Box(5)->text(), u"6"_s);

        Click(u"Check1"_s);
        QVERIFY(Find<QPushButton>(form_.get(), u"Command3"_s)->isEnabled());
        Type(Box(2), u"5"_s);
        Box(3)->setFocus();
        QCOMPARE(Record(2).Attributes[2], 3);
    }

    // The click that leaves a box stores it first; a taller glyph stored into the first row must
    // not make the rows taller under the pointer, or the click picks another row.
    void aClickThatStoresATallNameStillPicksItsRow() {
        QStringList lines;
        for (int i = 1; i <= 20; ++i)
            lines << u"1,2,3,4,5,6,7,8,9,10,S%1,1,0,0,0"_s.arg(i);
        Open(lines);
        Click(u"Check1"_s);
        ClickRow(List(), 1);
        const int height = List()->visualRect(List()->model()->index(0, 1)).height();
        Box(10)->setFocus();
        Box(10)->insert(u"Tall \u4e2d\u0101\u00c5 name"_s); // pasted: keys exist for Latin-1 only
        ClickRow(List(), 12);
        QCOMPARE(Record(1).Name, "Tall \u4e2d\u0101\u00c5 name");
        QCOMPARE(form_->Model().Library().SelectedRecord, 12);
        QCOMPARE(List()->visualRect(List()->model()->index(0, 1)).height(), height);
    }

    void newSampleUnsortedSortedAfterAShrinkingLoadAndInAFullLibrary() {
        Open(kSamples.mid(0, 2));
        ClickRow(List(), 1);
        Click(u"Command4"_s);
        QCOMPARE(Row(3, {0, 1, 2}), u"3|New DNA|"_s);
        QCOMPARE(form_->Model().Library().SelectedRow, 3);
        QCOMPARE(Box(10)->text(), u"New DNA"_s);
        // On a sorted list New rebuilds it in slot order.
        ClickHeader(List(), 11);
        QCOMPARE(Cell(List(), 1, 0), u"3"_s);
        Click(u"Command4"_s);
        QCOMPARE(Row(4, {0, 1, 2}), u"4|New DNA|   0"_s);
        QCOMPARE(form_->Model().Library().SelectedRow, 4);
        // After a shorter load the slot used may still hold an older sample: New empties it.
        LoadSamples(form_.get(), kSamples.mid(2, 1));
        Click(u"Command4"_s);
        QCOMPARE(quorvel::FormatDnaLine(Record(2), false), "0,0,0,0,0,0,0,0,0,0,New DNA,0,0,0,0\r\n");
        form_->Model().Library().Count = 500;
        QString title;
        AnswerMessageBox(QMessageBox::Ok, &title);
        Click(u"Command4"_s);
        QCOMPARE(title, u"New DNA"_s);
        QCOMPARE(RowCount(List()), 2);
    }

    // The Add DNA window's "Save" stores the boxes and refuses what does not fit.
    void addDnaStoresTheBoxesAndRefusesWhatDoesNotFit() {
        form_ = MakeForm1();
        QWidget *form2 = OpenAddDna();
        // Empty boxes: every value 0, planet "?", no quality chosen (Poor), origin Wild.
        ClickWidget(Find<QWidget>(form2, u"Command4"_s));
        QCOMPARE(Row(1, kAllColumns), u"1||   0|   0|   0|   0|   0|   0|   0|   0|   0|   0|   0|?|Wild|Poor"_s);
        // The quality box is left at "?", so the second save is Unknown.
        QCOMPARE(Find<QComboBox>(form2, u"Combo1"_s)->currentText(), u"?"_s);
        Box(form2, 9)->setText(u"-5"_s);
        Box(form2, 10)->setText(u"Rex"_s);
        ClickWidget(Find<QWidget>(form2, u"Option1_1"_s));
        ClickWidget(Find<QWidget>(form2, u"Command4"_s));
        QCOMPARE(Row(2, kAllColumns),
                 u"2|Rex|   0|   0|   0|   0|   0|   0|   0|   0|   0|   -5|   0|?|Mission|Unknown"_s);
        // A value out of range and a full library save nothing and say why.
        Box(form2, 9)->setText(u"32768"_s);
        QString text;
        AnswerMessageBox(QMessageBox::Ok, nullptr, &text);
        ClickWidget(Find<QWidget>(form2, u"Command4"_s));
        QVERIFY2(text.contains("Power"_L1), qPrintable(text));
        form_->Model().Library().Count = 500;
        AnswerMessageBox(QMessageBox::Ok, nullptr, &text);
        ClickWidget(Find<QWidget>(form2, u"Command4"_s));
        QVERIFY2(text.contains("full"_L1), qPrintable(text));
        QCOMPARE(RowCount(List()), 2);
        QCOMPARE(Box(form2, 9)->text(), u"32768"_s);
    }

    void addDnaSwitchOutlivesTheWindowAndExitRestoresTheMainWindow() {
        form_ = MakeForm1();
        form_->Model().Settings()[quorvel::Setting::Min] = true;
        QWidget *form2 = OpenAddDna();
        QVERIFY(form_->isMinimized());
        // ">>" widens the window and switches evaluation on: leaving a box refreshes the panel.
        Box(form2, 0)->setText(u"100"_s);
        ClickWidget(Find<QWidget>(form2, u"Label1"_s));
        Box(form2, 2)->setFocus();
        QTest::keyClicks(Box(form2, 2), u"50"_s);
        Box(form2, 3)->setFocus();
        QCOMPARE(TextOf(form2, u"Label23_0"_s), u"778"_s);
        ClickWidget(Find<QWidget>(form2, u"Command1"_s));
        QTRY_VERIFY(!TopLevel(u"Form2"_s));
        QVERIFY(!form_->isMinimized());
        // Reopened narrow, the switch is still on: ">>" now switches it off.
        form2 = OpenAddDna();
        QCOMPARE(form2->width(), 230);
        ClickWidget(Find<QWidget>(form2, u"Label1"_s));
        QVERIFY(!form_->Model().LiveEvaluation());
    }
};

QTEST_MAIN(TestEditor)
#include "tst_editor.moc"
