#include "TestSupport.h"

#include "Form1.h"
#include "PetStats.h"

#include <QAbstractItemView>
#include <QComboBox>

using namespace testsupport;

namespace {

// Opens the skin list, moves to its first or last item by `key` and takes it with Enter.
void ChooseSkin(QComboBox *combo, Qt::Key key) {
    combo->showPopup();
    QTRY_VERIFY(combo->view()->isVisible());
    QTest::keyClick(combo->view(), key);
    QTest::keyClick(combo->view(), Qt::Key_Return);
}

} // namespace

class TestPrediction : public WindowTest {
    Q_OBJECT

    static QString Level(Form1 *form) { return TextOf(form, QStringLiteral("Label23_10")); }

private slots:
    void droppedSampleShowsItsLevelAndASkinRaisesIt() {
        auto form = MakeForm1();
        auto *combo = Find<QComboBox>(form.get(), QStringLiteral("Combo3"));
        // No skin chosen yet (the box stands on Angler [2]): leaving the box changes nothing.
        QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
        QCoreApplication::sendEvent(combo, &out);
        QCOMPARE(Level(form.get()), QStringLiteral("0"));

        LoadSamples(form.get(), {QStringLiteral("300,300,300,300,300,300,300,300,300,300,Even,10,1,0,2")});
        for (quorvel::Setting equation : {quorvel::Setting::Old, quorvel::Setting::New1, quorvel::Setting::New2})
            form->Model().Settings()[equation] = true;
        ClickRow(Find<QAbstractItemView>(form.get(), QStringLiteral("ListView1")), 1);
        QVERIFY(DropOn(Find<QWidget>(form.get(), QStringLiteral("Label3"))));
        const quorvel::ValueArray even{300, 300, 300, 300, 300, 300, 300, 300, 300, 300};
        const auto expected =
            quorvel::PredictCreatureLevel(even, quorvel::PredictionSource::Sample, {true, true, true});
        const QString all = QString::fromStdString(expected.Text);
        QCOMPARE(all.count(QStringLiteral(" / ")), 2);
        QCOMPARE(Level(form.get()), all);

        // Kimogila raises the last equation's level to 40; Angler [2] shows that level again.
        QVERIFY(expected.LastCreatureLevel > 2 && expected.LastCreatureLevel < 40);
        ChooseSkin(combo, Qt::Key_End);
        QCOMPARE(combo->currentText(), QStringLiteral("Kimogila [40]"));
        QCOMPARE(Level(form.get()), QStringLiteral("40"));
        ChooseSkin(combo, Qt::Key_Home);
        QCOMPARE(Level(form.get()), all.section(QStringLiteral(" / "), -1));
    }
};

QTEST_MAIN(TestPrediction)
#include "tst_prediction.moc"
