// The display scale grows places and fonts together; 100 % leaves them as they were, and the
// window's place in the settings file stays in twips whatever the scale.
#include "TestSupport.h"

#include "DisplayScale.h"
#include "Form1.h"

#include <QLabel>
#include <QScopeGuard>

using namespace testsupport;
using namespace Qt::StringLiterals;

namespace {

// The labels of a window whose text does not fit their box.
QStringList CutLabels(QWidget *window) {
    QStringList cut;
    for (QLabel *label : window->findChildren<QLabel *>()) {
        if (!label->isVisibleTo(window) || label->wordWrap() || label->text() == "^"_L1)
            continue;
        for (const QString &line : label->text().split(u'\n'))
            if (label->fontMetrics().horizontalAdvance(line) > label->contentsRect().width())
                cut << label->text();
    }
    return cut;
}

} // namespace

class TestScale : public WindowTest {
    Q_OBJECT

    double platformPoints_ = 0;

private slots:
    void initTestCase() { platformPoints_ = QApplication::font().pointSizeF(); }

    void screenDpiPicksAStepOf25Percent() {
        for (const auto &[dpi, percent] :
             {std::pair{72.0, 100}, {96.0, 100}, {110.0, 125}, {144.0, 150}, {192.0, 200}, {300.0, 200}})
            QCOMPARE(ScaleForDpi(dpi), percent);
    }

    void placesAndFontsGrowTogether_data() {
        QTest::addColumn<int>("percent");
        QTest::addColumn<QRect>("window");
        QTest::addColumn<QRect>("list");
        QTest::newRow("100 %") << 100 << QRect(67, 67, 800, 533) << QRect(8, 256, 129, 15);
        QTest::newRow("150 %") << 150 << QRect(100, 100, 1200, 800) << QRect(12, 384, 194, 23);
    }

    void placesAndFontsGrowTogether() {
        QFETCH(int, percent);
        QFETCH(QRect, window);
        QFETCH(QRect, list);
        const auto reset = qScopeGuard([] { ApplyDisplayScale(100); });
        ApplyDisplayScale(percent);
        const QByteArray settings("Size\r\n 1000 \r\n 1000 \r\n 12000 \r\n 8000 \r\nExp\r\n 1 \r\n");
        WriteSettingsFile(settings);
        auto form = MakeForm1();
        QCOMPARE(form->geometry(), window);
        QCOMPARE(Find<QWidget>(form.get(), u"List1_4"_s)->geometry(), list);
        QCOMPARE(Find<QWidget>(form.get(), u"Label2_0"_s)->font().pointSizeF(), platformPoints_ * percent / 100);

        // A full template of four-figure values gives every statistic and value its longest text.
        LoadSamples(form.get(), {u"1000,1000,1000,1000,1000,1000,1000,1000,1000,1000,Big,60,1,0,6"_s});
        for (int category = 0; category < 5; ++category)
            SendToCategory(form.get(), 1, category);
        QCOMPARE(TextOf(form.get(), u"Label14_0"_s).size(), 11);
        QCOMPARE(CutLabels(form.get()), QStringList());
        ToolbarAction(form.get(), u"Add DNA"_s)->trigger();
        QWidget *form2 = TopLevel(u"Form2"_s);
        ClickWidget(Find<QWidget>(form2, u"Label1"_s));
        QCOMPARE(form2->width(), 382 * percent / 100);
        QCOMPARE(CutLabels(form2), QStringList());

        form->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), settings);
    }
};

QTEST_MAIN(TestScale)
#include "tst_scale.moc"
