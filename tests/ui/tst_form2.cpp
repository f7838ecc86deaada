// The Add DNA window: what "Save" stores and refuses, the live statistics switch and its
// width, and the main window while it is open. Statistics and sorting are unit-tested.
#include "TestSupport.h"

#include "Form1.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>

using namespace testsupport;

class TestForm2 : public WindowTest {
    Q_OBJECT

    static QTreeWidget *List(Form1 *form) { return Find<QTreeWidget>(form, QStringLiteral("ListView1")); }
    static QLineEdit *Box(QWidget *form2, int i) { return Find<QLineEdit>(form2, QStringLiteral("Text1_%1").arg(i)); }
    static void Click(QWidget *form2, const char *name) { ClickWidget(Find<QWidget>(form2, QLatin1String(name))); }

    static QWidget *OpenAddDna(Form1 *form) {
        ToolbarAction(form, QStringLiteral("Add DNA"))->trigger();
        QWidget *form2 = TopLevel(QStringLiteral("Form2"));
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
        QCOMPARE(Row(form.get(), 1),
                 QStringLiteral("1||   0|   0|   0|   0|   0|   0|   0|   0|   0|   0|   0|?|Wild|Poor"));
        // The quality box is left at "?", so the second save is Unknown.
        QCOMPARE(Find<QComboBox>(form2, QStringLiteral("Combo1"))->currentText(), QStringLiteral("?"));
        Box(form2, 9)->setText(QStringLiteral("-5"));
        Box(form2, 10)->setText(QStringLiteral("Rex"));
        Click(form2, "Option1_1");
        Click(form2, "Command4");
        QCOMPARE(Row(form.get(), 2),
                 QStringLiteral("2|Rex|   0|   0|   0|   0|   0|   0|   0|   0|   0|   -5|   0|?|Mission|Unknown"));
        // A value out of range and a full library save nothing and say why.
        Box(form2, 9)->setText(QStringLiteral("32768"));
        QString text;
        AnswerMessageBox(QMessageBox::Ok, nullptr, &text);
        Click(form2, "Command4");
        QVERIFY2(text.contains(QLatin1String("Power")), qPrintable(text));
        form->Model().Library().Count = 500;
        AnswerMessageBox(QMessageBox::Ok, nullptr, &text);
        Click(form2, "Command4");
        QVERIFY2(text.contains(QLatin1String("full")), qPrintable(text));
        QCOMPARE(RowCount(List(form.get())), 2);
        QCOMPARE(Box(form2, 9)->text(), QStringLiteral("32768"));
    }

    void theSwitchOutlivesTheWindowAndExitRestoresTheMainWindow() {
        auto form = MakeForm1();
        form->Model().Settings()[quorvel::Setting::Min] = true;
        QWidget *form2 = OpenAddDna(form.get());
        QVERIFY(form->isMinimized());
        // ">>" widens the window and switches evaluation on: leaving a box refreshes the panel.
        Box(form2, 0)->setText(QStringLiteral("100"));
        Click(form2, "Label1");
        QCOMPARE(form2->width(), 382);
        Box(form2, 2)->setFocus();
        QTest::keyClicks(Box(form2, 2), QStringLiteral("50"));
        Box(form2, 3)->setFocus();
        QCOMPARE(TextOf(form2, QStringLiteral("Label23_0")), QStringLiteral("778"));
        Click(form2, "Command1");
        QTRY_VERIFY(!TopLevel(QStringLiteral("Form2")));
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
