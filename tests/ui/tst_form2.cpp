// The Add DNA window: what "Save" stores and refuses, the live statistics switch and its
// width, and the main window while it is open. Statistics and sorting are unit-tested.
#include "TestSupport.h"

#include "Form1.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>

using namespace testsupport;
using namespace Qt::StringLiterals;

class TestForm2 : public WindowTest {
    Q_OBJECT

    static QTreeWidget *List(Form1 *form) { return Find<QTreeWidget>(form, u"ListView1"_s); }
    static QLineEdit *Box(QWidget *form2, int i) { return Find<QLineEdit>(form2, u"Text1_%1"_s.arg(i)); }
    static void Click(QWidget *form2, const char *name) { ClickWidget(Find<QWidget>(form2, QLatin1String(name))); }

    static QWidget *OpenAddDna(Form1 *form) {
        ToolbarAction(form, u"Add DNA"_s)->trigger();
        QWidget *form2 = TopLevel(u"Form2"_s);
        return form2 && QTest::qWaitForWindowActive(form2) ? form2 : nullptr;
    }

    // The sixteen cells of a DNA list row (from 1).
    static QString Row(Form1 *form, int row) {
        return RowText(List(form), row, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15});
    }

private slots:
    void saveStoresTheBoxesAndRefusesWhatDoesNotFit() {
        auto form = MakeForm1();
        QWidget *form2 = OpenAddDna(form.get());
        // Empty boxes: every value 0, planet "?", no quality chosen (Poor), origin Wild.
        Click(form2, "Command4");
        QCOMPARE(Row(form.get(), 1), u"1||   0|   0|   0|   0|   0|   0|   0|   0|   0|   0|   0|?|Wild|Poor"_s);
        // The quality box is left at "?", so the second save is Unknown.
        QCOMPARE(Find<QComboBox>(form2, u"Combo1"_s)->currentText(), u"?"_s);
        Box(form2, 9)->setText(u"-5"_s);
        Box(form2, 10)->setText(u"Rex"_s);
        Click(form2, "Option1_1");
        Click(form2, "Command4");
        QCOMPARE(Row(form.get(), 2),
                 u"2|Rex|   0|   0|   0|   0|   0|   0|   0|   0|   0|   -5|   0|?|Mission|Unknown"_s);
        // A value out of range and a full library save nothing and say why.
        Box(form2, 9)->setText(u"32768"_s);
        QString text;
        AnswerMessageBox(QMessageBox::Ok, nullptr, &text);
        Click(form2, "Command4");
        QVERIFY2(text.contains("Power"_L1), qPrintable(text));
        form->Model().Library().Count = 500;
        AnswerMessageBox(QMessageBox::Ok, nullptr, &text);
        Click(form2, "Command4");
        QVERIFY2(text.contains("full"_L1), qPrintable(text));
        QCOMPARE(RowCount(List(form.get())), 2);
        QCOMPARE(Box(form2, 9)->text(), u"32768"_s);
    }

    void theSwitchOutlivesTheWindowAndExitRestoresTheMainWindow() {
        auto form = MakeForm1();
        form->Model().Settings()[quorvel::Setting::Min] = true;
        QWidget *form2 = OpenAddDna(form.get());
        QVERIFY(form->isMinimized());
        // ">>" widens the window and switches evaluation on: leaving a box refreshes the panel.
        Box(form2, 0)->setText(u"100"_s);
        Click(form2, "Label1");
        Box(form2, 2)->setFocus();
        QTest::keyClicks(Box(form2, 2), u"50"_s);
        Box(form2, 3)->setFocus();
        QCOMPARE(TextOf(form2, u"Label23_0"_s), u"778"_s);
        Click(form2, "Command1");
        QTRY_VERIFY(!TopLevel(u"Form2"_s));
        QVERIFY(!form->isMinimized());
        // Reopened narrow, the switch is still on: ">>" now switches it off.
        form2 = OpenAddDna(form.get());
        QCOMPARE(form2->width(), 230);
        Click(form2, "Label1");
        QVERIFY(!form->Model().LiveEvaluation());
    }
};

QTEST_MAIN(TestForm2)
#include "tst_form2.moc"
