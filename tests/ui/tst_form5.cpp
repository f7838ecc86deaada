#include "TestSupport.h"

#include "Form1.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QMenu>
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

const QColor kWhite(255, 255, 255);
const QColor kYellow(255, 255, 0);
const QColor kGreen(0, 255, 0);

// Row names of the categories Physique .. Aggressiveness.
const QStringList kRows{QStringLiteral("Picture5"), QStringLiteral("Picture6"), QStringLiteral("Picture7"),
                        QStringLiteral("Picture8"), QStringLiteral("Picture9")};

QWidget *ExpWindow() {
    return TopLevel(QStringLiteral("Form5"));
}

QString Text(QWidget *window, const QString &name) {
    auto *label = Find<QLabel>(window, name);
    return label ? label->text() : QString();
}

QWidget *Box(QWidget *window, int category, int box) {
    return Find<QWidget>(window, QStringLiteral("%1_%2").arg(kRows[category]).arg(box));
}

QColor Centre(QWidget *box) {
    const QImage image = box->grab().toImage();
    return image.pixelColor(image.rect().center());
}

// The colours of a row's boxes as letters: W white, Y yellow, G green, - hidden.
QString RowColours(QWidget *window, int category) {
    QString letters;
    for (int b = 0; b < 10; ++b) {
        QWidget *box = Box(window, category, b);
        const QColor colour = Centre(box);
        letters += box->isHidden()     ? QLatin1Char('-')
                   : colour == kWhite  ? QLatin1Char('W')
                   : colour == kYellow ? QLatin1Char('Y')
                   : colour == kGreen  ? QLatin1Char('G')
                                       : QLatin1Char('?');
    }
    return letters;
}

// The points column from box 0 up: Y yellow, W white.
QString PointColours(QWidget *window) {
    QString letters;
    for (int b = 0; b < 12; ++b) {
        const QColor colour = Centre(Find<QWidget>(window, QStringLiteral("Picture4_%1").arg(b)));
        letters += colour == kYellow ? QLatin1Char('Y') : colour == kWhite ? QLatin1Char('W') : QLatin1Char('?');
    }
    return letters;
}

void LoadSamples(Form1 *form) {
    AnswerFileDialog(WriteDnaFile(QStringLiteral("session.txt"), kSamples));
    ToolbarAction(form, QStringLiteral("Load DNA"))->trigger();
}

// Sends row 1 to every category through the list's pop-up menu.
void FillTemplate(Form1 *form) {
    auto *list = Find<QAbstractItemView>(form, QStringLiteral("ListView1"));
    for (const QString &entry : {QStringLiteral("m_phys"), QStringLiteral("m_prow"), QStringLiteral("m_ment"),
                                 QStringLiteral("m_psych"), QStringLiteral("m_aggro")}) {
        ClickRow(list, 1, Qt::RightButton);
        auto *menu = form->findChild<QMenu *>(QStringLiteral("m_test"));
        QTRY_VERIFY(menu->isVisible());
        menu->findChild<QAction *>(entry)->trigger();
        menu->hide();
    }
}

// Closing destroys the window; a new session makes a new one.
bool ClosedAndGone(QWidget *window) {
    QPointer<QWidget> gone(window);
    window->close();
    return QTest::qWaitFor([&gone] { return gone.isNull(); });
}

QPushButton *Button(QWidget *window, const QString &name) {
    return Find<QPushButton>(window, name);
}

} // namespace

class TestForm5 : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QLocale::setDefault(QLocale::c());
        RemoveSettingsFile();
    }
    void cleanup() {
        CloseAllWindows();
        RemoveSettingsFile();
    }

    void templateSessionPlacesGivesBackAndRuns() {
        auto form = MakeForm1();
        LoadSamples(form.get());
        FillTemplate(form.get());
        QPushButton *simulate = Button(form.get(), QStringLiteral("Command7"));
        QVERIFY(simulate->isEnabled());
        form->State().Settings.ExpPoints = 5;
        form->State().Settings[quorvel::Min] = true;
        const QString mainMental = Text(form.get(), QStringLiteral("Label14_4"));
        QCOMPARE(mainMental, QStringLiteral("325 [500]"));

        ClickWidget(simulate);
        QWidget *window = ExpWindow();
        QVERIFY(window);
        QCOMPARE(window->windowTitle(), QStringLiteral("ExpSim"));
        QVERIFY(form->isMinimized());
        QVERIFY(Button(window, QStringLiteral("Command3"))->isEnabled());
        QVERIFY(!Button(window, QStringLiteral("Command2"))->isEnabled());

        QCOMPARE(Text(window, QStringLiteral("Label1")), QStringLiteral("5"));
        QCOMPARE(PointColours(window), QStringLiteral("YYYYYWWWWWWW"));
        const QStringList caps{QStringLiteral("100%"), QStringLiteral("45%"), QStringLiteral("50%"),
                               QStringLiteral("60%"), QStringLiteral("45%")};
        const QStringList currents{QStringLiteral("115%"), QStringLiteral("27%"), QStringLiteral("32%"),
                                   QStringLiteral("45%"), QStringLiteral("43%")};
        for (int c = 0; c < 5; ++c) {
            QCOMPARE(Text(window, QStringLiteral("Label5_%1").arg(c)), caps[c]);
            QCOMPARE(Text(window, QStringLiteral("Label42_%1").arg(c)), currents[c]);
        }
        // Caps 1000 and 1000 start at 1150: past the cap, every box yellow.
        QCOMPARE(RowColours(window, 0), QStringLiteral("YYYYYYYYYY"));
        QCOMPARE(RowColours(window, 1), QStringLiteral("YYWWW-----"));
        QCOMPARE(RowColours(window, 2), QStringLiteral("YYYWWW----"));
        QCOMPARE(RowColours(window, 3), QStringLiteral("YYYYWWW---"));
        QCOMPARE(Text(window, QStringLiteral("Label14_0")), QStringLiteral("1150 [1000]"));
        // The evaluation already raised Power to its minimum, so the window shows it with its cap.
        QCOMPARE(Text(window, QStringLiteral("Label14_9")), QStringLiteral("113 [100]"));
        const QString startHealth = Text(window, QStringLiteral("Label23_0"));
        QCOMPARE(startHealth, Text(form.get(), QStringLiteral("Label23_0")));

        // A click on a white box turns the row's first white box green; a second placement
        // and clicks on yellow boxes change nothing; the green box gives the point back.
        ClickWidget(Box(window, 2, 5));
        QCOMPARE(RowColours(window, 2), QStringLiteral("YYYGWW----"));
        QCOMPARE(Text(window, QStringLiteral("Label1")), QStringLiteral("4"));
        QCOMPARE(PointColours(window), QStringLiteral("YYYYWWWWWWWW"));
        QVERIFY(Button(window, QStringLiteral("Command2"))->isEnabled());
        ClickWidget(Box(window, 3, 6));
        ClickWidget(Box(window, 2, 0));
        QCOMPARE(RowColours(window, 3), QStringLiteral("YYYYWWW---"));
        QCOMPARE(Text(window, QStringLiteral("Label1")), QStringLiteral("4"));
        ClickWidget(Box(window, 2, 3));
        QCOMPARE(RowColours(window, 2), QStringLiteral("YYYWWW----"));
        QCOMPARE(Text(window, QStringLiteral("Label1")), QStringLiteral("5"));
        QVERIFY(!Button(window, QStringLiteral("Command2"))->isEnabled());

        // Mental (325, 325) gains 70 each; the point stays spent.
        ClickWidget(Box(window, 2, 4));
        ClickWidget(Button(window, QStringLiteral("Command2")));
        QCOMPARE(Text(window, QStringLiteral("Label14_4")), QStringLiteral("395 [500]"));
        QCOMPARE(Text(window, QStringLiteral("Label14_5")), QStringLiteral("395 [500]"));
        QCOMPARE(Text(window, QStringLiteral("Label42_2")), QStringLiteral("39%"));
        QCOMPARE(RowColours(window, 2), QStringLiteral("YYYWWW----"));
        QCOMPARE(Text(window, QStringLiteral("Label1")), QStringLiteral("4"));
        QVERIFY(!Button(window, QStringLiteral("Command2"))->isEnabled());
        // Defense follows Intellect.
        QVERIFY(Text(window, QStringLiteral("Label23_4")) != Text(form.get(), QStringLiteral("Label23_4")));

        // Reset starts over from the caps and minimises the main window again.
        form->showNormal();
        ClickWidget(Box(window, 3, 5));
        ClickWidget(Button(window, QStringLiteral("Command3")));
        QVERIFY(form->isMinimized());
        QCOMPARE(Text(window, QStringLiteral("Label14_4")), QStringLiteral("325 [500]"));
        QCOMPARE(Text(window, QStringLiteral("Label1")), QStringLiteral("5"));
        QCOMPARE(RowColours(window, 3), QStringLiteral("YYYYWWW---"));
        QVERIFY(!Button(window, QStringLiteral("Command2"))->isEnabled());

        ClickWidget(Box(window, 2, 3));
        ClickWidget(Button(window, QStringLiteral("Command2")));

        // Done: the main window is restored with its list focused; the results stay in the
        // template while the main window's captions still show the evaluated values.
        QPointer<QWidget> closing(window);
        ClickWidget(Button(window, QStringLiteral("Command1")));
        QTRY_VERIFY(closing.isNull());
        QCOMPARE(form->windowState() & Qt::WindowMinimized, Qt::WindowNoState);
        QCOMPARE(form->focusWidget(), Find<QWidget>(form.get(), QStringLiteral("ListView1")));
        QCOMPARE(form->State().Template.Current[quorvel::Intellect], 395);
        QCOMPARE(Text(form.get(), QStringLiteral("Label14_4")), mainMental);

        form->State().Settings[quorvel::Min] = false;
        ClickWidget(Button(form.get(), QStringLiteral("Command6")));
        QCOMPARE(form->State().Template.Current[quorvel::Intellect], 325);
        QCOMPARE(form->State().Template.Current[quorvel::Hardiness], 1150);
        QCOMPARE(Text(form.get(), QStringLiteral("Label14_4")), mainMental);
        QCOMPARE(form->focusWidget(), Find<QWidget>(form.get(), QStringLiteral("Picture2")));

        // A new session starts from the evaluated values, not from the closed one's.
        ClickWidget(simulate);
        QVERIFY(ExpWindow());
        QCOMPARE(Text(ExpWindow(), QStringLiteral("Label14_4")), QStringLiteral("325 [500]"));
        QVERIFY(!form->isMinimized());
    }

    void sampleSessionRaisesPairsToTheirCaps() {
        auto form = MakeForm1();
        LoadSamples(form.get());
        ClickRow(Find<QAbstractItemView>(form.get(), QStringLiteral("ListView1")), 2);
        // A hand-edited settings file may hold more points than there are boxes.
        form->State().Settings.ExpPoints = 40;
        form->State().Settings[quorvel::Old] = true;
        ClickWidget(Button(form.get(), QStringLiteral("Command8")));
        QWidget *window = ExpWindow();
        QVERIFY(window);
        QVERIFY(!Button(window, QStringLiteral("Command3"))->isEnabled());
        QCOMPARE(Text(window, QStringLiteral("Label1")), QStringLiteral("12"));
        QCOMPARE(PointColours(window), QStringLiteral("YYYYYYYYYYYY"));
        for (int c = 0; c < 5; ++c)
            QCOMPARE(Text(window, QStringLiteral("Label5_%1").arg(c)), QStringLiteral("100%"));
        QCOMPARE(RowColours(window, 0), QStringLiteral("YYYYWWWWWW"));
        QCOMPARE(Text(window, QStringLiteral("Label14_0")), QStringLiteral("512 [1000]"));
        QCOMPARE(Text(window, QStringLiteral("Label14_9")), QStringLiteral("113\r\n [Min val]"));

        const auto runOn = [window](int category) {
            ClickWidget(Box(window, category, 9));
            ClickWidget(Button(window, QStringLiteral("Command2")));
        };
        const QString startLevel = Text(window, QStringLiteral("Label23_10"));
        runOn(0);
        QCOMPARE(Text(window, QStringLiteral("Label14_0")), QStringLiteral("567 [1000]"));
        // The pet follows: a new level, which is also the program's last creature level.
        QVERIFY(Text(window, QStringLiteral("Label23_10")) != startLevel);
        QCOMPARE(Text(window, QStringLiteral("Label23_10")).toFloat(), form->State().LastCreatureLevel);
        QCOMPARE(Text(window, QStringLiteral("Label14_1")), QStringLiteral("424 [1000]"));
        runOn(1);
        QCOMPARE(Text(window, QStringLiteral("Label14_2")), QStringLiteral("335 [1000]"));
        QCOMPARE(Text(window, QStringLiteral("Label14_3")), QStringLiteral("205 [1000]"));
        // Two zeros share the point evenly.
        runOn(2);
        QCOMPARE(Text(window, QStringLiteral("Label14_4")), QStringLiteral("70 [1000]"));
        QCOMPARE(Text(window, QStringLiteral("Label14_5")), QStringLiteral("70 [1000]"));
        // (930, 930) reaches (1000, 1000): the whole row is yellow.
        QCOMPARE(RowColours(window, 3), QStringLiteral("YYYYYYYYYW"));
        runOn(3);
        QCOMPARE(Text(window, QStringLiteral("Label14_6")), QStringLiteral("1000 [1000]"));
        QCOMPARE(Text(window, QStringLiteral("Label42_3")), QStringLiteral("100%"));
        QCOMPARE(RowColours(window, 3), QStringLiteral("YYYYYYYYYY"));
        QCOMPARE(Text(window, QStringLiteral("Label1")), QStringLiteral("8"));

        // Closed with a point placed, the window opens again with no point placed.
        ClickWidget(Box(window, 4, 9));
        QCOMPARE(RowColours(window, 4), QStringLiteral("YYGWWWWWWW"));
        QVERIFY(ClosedAndGone(window));
        ClickWidget(Button(form.get(), QStringLiteral("Command8")));
        window = ExpWindow();
        QVERIFY(window);
        QVERIFY(!Button(window, QStringLiteral("Command2"))->isEnabled());
        QCOMPARE(RowColours(window, 4), QStringLiteral("YYWWWWWWWW"));
        QCOMPARE(Text(window, QStringLiteral("Label1")), QStringLiteral("12"));
    }

    void newSessionRightAfterDoneOpensAFreshWindow() {
        auto form = MakeForm1();
        LoadSamples(form.get());
        ClickRow(Find<QAbstractItemView>(form.get(), QStringLiteral("ListView1")), 2);
        form->State().Settings.ExpPoints = 3;
        ClickWidget(Button(form.get(), QStringLiteral("Command8")));
        QWidget *window = ExpWindow();
        QVERIFY(window);
        ClickWidget(Box(window, 0, 9));
        QVERIFY(Button(window, QStringLiteral("Command2"))->isEnabled());

        // "E" again before the closed window has been destroyed.
        ClickWidget(Button(window, QStringLiteral("Command1")));
        ClickWidget(Button(form.get(), QStringLiteral("Command8")));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        window = ExpWindow();
        QVERIFY(window);
        QVERIFY(!Button(window, QStringLiteral("Command2"))->isEnabled());
        QCOMPARE(Text(window, QStringLiteral("Label1")), QStringLiteral("3"));
        QCOMPARE(RowColours(window, 0), QStringLiteral("YYYYWWWWWW"));
    }

    void lastPointCannotBeGivenBack() {
        auto form = MakeForm1();
        LoadSamples(form.get());
        ClickRow(Find<QAbstractItemView>(form.get(), QStringLiteral("ListView1")), 2);
        form->State().Settings.ExpPoints = 1;
        ClickWidget(Button(form.get(), QStringLiteral("Command8")));
        QWidget *window = ExpWindow();
        QVERIFY(window);
        ClickWidget(Box(window, 1, 9));
        QCOMPARE(Text(window, QStringLiteral("Label1")), QStringLiteral("0"));
        ClickWidget(Box(window, 1, 2));
        QCOMPARE(RowColours(window, 1), QStringLiteral("YYGWWWWWWW"));
        QCOMPARE(Text(window, QStringLiteral("Label1")), QStringLiteral("0"));
        QCOMPARE(PointColours(window), QStringLiteral("WWWWWWWWWWWW"));
        QVERIFY(Button(window, QStringLiteral("Command2"))->isEnabled());
    }

    void alwaysOnTopFollowsTheOptionAndTheCheckBox() {
        auto form = MakeForm1();
        form->State().Settings[quorvel::OnTop] = true;
        ClickWidget(Button(form.get(), QStringLiteral("Command8")));
        QWidget *window = ExpWindow();
        QVERIFY(window);
        auto *check = Find<QCheckBox>(window, QStringLiteral("Check1"));
        QVERIFY(check->isChecked());
        QVERIFY(window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QTest::mouseClick(check, Qt::LeftButton, Qt::NoModifier, QPoint(8, check->height() / 2));
        QVERIFY(!window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QTRY_VERIFY(window->isVisible());
        QTest::mouseClick(check, Qt::LeftButton, Qt::NoModifier, QPoint(8, check->height() / 2));
        QVERIFY(window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QTRY_VERIFY(window->isVisible());
        QCOMPARE(window->size(), QSize(553, 421));
    }
};

QTEST_MAIN(TestForm5)
#include "tst_form5.moc"
