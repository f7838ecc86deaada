#include "TestSupport.h"

#include "Form1.h"

#include <QCheckBox>
#include <QPointer>
#include <QPushButton>

using namespace testsupport;

namespace {

// Row 1 fills every category of the template; five copies give caps equal to its values.
// Row 2 is the single sample of the "E" session.
const QStringList kSamples{
    QStringLiteral("1000,1000,450,460,500,500,600,600,800,100,Even,20,1,0,2"),
    QStringLiteral("512,340,300,100,0,0,930,930,400,50,Single,12,3,0,2"),
};

// Box colours by their centre pixel, Picture<picture>_0 up: W white, Y yellow, G green, - hidden.
QString Colours(QWidget *window, int picture, int boxes = 10) {
    QString letters;
    for (int b = 0; b < boxes; ++b) {
        auto *box = Find<QWidget>(window, QStringLiteral("Picture%1_%2").arg(picture).arg(b));
        const QImage image = box->grab().toImage();
        const QColor c = image.pixelColor(image.rect().center());
        letters += box->isHidden()           ? u'-'
                   : c == QColor(Qt::white)  ? u'W'
                   : c == QColor(Qt::yellow) ? u'Y'
                   : c == QColor(Qt::green)  ? u'G'
                                             : u'?';
    }
    return letters;
}

// Loads the samples and opens the sample session of row 2 with this many points.
QWidget *OpenSampleSession(Form1 *form, int points) {
    LoadSamples(form, kSamples);
    ClickRow(Find<QAbstractItemView>(form, QStringLiteral("ListView1")), 2);
    form->State().Settings.ExpPoints = points;
    ClickWidget(Find<QPushButton>(form, QStringLiteral("Command8")));
    return TopLevel(QStringLiteral("Form5"));
}

} // namespace

class TestForm5 : public WindowTest {
    Q_OBJECT

    // Category rows Physique .. Aggressiveness are Picture5 .. Picture9; the points column is Picture4.
    static QString Row(QWidget *w, int category) { return Colours(w, category + 5); }
    static QString Points(QWidget *w) { return Colours(w, 4, 12); }
    static void Click(QWidget *w, int category, int box) {
        ClickWidget(Find<QWidget>(w, QStringLiteral("Picture%1_%2").arg(category + 5).arg(box)));
    }
    static QPushButton *Button(QWidget *w, const char *name) { return Find<QPushButton>(w, QLatin1String(name)); }

private slots:
    void templateSessionPlacesGivesBackAndRuns() {
        auto form = MakeForm1();
        LoadSamples(form.get(), kSamples);
        for (int c = 0; c < 5; ++c)
            SendToCategory(form.get(), 1, c);
        form->State().Settings.ExpPoints = 5;
        form->State().Settings[quorvel::Min] = true;

        ClickWidget(Button(form.get(), "Command7"));
        QWidget *window = TopLevel(QStringLiteral("Form5"));
        QVERIFY(window);
        QVERIFY(form->isMinimized());
        QVERIFY(Button(window, "Command3")->isEnabled());
        QVERIFY(!Button(window, "Command2")->isEnabled());
        QCOMPARE(TextOf(window, QStringLiteral("Label1")), QStringLiteral("5"));
        QCOMPARE(Points(window), QStringLiteral("YYYYYWWWWWWW"));
        QStringList percents;
        for (int c = 0; c < 5; ++c)
            percents << TextOf(window, QStringLiteral("Label5_%1").arg(c)) + u'/' +
                            TextOf(window, QStringLiteral("Label42_%1").arg(c));
        QCOMPARE(percents.join(u' '), QStringLiteral("100%/115% 45%/27% 50%/32% 60%/45% 45%/43%"));
        // Caps 1000 and 1000 start at 1150: past the cap, every box yellow; boxes beyond a cap are hidden.
        QCOMPARE(Row(window, 0), QStringLiteral("YYYYYYYYYY"));
        QCOMPARE(Row(window, 1), QStringLiteral("YYWWW-----"));
        QCOMPARE(Row(window, 2), QStringLiteral("YYYWWW----"));
        QCOMPARE(TextOf(window, QStringLiteral("Label14_0")), QStringLiteral("1150 [1000]"));

        // A click on a white box turns the row's first white box green; a second placement
        // and clicks on yellow boxes change nothing; the green box gives the point back.
        Click(window, 2, 5);
        QCOMPARE(Row(window, 2), QStringLiteral("YYYGWW----"));
        QCOMPARE(TextOf(window, QStringLiteral("Label1")), QStringLiteral("4"));
        QCOMPARE(Points(window), QStringLiteral("YYYYWWWWWWWW"));
        QVERIFY(Button(window, "Command2")->isEnabled());
        Click(window, 3, 6);
        Click(window, 2, 0);
        QCOMPARE(Row(window, 3), QStringLiteral("YYYYWWW---"));
        QCOMPARE(TextOf(window, QStringLiteral("Label1")), QStringLiteral("4"));
        Click(window, 2, 3);
        QCOMPARE(Row(window, 2), QStringLiteral("YYYWWW----"));
        QCOMPARE(TextOf(window, QStringLiteral("Label1")), QStringLiteral("5"));
        QVERIFY(!Button(window, "Command2")->isEnabled());

        // Run: Mental (325, 325) gains 70 each; the point stays spent.
        Click(window, 2, 4);
        ClickWidget(Button(window, "Command2"));
        QCOMPARE(TextOf(window, QStringLiteral("Label14_4")), QStringLiteral("395 [500]"));
        QCOMPARE(TextOf(window, QStringLiteral("Label14_5")), QStringLiteral("395 [500]"));
        QCOMPARE(Row(window, 2), QStringLiteral("YYYWWW----"));
        QCOMPARE(TextOf(window, QStringLiteral("Label1")), QStringLiteral("4"));

        // Reset starts over from the caps and minimises the main window again.
        form->showNormal();
        Click(window, 3, 5);
        ClickWidget(Button(window, "Command3"));
        QVERIFY(form->isMinimized());
        QCOMPARE(TextOf(window, QStringLiteral("Label14_4")), QStringLiteral("325 [500]"));
        QCOMPARE(TextOf(window, QStringLiteral("Label1")), QStringLiteral("5"));
        QCOMPARE(Row(window, 3), QStringLiteral("YYYYWWW---"));
        Click(window, 2, 3);
        ClickWidget(Button(window, "Command2"));

        // Done restores the main window with its list focused; the results stay in the template
        // while the main window's captions still show the evaluated values.
        QPointer<QWidget> closing(window);
        ClickWidget(Button(window, "Command1"));
        QTRY_VERIFY(closing.isNull());
        QCOMPARE(form->windowState() & Qt::WindowMinimized, Qt::WindowNoState);
        QCOMPARE(form->focusWidget(), Find<QWidget>(form.get(), QStringLiteral("ListView1")));
        QCOMPARE(form->State().Template.Current[quorvel::Intellect], 395);
        QCOMPARE(TextOf(form.get(), QStringLiteral("Label14_4")), QStringLiteral("325 [500]"));

        // Clear Experiment returns the template to the evaluated values.
        form->State().Settings[quorvel::Min] = false;
        ClickWidget(Button(form.get(), "Command6"));
        QCOMPARE(form->State().Template.Current[quorvel::Intellect], 325);
        QCOMPARE(form->focusWidget(), Find<QWidget>(form.get(), QStringLiteral("Picture2")));
    }

    void sampleSessionRaisesPairsToTheirCaps() {
        auto form = MakeForm1();
        form->State().Settings[quorvel::Old] = true;
        // A hand-edited settings file may hold more points than there are boxes.
        QWidget *window = OpenSampleSession(form.get(), 40);
        QVERIFY(window);
        QVERIFY(!Button(window, "Command3")->isEnabled());
        QCOMPARE(TextOf(window, QStringLiteral("Label1")), QStringLiteral("12"));
        QCOMPARE(Points(window), QStringLiteral("YYYYYYYYYYYY"));
        QCOMPARE(Row(window, 0), QStringLiteral("YYYYWWWWWW"));

        const QString startLevel = TextOf(window, QStringLiteral("Label23_10"));
        Click(window, 0, 9);
        ClickWidget(Button(window, "Command2"));
        QCOMPARE(TextOf(window, QStringLiteral("Label14_0")), QStringLiteral("567 [1000]"));
        QCOMPARE(TextOf(window, QStringLiteral("Label14_1")), QStringLiteral("424 [1000]"));
        // The pet follows: a new level, which is also the program's last creature level.
        QVERIFY(TextOf(window, QStringLiteral("Label23_10")) != startLevel);
        QCOMPARE(TextOf(window, QStringLiteral("Label23_10")).toFloat(), form->State().LastCreatureLevel);
        Click(window, 1, 9);
        ClickWidget(Button(window, "Command2"));
        QCOMPARE(TextOf(window, QStringLiteral("Label14_2")), QStringLiteral("335 [1000]"));
        QCOMPARE(TextOf(window, QStringLiteral("Label14_3")), QStringLiteral("205 [1000]"));
    }

    void lastPointStaysPlacedAndDoneThenEOpensAFreshWindow() {
        auto form = MakeForm1();
        QWidget *window = OpenSampleSession(form.get(), 1);
        QVERIFY(window);
        Click(window, 0, 9);
        Click(window, 0, 4);
        QCOMPARE(Row(window, 0), QStringLiteral("YYYYGWWWWW"));
        QCOMPARE(TextOf(window, QStringLiteral("Label1")), QStringLiteral("0"));
        QCOMPARE(Points(window), QStringLiteral("WWWWWWWWWWWW"));
        QVERIFY(Button(window, "Command2")->isEnabled());

        // "E" again before the closed window has been destroyed.
        ClickWidget(Button(window, "Command1"));
        ClickWidget(Button(form.get(), "Command8"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        window = TopLevel(QStringLiteral("Form5"));
        QVERIFY(window);
        QVERIFY(!Button(window, "Command2")->isEnabled());
        QCOMPARE(TextOf(window, QStringLiteral("Label1")), QStringLiteral("1"));
        QCOMPARE(Row(window, 0), QStringLiteral("YYYYWWWWWW"));
    }

    void alwaysOnTopFollowsTheOptionAndTheCheckBox() {
        auto form = MakeForm1();
        form->State().Settings[quorvel::OnTop] = true;
        ClickWidget(Button(form.get(), "Command8"));
        QWidget *window = TopLevel(QStringLiteral("Form5"));
        QVERIFY(window);
        auto *check = Find<QCheckBox>(window, QStringLiteral("Check1"));
        QVERIFY(check->isChecked());
        QVERIFY(window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        for (bool onTop : {false, true}) {
            QTest::mouseClick(check, Qt::LeftButton, Qt::NoModifier, QPoint(8, check->height() / 2));
            QCOMPARE(window->windowFlags().testFlag(Qt::WindowStaysOnTopHint), onTop);
            QTRY_VERIFY(window->isVisible());
        }
    }
};

QTEST_MAIN(TestForm5)
#include "tst_form5.moc"
