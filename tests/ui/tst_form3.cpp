// The Options window: what it shows, what "Save" and "Cancel" keep, and what the main window
// writes at exit afterwards; the display scale goes to the user's preferences, not the file.
#include "TestSupport.h"

#include "DisplayScale.h"
#include "Form1.h"

#include <QCheckBox>
#include <QComboBox>
#include <QScrollBar>

using namespace testsupport;

class TestForm3 : public WindowTest {
    Q_OBJECT

    static QCheckBox *Box(QWidget *form3, int i) { return Find<QCheckBox>(form3, QStringLiteral("Check1_%1").arg(i)); }
    static QScrollBar *Scroll(QWidget *form3) { return Find<QScrollBar>(form3, QStringLiteral("HScroll1")); }

    static QWidget *OpenOptions(QWidget *form1) {
        ToolbarAction(form1, QStringLiteral("Options"))->trigger();
        return TopLevel(QStringLiteral("Form3"));
    }

    // Ticks boxes 0, 1, 6 and 7, moves the points up a page and a step, picks 175 % and presses a button.
    static void ChangeAndPress(QWidget *form3, const char *button) {
        for (int i : {0, 1, 6, 7})
            ClickWidget(Box(form3, i));
        auto *scale = Find<QComboBox>(form3, QStringLiteral("DisplayScaleBox"));
        // With nothing stored the box follows the screen (96 dots per inch here).
        QCOMPARE(scale->currentText(), QStringLiteral("100 %"));
        scale->setCurrentIndex(scale->findText(QStringLiteral("175 %")));
        Scroll(form3)->triggerAction(QAbstractSlider::SliderPageStepAdd);
        Scroll(form3)->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        QCOMPARE(TextOf(form3, QStringLiteral("Label3")), QStringLiteral("5"));
        ClickWidget(Find<QWidget>(form3, QLatin1String(button)));
        QTRY_VERIFY(!TopLevel(QStringLiteral("Form3")));
    }

private slots:
    void showsTheCaptionsAndTheRangeAndOnlySaveKeepsTheChangesForTheFile() {
        auto form = MakeForm1();
        QWidget *form3 = OpenOptions(form.get());
        QStringList captions;
        for (int i = 0; i < 9; ++i)
            captions << Box(form3, i)->text();
        QCOMPARE(captions.join(QLatin1Char('|')),
                 QStringLiteral("Minimize when I open the Exp./Add DNA window|Use Always on top as default|"
                                "LostFocus edit function on by default|Load last used DNA file when I start the "
                                "Quorvel|Remember column width|Remember window size and position|Old|New 1|New 2"));
        QCOMPARE(Scroll(form3)->minimum(), 1);
        QCOMPARE(Scroll(form3)->maximum(), 12);
        // The opening alone brings the points without a file from 0 to 1.
        QCOMPARE(form->Model().Settings().ExpPoints, 1);
        ChangeAndPress(form3, "Command1");
        QVERIFY(form->Model().Settings().Options == quorvel::Settings().Options &&
                form->Model().Settings().ExpPoints == 1);
        ChangeAndPress(OpenOptions(form.get()), "Command4");
        QCOMPARE(PreferredDisplayScale(), 175);
        form->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), QByteArray("Min\r\nOnTop\r\nOld\r\nNew1\r\nExp\r\n 5 \r\n"));
    }
};

QTEST_MAIN(TestForm3)
#include "tst_form3.moc"
