// The Options window, opened from the toolbar: what it shows, what "Save" and "Cancel" keep,
// and what the main window writes at exit afterwards.
#include "TestSupport.h"

#include "Form1.h"

#include <QCheckBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>

using namespace testsupport;

namespace {

QByteArray Lines(const QList<QByteArray> &lines) {
    QByteArray text;
    for (const QByteArray &line : lines)
        text += line + "\r\n";
    return text;
}

QWidget *OpenOptions(QWidget *form1) {
    ToolbarAction(form1, QStringLiteral("Options"))->trigger();
    QWidget *form3 = TopLevel(QStringLiteral("Form3"));
    if (form3 && !QTest::qWaitForWindowExposed(form3))
        qWarning("Options window not exposed");
    return form3;
}

QCheckBox *Box(QWidget *form3, int index) {
    return Find<QCheckBox>(form3, QStringLiteral("Check1_%1").arg(index));
}

QList<bool> Boxes(QWidget *form3) {
    QList<bool> checked;
    for (int i = 0; i < 9; ++i)
        checked << Box(form3, i)->isChecked();
    return checked;
}

// A click on a part of the scroll bar: an arrow or the trough beside the thumb.
void ClickScrollBar(QScrollBar *scroll, QStyle::SubControl part) {
    QStyleOptionSlider option;
    option.initFrom(scroll);
    option.orientation = scroll->orientation();
    option.minimum = scroll->minimum();
    option.maximum = scroll->maximum();
    option.sliderPosition = scroll->value();
    option.sliderValue = scroll->value();
    option.singleStep = scroll->singleStep();
    option.pageStep = scroll->pageStep();
    const QRect rect = scroll->style()->subControlRect(QStyle::CC_ScrollBar, &option, part, scroll);
    QTest::mouseClick(scroll, Qt::LeftButton, Qt::NoModifier, rect.center());
}

void Press(QWidget *form3, const QString &button) {
    ClickWidget(Find<QPushButton>(form3, button));
    QTRY_VERIFY(!TopLevel(QStringLiteral("Form3")));
}

} // namespace

class TestForm3 : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void init() { RemoveSettingsFile(); }
    void cleanup() {
        CloseAllWindows();
        RemoveSettingsFile();
    }

    void looksAsDescribed() {
        auto form = MakeForm1();
        QWidget *form3 = OpenOptions(form.get());
        QVERIFY(form3);
        QVERIFY(form3->isWindow());
        QCOMPARE(form3->windowTitle(), QStringLiteral("Options"));
        QCOMPARE(form3->size(), QSize(320, 305));
        const QStringList captions{QStringLiteral("Minimize when I open the Exp./Add DNA window"),
                                   QStringLiteral("Use Always on top as default"),
                                   QStringLiteral("LostFocus edit function on by default"),
                                   QStringLiteral("Load last used DNA file when I start the Quorvel"),
                                   QStringLiteral("Remember column width"),
                                   QStringLiteral("Remember window size and position"),
                                   QStringLiteral("Old"),
                                   QStringLiteral("New 1"),
                                   QStringLiteral("New 2")};
        for (int i = 0; i < 9; ++i)
            QCOMPARE(Box(form3, i)->text(), captions[i]);
        QCOMPARE(Find<QLabel>(form3, QStringLiteral("Label2"))->text(), QStringLiteral("Exp points:"));
        auto *scroll = Find<QScrollBar>(form3, QStringLiteral("HScroll1"));
        QCOMPARE(scroll->orientation(), Qt::Horizontal);
        QCOMPARE(scroll->minimum(), 1);
        QCOMPARE(scroll->maximum(), 12);
        QCOMPARE(Find<QPushButton>(form3, QStringLiteral("Command4"))->text(), QStringLiteral("Save"));
        QCOMPARE(Find<QPushButton>(form3, QStringLiteral("Command1"))->text(), QStringLiteral("Cancel"));
        const QImage image = form3->grab().toImage();
        QCOMPARE(image.pixelColor(2, 2), QColor(163, 148, 118));
        QCOMPARE(image.pixelColor(308, 12), QColor(191, 186, 164));

        // A second click brings the same window to the front.
        ToolbarAction(form.get(), QStringLiteral("Options"))->trigger();
        int count = 0;
        for (QWidget *w : QApplication::topLevelWidgets())
            count += w->objectName() == QLatin1String("Form3") ? 1 : 0;
        QCOMPARE(count, 1);
    }

    void cancelKeepsTheOptionsButNotThePoints() {
        WriteSettingsFile(Lines({"New1", "LFocus", "Exp", " 13 "}));
        auto form = MakeForm1();
        QWidget *form3 = OpenOptions(form.get());
        QCOMPARE(Boxes(form3), QList<bool>({false, false, true, false, false, false, false, true, false}));
        auto *scroll = Find<QScrollBar>(form3, QStringLiteral("HScroll1"));
        QCOMPARE(scroll->value(), 12);
        QCOMPARE(Find<QLabel>(form3, QStringLiteral("Label3"))->text(), QStringLiteral("12"));
        ClickWidget(Box(form3, 0));
        ClickScrollBar(scroll, QStyle::SC_ScrollBarSubPage);
        QCOMPARE(Find<QLabel>(form3, QStringLiteral("Label3"))->text(), QStringLiteral("9"));
        Press(form3, QStringLiteral("Command1"));
        form->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines({"LFocus", "New1", "Exp", " 12 "}));

        // Without a file the opening alone raises the points from 0 to 1.
        RemoveSettingsFile();
        auto fresh = MakeForm1();
        QCOMPARE(fresh->State().Settings.ExpPoints, 0);
        form3 = OpenOptions(fresh.get());
        QCOMPARE(Boxes(form3), QList<bool>(9, false));
        QCOMPARE(Find<QLabel>(form3, QStringLiteral("Label3"))->text(), QStringLiteral("1"));
        QCOMPARE(fresh->State().Settings.ExpPoints, 1);
        Press(form3, QStringLiteral("Command1"));
    }

    void saveTakesTheBoxesAndTheScrollBar() {
        auto form = MakeForm1();
        QWidget *form3 = OpenOptions(form.get());
        for (int i : {0, 4, 7, 8})
            ClickWidget(Box(form3, i));
        ClickWidget(Box(form3, 8));
        auto *scroll = Find<QScrollBar>(form3, QStringLiteral("HScroll1"));
        auto *label3 = Find<QLabel>(form3, QStringLiteral("Label3"));
        // A click beside the thumb adds three points, one on the arrow adds one.
        ClickScrollBar(scroll, QStyle::SC_ScrollBarAddPage);
        QCOMPARE(label3->text(), QStringLiteral("4"));
        ClickScrollBar(scroll, QStyle::SC_ScrollBarAddLine);
        QCOMPARE(label3->text(), QStringLiteral("5"));
        ClickScrollBar(scroll, QStyle::SC_ScrollBarSubLine);
        ClickScrollBar(scroll, QStyle::SC_ScrollBarAddLine);
        Press(form3, QStringLiteral("Command4"));
        QCOMPARE(form->State().Settings.ExpPoints, 5);
        QVERIFY(form->State().Settings[quorvel::New1]);

        // A second opening shows what was saved; switching an option off keeps it off.
        form3 = OpenOptions(form.get());
        QCOMPARE(Boxes(form3), QList<bool>({true, false, false, false, true, false, false, true, false}));
        ClickWidget(Box(form3, 0));
        scroll = Find<QScrollBar>(form3, QStringLiteral("HScroll1"));
        for (int i = 0; i < 3; ++i)
            ClickScrollBar(scroll, QStyle::SC_ScrollBarAddPage);
        QCOMPARE(Find<QLabel>(form3, QStringLiteral("Label3"))->text(), QStringLiteral("12"));
        Press(form3, QStringLiteral("Command4"));
        form->close();
        QList<QByteArray> expected{"Col",   " 0 ",   " 1400 ", " 600 ", " 600 ", " 600 ",  " 700 ",  " 600 ", " 600 ",
                                   " 800 ", " 600 ", " 600 ",  " 700 ", " 700 ", " 1200 ", " 1000 ", " 1000 "};
        expected += {"New1", "Exp", " 12 "};
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines(expected));

        auto next = MakeForm1();
        QVERIFY(!next->State().Settings[quorvel::Min]);
        QCOMPARE(next->State().Settings.ExpPoints, 12);
    }

    void openAtExitIsClosedUnsaved() {
        auto form = MakeForm1();
        QWidget *form3 = OpenOptions(form.get());
        ClickWidget(Box(form3, 6));
        form->close();
        QTRY_VERIFY(!TopLevel(QStringLiteral("Form3")));
        QCOMPARE(ReadFileBytes(SettingsPath()), Lines({"Exp", " 1 "}));
    }
};

QTEST_MAIN(TestForm3)
#include "tst_form3.moc"
