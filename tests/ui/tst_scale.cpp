// The display scale: the Options window keeps the user's pick outside the settings file, and a
// scale grows places, sizes, the file's placement and the fonts together, every caption whole.
#include "TestSupport.h"

#include "DisplayScale.h"
#include "Form1.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>

using namespace testsupport;

namespace {

// The run's scale for one test; 100 % again afterwards.
struct ScaleForTest {
    explicit ScaleForTest(int percent) { ApplyDisplayScale(percent); }
    ~ScaleForTest() { ApplyDisplayScale(100); }
};

// The labels of a window whose text does not fit their box.
QStringList CutLabels(QWidget *window) {
    QStringList cut;
    for (QLabel *label : window->findChildren<QLabel *>()) {
        if (!label->isVisibleTo(window) || label->wordWrap() || label->text() == QLatin1String("^"))
            continue;
        for (const QString &line : label->text().split(QLatin1Char('\n'))) {
            if (label->fontMetrics().horizontalAdvance(line) > label->contentsRect().width())
                cut << label->text();
        }
    }
    return cut;
}

QComboBox *ScaleBox(QWidget *form3) {
    return Find<QComboBox>(form3, QStringLiteral("DisplayScaleBox"));
}

QWidget *OpenOptions(QWidget *form1) {
    ToolbarAction(form1, QStringLiteral("Options"))->trigger();
    return TopLevel(QStringLiteral("Form3"));
}

} // namespace

class TestScale : public WindowTest {
    Q_OBJECT

private slots:
    void optionsKeepThePickedScaleOutsideTheSettingsFile() {
        // The screen's scale in steps of 25 %, within 100 % to 200 %.
        const QList<std::pair<double, int>> dpis{{72, 100}, {96, 100}, {110, 125}, {144, 150}, {192, 200}, {300, 200}};
        for (const auto &[dpi, percent] : dpis)
            QCOMPARE(ScaleForDpi(dpi), percent);

        auto form = MakeForm1();
        QWidget *form3 = OpenOptions(form.get());
        // Nothing stored: the box follows the screen (96 dots per inch here).
        QCOMPARE(ScaleBox(form3)->count(), 5);
        QCOMPARE(ScaleBox(form3)->currentText(), QStringLiteral("100 %"));
        ScaleBox(form3)->setCurrentIndex(ScaleBox(form3)->findText(QStringLiteral("150 %")));
        ClickWidget(Find<QWidget>(form3, QStringLiteral("Command1")));
        QTRY_VERIFY(!TopLevel(QStringLiteral("Form3")));
        QCOMPARE(PreferredDisplayScale(), 100);

        form3 = OpenOptions(form.get());
        ScaleBox(form3)->setCurrentIndex(ScaleBox(form3)->findText(QStringLiteral("175 %")));
        ClickWidget(Find<QWidget>(form3, QStringLiteral("Command4")));
        QTRY_VERIFY(!TopLevel(QStringLiteral("Form3")));
        QCOMPARE(PreferredDisplayScale(), 175);
        QCOMPARE(ScaleBox(OpenOptions(form.get()))->currentText(), QStringLiteral("175 %"));
        form->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), QByteArray("Exp\r\n 1 \r\n"));
    }

    void aScaleGrowsPlacesFontsAndThePlacementWithEveryCaptionWhole() {
        const QByteArray settings("Size\r\n 1000 \r\n 1000 \r\n 12000 \r\n 8000 \r\nExp\r\n 1 \r\n");
        double fontAt100 = 0;
        for (int percent : {100, 150}) {
            ScaleForTest scale(percent);
            WriteSettingsFile(settings);
            auto form = MakeForm1();
            QCOMPARE(form->geometry(), percent == 100 ? QRect(67, 67, 800, 533) : QRect(100, 100, 1200, 800));
            QCOMPARE(Find<QWidget>(form.get(), QStringLiteral("List1_4"))->geometry(),
                     percent == 100 ? QRect(8, 256, 129, 15) : QRect(12, 384, 194, 23));
            const double points = Find<QWidget>(form.get(), QStringLiteral("Label2_0"))->font().pointSizeF();
            if (percent == 100)
                fontAt100 = points;
            QCOMPARE(points, fontAt100 * percent / 100);

            // A full template of four-figure values: every statistic and value has its longest texts.
            LoadSamples(form.get(), {QStringLiteral("1000,1000,1000,1000,1000,1000,1000,1000,1000,1000,Big,60,1,0,6")});
            for (int category = 0; category < 5; ++category)
                SendToCategory(form.get(), 1, category);
            QCOMPARE(TextOf(form.get(), QStringLiteral("Label14_0")).size(), 11);
            QCOMPARE(CutLabels(form.get()), QStringList());

            ToolbarAction(form.get(), QStringLiteral("Add DNA"))->trigger();
            QWidget *form2 = TopLevel(QStringLiteral("Form2"));
            ClickWidget(Find<QWidget>(form2, QStringLiteral("Label1")));
            QCOMPARE(form2->width(), 382 * percent / 100);
            QCOMPARE(CutLabels(form2), QStringList());
            form2->close();

            form->close();
            QCOMPARE(ReadFileBytes(SettingsPath()), settings);
        }
    }
};

QTEST_MAIN(TestScale)
#include "tst_scale.moc"
