// The Options window, opened from the toolbar: what it shows, what "Save" and "Cancel" keep,
// and what the main window writes at exit afterwards.
#include "TestSupport.h"

#include "Form1.h"

#include <QCheckBox>
#include <QPushButton>
#include <QScrollBar>

using namespace testsupport;

class TestForm3 : public WindowTest {
    Q_OBJECT

    static QByteArray Lines(const QList<QByteArray> &lines) { return lines.join("\r\n") + "\r\n"; }
    static QCheckBox *Box(QWidget *form3, int i) { return Find<QCheckBox>(form3, QStringLiteral("Check1_%1").arg(i)); }
    // Moves the points as a mouse click does: a step of one on an arrow, three beside the thumb.
    static void Scroll(QWidget *form3, QAbstractSlider::SliderAction action) {
        Find<QScrollBar>(form3, QStringLiteral("HScroll1"))->triggerAction(action);
    }

    static QWidget *OpenOptions(QWidget *form1) {
        ToolbarAction(form1, QStringLiteral("Options"))->trigger();
        QWidget *form3 = TopLevel(QStringLiteral("Form3"));
        if (!form3 || !QTest::qWaitForWindowExposed(form3))
            qWarning("Options window not exposed");
        return form3;
    }

    // The box states as a string of 0 and 1, then the points label after a slash.
    static QString Shown(QWidget *form3) {
        QString shown;
        for (int i = 0; i < 9; ++i)
            shown += Box(form3, i)->isChecked() ? QLatin1Char('1') : QLatin1Char('0');
        return shown + QLatin1Char('/') + TextOf(form3, QStringLiteral("Label3"));
    }

    static void Press(QWidget *form3, const char *button) {
        ClickWidget(Find<QPushButton>(form3, QLatin1String(button)));
        QTRY_VERIFY(!TopLevel(QStringLiteral("Form3")));
    }

private slots:
    void showsTheCaptionsAndRaisesThePointsToTheRange() {
        auto form = MakeForm1();
        QCOMPARE(form->State().Settings.ExpPoints, 0);
        QWidget *form3 = OpenOptions(form.get());
        QVERIFY(form3);
        QStringList captions;
        for (int i = 0; i < 9; ++i)
            captions << Box(form3, i)->text();
        QCOMPARE(captions.join(QLatin1Char('|')),
                 QStringLiteral("Minimize when I open the Exp./Add DNA window|Use Always on top as default|"
                                "LostFocus edit function on by default|Load last used DNA file when I start the "
                                "Quorvel|Remember column width|Remember window size and position|Old|New 1|New 2"));
        auto *scroll = Find<QScrollBar>(form3, QStringLiteral("HScroll1"));
        QCOMPARE(scroll->minimum(), 1);
        QCOMPARE(scroll->maximum(), 12);
        // The opening alone brings the points without a file from 0 to 1.
        QCOMPARE(Shown(form3), QStringLiteral("000000000/1"));
        QCOMPARE(form->State().Settings.ExpPoints, 1);
    }

    void cancelKeepsTheOptionsAndTheClampedPoints() {
        WriteSettingsFile(Lines({"New1", "LFocus", "Exp", " 13 "}));
        auto form = MakeForm1();
        QWidget *form3 = OpenOptions(form.get());
        QCOMPARE(Shown(form3), QStringLiteral("001000010/12"));
        ClickWidget(Box(form3, 0));
        Scroll(form3, QAbstractSlider::SliderPageStepSub);
        QCOMPARE(Shown(form3), QStringLiteral("101000010/9"));
        Press(form3, "Command1");
        form->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines({"LFocus", "New1", "Exp", " 12 "}));
    }

    void saveTakesTheBoxesAndTheScrollBar() {
        auto form = MakeForm1();
        QWidget *form3 = OpenOptions(form.get());
        for (int i : {0, 1, 7})
            ClickWidget(Box(form3, i));
        Scroll(form3, QAbstractSlider::SliderPageStepAdd);
        Scroll(form3, QAbstractSlider::SliderSingleStepAdd);
        QCOMPARE(Shown(form3), QStringLiteral("110000010/5"));
        Press(form3, "Command4");

        // A second opening shows what was saved; an option switched off stays off.
        form3 = OpenOptions(form.get());
        QCOMPARE(Shown(form3), QStringLiteral("110000010/5"));
        ClickWidget(Box(form3, 0));
        Press(form3, "Command4");
        form->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines({"OnTop", "New1", "Exp", " 5 "}));
    }
};

QTEST_MAIN(TestForm3)
#include "tst_form3.moc"
