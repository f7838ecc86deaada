// The Add DNA window: what "Save" stores and refuses, the live statistics panel and its
// switch, and the main window's state while the window is open.
#include "TestSupport.h"

#include "Form1.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QMessageBox>

#include <tuple>

using namespace testsupport;

class TestForm2 : public WindowTest {
    Q_OBJECT

    static QTreeWidget *List(Form1 *form) { return Find<QTreeWidget>(form, QStringLiteral("ListView1")); }
    static QLineEdit *Box(QWidget *form2, int i) { return Find<QLineEdit>(form2, QStringLiteral("Text1_%1").arg(i)); }
    static QString Stat(QWidget *form2, int i) { return TextOf(form2, QStringLiteral("Label23_%1").arg(i)); }
    static void Click(QWidget *form2, const char *name) { ClickWidget(Find<QWidget>(form2, QLatin1String(name))); }

    static QWidget *OpenAddDna(Form1 *form) {
        ToolbarAction(form, QStringLiteral("Add DNA"))->trigger();
        QWidget *form2 = TopLevel(QStringLiteral("Form2"));
        if (!form2 || !QTest::qWaitForWindowActive(form2))
            qWarning("Add DNA window not active");
        return form2;
    }

    // Focuses a box, replaces its text by the typed one and leaves it for the name box.
    static void Type(QWidget *form2, int i, const QString &text) {
        QLineEdit *box = Box(form2, i);
        box->setFocus();
        box->clear();
        QTest::keyClicks(box, text);
        Box(form2, 10)->setFocus();
    }

    // The sixteen cells of a DNA list row (from 1), joined by "|".
    static QString Row(Form1 *form, int row) {
        QStringList cells;
        for (int c = 0; c < 16; ++c)
            cells << Cell(List(form), row, c);
        return cells.join(QLatin1Char('|'));
    }

private slots:
    void saveStoresEmptyBoxesThenTheUnknownQualityAndUnsortsTheList() {
        auto form = MakeForm1();
        QWidget *form2 = OpenAddDna(form.get());
        // Empty boxes: every value 0, planet "?", no quality chosen (Poor), origin Wild.
        Click(form2, "Command4");
        QCOMPARE(Row(form.get(), 1),
                 QStringLiteral("1||   0|   0|   0|   0|   0|   0|   0|   0|   0|   0|   0|?|Wild|Poor"));

        // The boxes are reset with the quality at "?": the second save is Unknown. Halves go to even.
        Type(form2, 0, QStringLiteral("12.5"));
        Type(form2, 9, QStringLiteral("-32768"));
        Type(form2, 10, QStringLiteral("Rex"));
        Type(form2, 11, QStringLiteral("2.5E1"));
        Click(form2, "Option1_1");
        Click(form2, "Command4");
        QCOMPARE(
            Row(form.get(), 2),
            QStringLiteral("2|Rex|   12|   0|   0|   0|   0|   0|   0|   0|   0|   -32768|   25|?|Mission|Unknown"));
        // A save while the list is sorted lists it in slot order again; the boxes were reset to Wild and "?".
        ClickHeader(List(form.get()), 11);
        QCOMPARE(Cell(List(form.get()), 1, 0), QStringLiteral("2"));
        Type(form2, 9, QStringLiteral("7"));
        Click(form2, "Command4");
        QCOMPARE(Cell(List(form.get()), 1, 0), QStringLiteral("1"));
        QCOMPARE(Row(form.get(), 3),
                 QStringLiteral("3||   0|   0|   0|   0|   0|   0|   0|   0|   0|   7|   0|?|Wild|Unknown"));
    }

    void refusesValuesOutOfRangeAndAFullLibrary() {
        for (auto [box, typed, count, named] :
             {std::tuple{9, "32768", 0, "Power"}, std::tuple{11, "-1E9", 0, "Level"}, std::tuple{0, "", 500, "full"}}) {
            auto form = MakeForm1();
            QWidget *form2 = OpenAddDna(form.get());
            Type(form2, box, QString::fromLatin1(typed));
            form->State().Library.Count = count;
            QString text;
            AnswerMessageBox(QMessageBox::Ok, nullptr, &text);
            Click(form2, "Command4");
            QVERIFY2(text.contains(QLatin1String(named)), qPrintable(text));
            QCOMPARE(form->State().Library.Count, count);
            QCOMPARE(RowCount(List(form.get())), 0);
            QCOMPARE(Box(form2, box)->text(), QString::fromLatin1(typed));
        }
    }

    void predictsLiveOnlyWhileSwitchedOnAcrossReopening() {
        auto form = MakeForm1();
        form->State().Settings[quorvel::Old] = true;
        QWidget *form2 = OpenAddDna(form.get());
        // Switched off, leaving a box evaluates nothing.
        Type(form2, 0, QStringLiteral("100"));
        QCOMPARE(Stat(form2, 0), QStringLiteral("0"));
        // ">>" widens the window to show the whole statistics panel, and narrows it again.
        auto *panel = Find<QWidget>(form2, QStringLiteral("Picture1"));
        QVERIFY(!form2->rect().intersects(panel->geometry()));
        Click(form2, "Label1");
        QCOMPARE(form2->width(), 382);
        QVERIFY(form2->rect().contains(panel->geometry()));

        // Enter evaluates and moves on; leaving a box evaluates.
        Box(form2, 2)->setFocus();
        QTest::keyClicks(Box(form2, 2), QStringLiteral("50"));
        QTest::keyClick(Box(form2, 2), Qt::Key_Return);
        QVERIFY(Box(form2, 3)->hasFocus());
        QCOMPARE(Stat(form2, 0), QStringLiteral("778"));

        // Only Power with only the Old equation: L = 300, shown unrounded.
        Type(form2, 0, QString());
        Type(form2, 2, QString());
        Type(form2, 9, QStringLiteral("1000"));
        QCOMPARE(Stat(form2, 10), QStringLiteral("67.33"));
        QCOMPARE(Stat(form2, 2), QStringLiteral("0 [4437]"));
        // No equation: no level, no level armor, and the last level stays.
        form->State().Settings[quorvel::Old] = false;
        Type(form2, 1, QStringLiteral("2.5"));
        QCOMPARE(Stat(form2, 10), QString());
        QCOMPARE(Stat(form2, 2), QStringLiteral("15 [0]"));
        QCOMPARE(form->State().LastCreatureLevel, 67.33f);

        // The switch outlives the window, which opens narrow again.
        Click(form2, "Command1");
        QTRY_VERIFY(!TopLevel(QStringLiteral("Form2")));
        form2 = OpenAddDna(form.get());
        QCOMPARE(form2->width(), 230);
        Type(form2, 0, QStringLiteral("10"));
        QCOMPARE(Stat(form2, 0), QStringLiteral("116"));
        Click(form2, "Label1");
        QVERIFY(!form->State().LiveEvaluation);
        QCOMPARE(form2->width(), 230);
    }

    void exitRestoresTheMinimisedMainWindowAndOnTopIsPerWindow() {
        auto form = MakeForm1();
        form->State().Settings[quorvel::Min] = true;
        form->State().Settings[quorvel::OnTop] = true;
        QWidget *form2 = OpenAddDna(form.get());
        QVERIFY(form->isMinimized());
        QVERIFY(Find<QAbstractButton>(form2, QStringLiteral("Check1"))->isChecked());
        QVERIFY(form2->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        Click(form2, "Check1");
        QVERIFY(!form2->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QVERIFY(form->State().Settings[quorvel::OnTop]);
        Click(form2, "Command1");
        QTRY_VERIFY(!TopLevel(QStringLiteral("Form2")));
        QVERIFY(!form->isMinimized());
        QTRY_VERIFY(List(form.get())->hasFocus());
    }
};

QTEST_MAIN(TestForm2)
#include "tst_form2.moc"
