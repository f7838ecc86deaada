#include "TestSupport.h"

#include "Form1.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QPushButton>
#include <QScrollBar>

using namespace testsupport;

namespace {

const QStringList kSamples{
    QStringLiteral("500,500,500,500,500,500,500,500,500,500,Even,10,1,0,2"),
    QStringLiteral("100,100,100,100,100,100,100,100,100,100,Small,10,1,0,2"),
};

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

} // namespace

class TestPrediction : public WindowTest {
    Q_OBJECT

    static QString Level(Form1 *f) { return TextOf(f, QStringLiteral("Label23_10")); }
    // Sets the Old, New1 and New2 equations and drops sample `row` on "Drop your DNA Template here".
    static void Predict(Form1 *f, int row, bool old, bool new1, bool new2) {
        f->State().Settings[quorvel::Old] = old;
        f->State().Settings[quorvel::New1] = new1;
        f->State().Settings[quorvel::New2] = new2;
        ClickRow(Find<QAbstractItemView>(f, QStringLiteral("ListView1")), row);
        QVERIFY(DropOn(Find<QWidget>(f, QStringLiteral("Label3"))));
    }

private slots:
    void droppedSamplePredictsItsPet() {
        auto form = MakeForm1();
        LoadSamples(form.get(), kSamples);
        Predict(form.get(), 1, true, true, true);
        QStringList stats;
        for (int i = 0; i < 11; ++i)
            stats << TextOf(form.get(), QStringLiteral("Label23_%1").arg(i));
        QCOMPARE(stats.join(QLatin1Char('|')),
                 QStringLiteral("4020|43|3000 [2697]|107|106|50%|4%|4%|12.5%|88 - 362|49.78 / 50.2 / 47.13"));
        QCOMPARE(form->State().LastCreatureLevel, 47.13f);

        Predict(form.get(), 1, true, false, false);
        QCOMPARE(Level(form.get()), QStringLiteral("49.78"));
        QCOMPARE(TextOf(form.get(), QStringLiteral("Label23_2")), QStringLiteral("3000 [2958]"));
        // No equation: no level text, and the last level stays what it was.
        Predict(form.get(), 1, false, false, false);
        QCOMPARE(Level(form.get()), QString());
        QCOMPARE(TextOf(form.get(), QStringLiteral("Label23_2")), QStringLiteral("3000 [0]"));
        QCOMPARE(form->State().LastCreatureLevel, 49.78f);
        Predict(form.get(), 1, false, false, true);
        QVERIFY(Level(form.get()).startsWith(QStringLiteral(" / ")));

        // The drop predicts whichever sample is selected, and shows the user's decimal separator.
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        Predict(form.get(), 2, true, false, false);
        QCOMPARE(TextOf(form.get(), QStringLiteral("Label23_0")), QStringLiteral("844"));
        QCOMPARE(TextOf(form.get(), QStringLiteral("Label23_8")), QStringLiteral("2,5%"));
        QVERIFY(Level(form.get()).contains(QLatin1Char(',')));
    }

    void skinRaisesTheLevelShown() {
        auto form = MakeForm1();
        auto *combo = Find<QComboBox>(form.get(), QStringLiteral("Combo3"));
        QCOMPARE(combo->count(), 69);
        QCOMPARE(combo->currentText(), QStringLiteral("Choose Skin"));

        // Before a skin is chosen (the box stands on Angler [2] but reads "Choose Skin"),
        // leaving the box or scrolling its list changes nothing.
        const auto leave = [combo] {
            QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
            QCoreApplication::sendEvent(combo, &out);
        };
        leave();
        combo->showPopup();
        QTRY_VERIFY(combo->view()->isVisible());
        combo->hidePopup();
        QScrollBar *scroll = combo->view()->verticalScrollBar();
        QVERIFY(scroll->maximum() > 5);
        scroll->setValue(5);
        QCOMPARE(Level(form.get()), QStringLiteral("0"));

        // Five all-500 samples give current values of 325: level 23.61 by Old.
        LoadSamples(form.get(), kSamples);
        form->State().Settings[quorvel::Old] = true;
        for (int k = 0; k < 5; ++k)
            DoubleClickRow(Find<QAbstractItemView>(form.get(), QStringLiteral("ListView1")), 1);
        QCOMPARE(Level(form.get()), QStringLiteral("23.61"));
        ChooseSkin(combo, 68);
        QCOMPARE(Level(form.get()), QStringLiteral("40"));
        QCOMPARE(form->State().LastCreatureLevel, 23.61f);
        ChooseSkin(combo, 0);
        QCOMPARE(Level(form.get()), QStringLiteral("23.61"));

        // Once chosen, the skin acts again when the box loses the focus or its list scrolls;
        // each new evaluation (a toggle there and back) writes the full level first.
        ChooseSkin(combo, 68);
        auto *toggle = Find<QPushButton>(form.get(), QStringLiteral("Command2_0"));
        toggle->click();
        toggle->click();
        QCOMPARE(Level(form.get()), QStringLiteral("23.61"));
        leave();
        QCOMPARE(Level(form.get()), QStringLiteral("40"));
        toggle->click();
        toggle->click();
        QCOMPARE(Level(form.get()), QStringLiteral("23.61"));
        scroll->setValue(scroll->value() == 0 ? 1 : 0);
        QCOMPARE(Level(form.get()), QStringLiteral("40"));
    }
};

QTEST_MAIN(TestPrediction)
#include "tst_prediction.moc"
