#include "TestSupport.h"

#include "Form1.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeWidget>

using namespace testsupport;

namespace {

const QStringList kSamples{
    QStringLiteral("500,500,500,500,500,500,500,500,500,500,Even,10,1,0,2"),
    QStringLiteral("100,100,100,100,100,100,100,100,100,100,Small,10,1,0,2"),
};

QTreeWidget *DnaList(Form1 *form) {
    return Find<QTreeWidget>(form, QStringLiteral("ListView1"));
}

QString Stat(Form1 *form, int i) {
    return Find<QLabel>(form, QStringLiteral("Label23_%1").arg(i))->text();
}

void Load(Form1 *form) {
    AnswerFileDialog(WriteDnaFile(QStringLiteral("pets.txt"), kSamples));
    ToolbarAction(form, QStringLiteral("Load"))->trigger();
    QCOMPARE(RowCount(DnaList(form)), kSamples.size());
}

void SetEquations(Form1 *form, bool old, bool new1, bool new2) {
    form->State().Settings[quorvel::Old] = old;
    form->State().Settings[quorvel::New1] = new1;
    form->State().Settings[quorvel::New2] = new2;
}

// Drops the sample of `row` on "Drop your DNA Template here to predict a pet".
void PredictSample(Form1 *form, int row) {
    ClickRow(DnaList(form), row);
    QVERIFY(DropOn(Find<QWidget>(form, QStringLiteral("Label3"))));
}

// Opens the skin list and clicks item `index`.
void ChooseSkin(QComboBox *combo, int index) {
    combo->showPopup();
    QAbstractItemView *view = combo->view();
    QTRY_VERIFY(view->isVisible());
    // The list ignores a release right after it opened.
    QTest::qWait(QApplication::doubleClickInterval() + 100);
    const QModelIndex item = view->model()->index(index, 0);
    view->scrollTo(item);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, view->visualRect(item).center());
    QTRY_VERIFY(!view->isVisible());
    QCOMPARE(combo->currentIndex(), index);
}

void MoveFocusAway(Form1 *form, QComboBox *combo) {
    // The offscreen platform has no window manager to give the window back its focus.
    form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(form));
    combo->setFocus();
    QTRY_VERIFY(combo->hasFocus());
    DnaList(form)->setFocus();
    QTRY_VERIFY(!combo->hasFocus());
}

} // namespace

class TestPrediction : public QObject {
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

    void droppedSamplePredictsItsPet() {
        auto form = MakeForm1();
        Load(form.get());
        SetEquations(form.get(), true, true, true);
        PredictSample(form.get(), 1);
        const QStringList expected{QStringLiteral("4020"),
                                   QStringLiteral("43"),
                                   QStringLiteral("3000 [2697]"),
                                   QStringLiteral("107"),
                                   QStringLiteral("106"),
                                   QStringLiteral("50%"),
                                   QStringLiteral("4%"),
                                   QStringLiteral("4%"),
                                   QStringLiteral("12.5%"),
                                   QStringLiteral("88 - 362"),
                                   QStringLiteral("49.78 / 50.2 / 47.13")};
        for (int i = 0; i < 11; ++i)
            QCOMPARE(Stat(form.get(), i), expected[i]);
        QCOMPARE(form->State().LastCreatureLevel, 47.13f);

        SetEquations(form.get(), true, false, false);
        PredictSample(form.get(), 1);
        QCOMPARE(Stat(form.get(), 10), QStringLiteral("49.78"));
        QCOMPARE(Stat(form.get(), 2), QStringLiteral("3000 [2958]"));

        // No equation: no level text, and the last level stays what it was.
        SetEquations(form.get(), false, false, false);
        PredictSample(form.get(), 1);
        QCOMPARE(Stat(form.get(), 10), QString());
        QCOMPARE(Stat(form.get(), 2), QStringLiteral("3000 [0]"));
        QCOMPARE(form->State().LastCreatureLevel, 49.78f);

        SetEquations(form.get(), false, false, true);
        PredictSample(form.get(), 1);
        QVERIFY(Stat(form.get(), 10).startsWith(QStringLiteral(" / ")));

        // The drop predicts whichever sample is selected, and shows the user's decimal separator.
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        SetEquations(form.get(), true, false, false);
        PredictSample(form.get(), 2);
        QCOMPARE(Stat(form.get(), 0), QStringLiteral("844"));
        QCOMPARE(Stat(form.get(), 8), QStringLiteral("2,5%"));
        QVERIFY(Stat(form.get(), 10).contains(QLatin1Char(',')));
    }

    void skinRaisesTheLevelShown() {
        auto form = MakeForm1();
        auto *combo = Find<QComboBox>(form.get(), QStringLiteral("Combo3"));
        QCOMPARE(combo->count(), 69);
        QCOMPARE(combo->itemText(0), QStringLiteral("Angler [2]"));
        QCOMPARE(combo->itemText(68), QStringLiteral("Kimogila [40]"));
        QCOMPARE(combo->currentText(), QStringLiteral("Choose Skin"));

        // Before a skin is chosen (the box stands on its first item, Angler [2], but reads
        // "Choose Skin"), leaving the box or scrolling its list changes nothing.
        MoveFocusAway(form.get(), combo);
        QCOMPARE(Stat(form.get(), 10), QStringLiteral("0"));
        combo->showPopup();
        QTRY_VERIFY(combo->view()->isVisible());
        combo->hidePopup();
        QScrollBar *scroll = combo->view()->verticalScrollBar();
        QVERIFY(scroll->maximum() > 5);
        scroll->setValue(5);
        QCOMPARE(Stat(form.get(), 10), QStringLiteral("0"));

        // A template of five all-500 samples has current values of 325: level 23.61 by Old.
        Load(form.get());
        SetEquations(form.get(), true, false, false);
        for (int k = 0; k < 5; ++k)
            DoubleClickRow(DnaList(form.get()), 1);
        QCOMPARE(Stat(form.get(), 10), QStringLiteral("23.61"));

        ChooseSkin(combo, 68);
        QCOMPARE(Stat(form.get(), 10), QStringLiteral("40"));
        QCOMPARE(form->State().LastCreatureLevel, 23.61f);
        ChooseSkin(combo, 0);
        QCOMPARE(Stat(form.get(), 10), QStringLiteral("23.61"));

        // Once chosen, the skin acts again when the box loses the focus or its list scrolls;
        // each new prediction writes the full level first.
        ChooseSkin(combo, 68);
        auto *toggle = Find<QPushButton>(form.get(), QStringLiteral("Command2_0"));
        toggle->click();
        toggle->click();
        QCOMPARE(Stat(form.get(), 10), QStringLiteral("23.61"));
        MoveFocusAway(form.get(), combo);
        QCOMPARE(Stat(form.get(), 10), QStringLiteral("40"));
        toggle->click();
        toggle->click();
        QCOMPARE(Stat(form.get(), 10), QStringLiteral("23.61"));
        scroll->setValue(scroll->value() == 0 ? 1 : 0);
        QCOMPARE(Stat(form.get(), 10), QStringLiteral("40"));
    }
};

QTEST_MAIN(TestPrediction)
#include "tst_prediction.moc"
