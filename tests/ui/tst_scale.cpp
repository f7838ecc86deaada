// The display scale grows places and fonts together; 100 % leaves them as they were, and the
// window's place in the settings file stays in twips whatever the scale.
#include "TestSupport.h"

#include "DisplayScale.h"
#include "Form1.h"

#include <QScopeGuard>

using namespace testsupport;
using namespace Qt::StringLiterals;

class TestScale : public WindowTest {
    Q_OBJECT

    double platformPoints_ = 0;

private slots:
    void initTestCase() { platformPoints_ = QApplication::font().pointSizeF(); }

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
        form->close();
        QCOMPARE(ReadFileBytes(SettingsPath()), settings);
    }
};

QTEST_MAIN(TestScale)
#include "tst_scale.moc"
