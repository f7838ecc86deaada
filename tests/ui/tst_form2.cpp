#include "TestSupport.h"

#include "Form1.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>

using namespace testsupport;

namespace {

QTreeWidget *List(Form1 *form) {
    return Find<QTreeWidget>(form, QStringLiteral("ListView1"));
}

QWidget *OpenAddDna(Form1 *form) {
    ToolbarAction(form, QStringLiteral("Add DNA"))->trigger();
    QWidget *form2 = TopLevel(QStringLiteral("Form2"));
    if (form2 && !QTest::qWaitForWindowActive(form2))
        qWarning("Add DNA window not active");
    return form2;
}

QLineEdit *Box(QWidget *form2, int i) {
    return Find<QLineEdit>(form2, QStringLiteral("Text1_%1").arg(i));
}

QString Stat(QWidget *form2, int i) {
    return Find<QLabel>(form2, QStringLiteral("Label23_%1").arg(i))->text();
}

// Focuses a box (which selects its text) and types over it; an empty text erases it.
void Type(QWidget *form2, int i, const QString &text) {
    QLineEdit *box = Box(form2, i);
    box->setFocus();
    box->selectAll();
    if (text.isEmpty())
        QTest::keyClick(box, Qt::Key_Backspace);
    else
        QTest::keyClicks(box, text);
}

// Leaves whatever box has the focus by going to the name box.
void Leave(QWidget *form2) {
    Box(form2, 10)->setFocus();
}

void TypeInCombo(QWidget *form2, const QString &name, const QString &text) {
    auto *combo = Find<QComboBox>(form2, name);
    combo->lineEdit()->selectAll();
    QTest::keyClicks(combo->lineEdit(), text);
}

void Save(QWidget *form2) {
    ClickWidget(Find<QPushButton>(form2, QStringLiteral("Command4")));
}

void UseEquations(Form1 *form, bool old, bool new1, bool new2) {
    quorvel::Settings &settings = form->State().Settings;
    settings[quorvel::Old] = old;
    settings[quorvel::New1] = new1;
    settings[quorvel::New2] = new2;
}

} // namespace

class TestForm2 : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QLocale::setDefault(QLocale::c());
        RemoveSettingsFile();
    }
    void cleanup() {
        QLocale::setDefault(QLocale::c());
        CloseAllWindows();
        RemoveSettingsFile();
    }

    void savesTypedSamplesOneAfterAnother() {
        auto form = MakeForm1();
        QWidget *form2 = OpenAddDna(form.get());
        QVERIFY(form2);
        QCOMPARE(form2->windowTitle(), QStringLiteral("Add DNA"));
        QCOMPARE(form2->width(), 230);
        QCOMPARE(Find<QComboBox>(form2, QStringLiteral("Combo1"))->currentText(), QStringLiteral("Any"));
        QVERIFY(Find<QRadioButton>(form2, QStringLiteral("Option1_0"))->isChecked());
        form->State().Library.SelectedRecord = 1;

        // Empty boxes: every value 0, planet "?", quality "Poor", origin "Wild".
        Save(form2);
        QTreeWidget *list = List(form.get());
        QCOMPARE(RowCount(list), 1);
        QCOMPARE(Cell(list, 1, 0), QStringLiteral("1"));
        QCOMPARE(Cell(list, 1, 1), QString());
        for (int c = 2; c <= 12; ++c)
            QCOMPARE(Cell(list, 1, c), QStringLiteral("   0"));
        QCOMPARE(Cell(list, 1, 13), QStringLiteral("?"));
        QCOMPARE(Cell(list, 1, 14), QStringLiteral("Wild"));
        QCOMPARE(Cell(list, 1, 15), QStringLiteral("Poor"));
        QCOMPARE(Find<QComboBox>(form2, QStringLiteral("Combo1"))->currentText(), QStringLiteral("?"));

        // The second save keeps the "?" left behind: Unknown. Numbers round halves to even.
        Type(form2, 0, QStringLiteral("12.5"));
        Type(form2, 9, QStringLiteral("-32768"));
        Type(form2, 10, QStringLiteral("Rex"));
        Type(form2, 11, QStringLiteral("2.5E1"));
        TypeInCombo(form2, QStringLiteral("Combo2"), QStringLiteral("naboo"));
        ClickWidget(Find<QRadioButton>(form2, QStringLiteral("Option1_1")));
        Save(form2);
        QCOMPARE(RowCount(list), 2);
        QCOMPARE(Cell(list, 2, 1), QStringLiteral("Rex"));
        QCOMPARE(Cell(list, 2, 2), QStringLiteral("   12"));
        QCOMPARE(Cell(list, 2, 11), QStringLiteral("   -32768"));
        QCOMPARE(Cell(list, 2, 12), QStringLiteral("   25"));
        QCOMPARE(Cell(list, 2, 13), QStringLiteral("Naboo"));
        QCOMPARE(Cell(list, 2, 14), QStringLiteral("Mission"));
        QCOMPARE(Cell(list, 2, 15), QStringLiteral("Unknown"));
        const quorvel::DnaRecord &rex = form->State().Library.Records[2];
        QCOMPARE(rex.Name, std::string("Rex"));
        QCOMPARE(rex.Quality, 6.0f);
        QCOMPARE(rex.Planet, 7);
        QCOMPARE(Box(form2, 0)->text(), QString());
        QVERIFY(Find<QRadioButton>(form2, QStringLiteral("Option1_0"))->isChecked());
        QCOMPARE(Find<QComboBox>(form2, QStringLiteral("Combo2"))->currentText(), QStringLiteral("Any"));

        // Each quality entry stands for the word it abbreviates.
        const QStringList entries{QStringLiteral("VHQ"), QStringLiteral("AAQ"), QStringLiteral("VLQ")};
        const QStringList words{QStringLiteral("Very High"), QStringLiteral("Above Average"), QStringLiteral("Poor")};
        for (int i = 0; i < entries.size(); ++i) {
            TypeInCombo(form2, QStringLiteral("Combo1"), entries[i]);
            Save(form2);
            QCOMPARE(Cell(list, 3 + i, 15), words[i]);
        }
        QCOMPARE(form->State().Library.Count, 5);
        QCOMPARE(form->State().Library.SelectedRecord, 1);
    }

    void saveWhileSortedRebuildsInSlotOrder() {
        auto form = MakeForm1();
        QWidget *form2 = OpenAddDna(form.get());
        QVERIFY(form2);
        Type(form2, 9, QStringLiteral("300"));
        Save(form2);
        Type(form2, 9, QStringLiteral("20"));
        Save(form2);
        QTreeWidget *list = List(form.get());
        ClickHeader(list, 11);
        QCOMPARE(Cell(list, 1, 0), QStringLiteral("2"));

        Type(form2, 0, QStringLiteral("4"));
        Type(form2, 9, QStringLiteral("7"));
        Type(form2, 10, QStringLiteral("Late"));
        Save(form2);
        QVERIFY(!form->State().ListSorted);
        QCOMPARE(RowCount(list), 3);
        for (int row = 1; row <= 3; ++row)
            QCOMPARE(Cell(list, row, 0), QString::number(row));
        QCOMPARE(Cell(list, 3, 1), QStringLiteral("Late"));
        QCOMPARE(Cell(list, 3, 2), QStringLiteral("   4"));
        QCOMPARE(Cell(list, 3, 11), QStringLiteral("   7"));
        QCOMPARE(Cell(list, 3, 15), QStringLiteral("Unknown"));
    }

    void refusesWhatCannotBeStored() {
        auto form = MakeForm1();
        QWidget *form2 = OpenAddDna(form.get());
        QVERIFY(form2);
        Type(form2, 9, QStringLiteral("32768"));
        QString text;
        AnswerMessageBox(QMessageBox::Ok, nullptr, &text);
        Save(form2);
        QVERIFY(text.contains(QStringLiteral("Power")));
        QCOMPARE(form->State().Library.Count, 0);
        QCOMPARE(RowCount(List(form.get())), 0);
        QCOMPARE(Box(form2, 9)->text(), QStringLiteral("32768"));

        Type(form2, 9, QString());
        Type(form2, 11, QStringLiteral("-1E9"));
        AnswerMessageBox(QMessageBox::Ok, nullptr, &text);
        Save(form2);
        QVERIFY(text.contains(QStringLiteral("Level")));
        QCOMPARE(form->State().Library.Count, 0);

        Type(form2, 11, QString());
        form->State().Library.Count = 500;
        AnswerMessageBox(QMessageBox::Ok, nullptr, &text);
        Save(form2);
        QVERIFY(text.contains(QStringLiteral("full")));
        QCOMPARE(form->State().Library.Count, 500);
        QCOMPARE(RowCount(List(form.get())), 0);
    }

    void predictsTheTypedSampleLive() {
        auto form = MakeForm1();
        UseEquations(form.get(), true, false, false);
        QWidget *form2 = OpenAddDna(form.get());
        QVERIFY(form2);

        // Off: leaving a box changes nothing.
        Type(form2, 0, QStringLiteral("100"));
        Leave(form2);
        QCOMPARE(Stat(form2, 0), QStringLiteral("0"));

        ClickWidget(Find<QLabel>(form2, QStringLiteral("Label1")));
        QVERIFY(form->State().LiveEvaluation);
        QCOMPARE(form2->width(), 382);
        QCOMPARE(Stat(form2, 0), QStringLiteral("0"));

        // Enter evaluates and moves on; leaving evaluates.
        Type(form2, 0, QStringLiteral("100"));
        QTest::keyClick(Box(form2, 0), Qt::Key_Return);
        QVERIFY(Box(form2, 1)->hasFocus());
        QCOMPARE(Stat(form2, 0), QStringLiteral("712"));
        Type(form2, 2, QStringLiteral("50"));
        Leave(form2);
        QCOMPARE(Stat(form2, 0), QStringLiteral("778"));
        Box(form2, 11)->setFocus();
        QTest::keyClick(Box(form2, 11), Qt::Key_Return);
        QVERIFY(Box(form2, 11)->hasFocus());

        // Only Power, L = 300 unrounded.
        Type(form2, 0, QString());
        Type(form2, 2, QString());
        Type(form2, 9, QStringLiteral("1000"));
        Leave(form2);
        QCOMPARE(Stat(form2, 10), QStringLiteral("67.33"));
        QCOMPARE(Stat(form2, 2), QStringLiteral("0 [4437]"));
        QCOMPARE(form->State().LastCreatureLevel, 67.33f);

        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        Type(form2, 9, QStringLiteral("1000"));
        Leave(form2);
        QCOMPARE(Stat(form2, 10), QStringLiteral("67,33"));
        QLocale::setDefault(QLocale::c());

        // No equation: no level, no level armor, and the last level stays.
        UseEquations(form.get(), false, false, false);
        Type(form2, 1, QStringLiteral("2.5"));
        Leave(form2);
        QCOMPARE(Stat(form2, 10), QString());
        QCOMPARE(Stat(form2, 2), QStringLiteral("15 [0]"));
        QCOMPARE(form->State().LastCreatureLevel, 67.33f);
    }

    void liveSwitchOutlivesTheWindow() {
        auto form = MakeForm1();
        QWidget *form2 = OpenAddDna(form.get());
        QVERIFY(form2);
        ClickWidget(Find<QLabel>(form2, QStringLiteral("Label1")));
        ClickWidget(Find<QPushButton>(form2, QStringLiteral("Command1")));
        QTRY_VERIFY(!TopLevel(QStringLiteral("Form2")));
        QVERIFY(form->State().LiveEvaluation);

        form2 = OpenAddDna(form.get());
        QVERIFY(form2);
        QCOMPARE(form2->width(), 230);
        Type(form2, 0, QStringLiteral("10"));
        Leave(form2);
        QCOMPARE(Stat(form2, 0), QStringLiteral("116"));

        // The narrow window shows none of the statistics panel, the wide one all of it.
        auto *label1 = Find<QLabel>(form2, QStringLiteral("Label1"));
        auto *panel = Find<QWidget>(form2, QStringLiteral("Picture1"));
        ClickWidget(label1);
        QVERIFY(!form->State().LiveEvaluation);
        QCOMPARE(form2->width(), 230);
        QVERIFY(!form2->rect().intersects(panel->geometry()));
        ClickWidget(label1);
        QVERIFY(form->State().LiveEvaluation);
        QCOMPARE(form2->width(), 382);
        QVERIFY(form2->rect().contains(panel->geometry()));
        QCOMPARE(label1->text(), QStringLiteral(">>"));
    }

    void closingRestoresTheMainWindow() {
        auto form = MakeForm1();
        form->State().Settings[quorvel::Min] = true;
        form->State().Settings[quorvel::OnTop] = true;
        QWidget *form2 = OpenAddDna(form.get());
        QVERIFY(form2);
        QVERIFY(form->isMinimized());
        auto *check1 = Find<QCheckBox>(form2, QStringLiteral("Check1"));
        QVERIFY(check1->isChecked());
        QVERIFY(form2->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        ClickWidget(check1);
        QVERIFY(!form2->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QVERIFY(form->State().Settings[quorvel::OnTop]);

        ClickWidget(Find<QPushButton>(form2, QStringLiteral("Command1")));
        QTRY_VERIFY(!TopLevel(QStringLiteral("Form2")));
        QVERIFY(!form->isMinimized());
        QTRY_VERIFY(List(form.get())->hasFocus());

        // The close box does the same.
        form2 = OpenAddDna(form.get());
        QVERIFY(form->isMinimized());
        form2->close();
        QVERIFY(!form->isMinimized());
    }
};

QTEST_MAIN(TestForm2)
#include "tst_form2.moc"
