#include "TestSupport.h"

#include "Form1.h"

#include <QCheckBox>
#include <QPointer>
#include <QPushButton>

using namespace testsupport;

namespace {

// Sent to every category, the sample gives caps equal to its values.
const QString kSample = QStringLiteral("1000,1000,450,460,500,500,600,600,800,100,Even,20,1,0,2");

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

} // namespace

class TestForm5 : public WindowTest {
    Q_OBJECT

    // The Mental row is Picture7; the points column is Picture4.
    static QString Mental(QWidget *w) { return Colours(w, 7); }
    static QString Points(QWidget *w) { return Colours(w, 4, 12); }
    static void ClickMental(QWidget *w, int box) {
        ClickWidget(Find<QWidget>(w, QStringLiteral("Picture7_%1").arg(box)));
    }
    static QPushButton *Button(QWidget *w, const char *name) { return Find<QPushButton>(w, QLatin1String(name)); }

private slots:
    void templateSessionPlacesRunsAndReturns() {
        auto form = MakeForm1();
        LoadSamples(form.get(), {kSample});
        for (int c = 0; c < 5; ++c)
            SendToCategory(form.get(), 1, c);
        form->Model().Settings().ExpPoints = 5;
        form->Model().Settings()[quorvel::Setting::Min] = true;
        ClickWidget(Button(form.get(), "Command7"));
        QWidget *window = TopLevel(QStringLiteral("Form5"));
        QVERIFY(window);
        QVERIFY(form->isMinimized());
        QVERIFY(Button(window, "Command3")->isEnabled());
        QVERIFY(!Button(window, "Command2")->isEnabled());
        QCOMPARE(Points(window), QStringLiteral("YYYYYWWWWWWW"));
        // Boxes beyond the category's cap are hidden.
        QCOMPARE(Mental(window), QStringLiteral("YYYWWW----"));

        // A click on a white box turns the row's first white box green.
        ClickMental(window, 5);
        QCOMPARE(Mental(window), QStringLiteral("YYYGWW----"));
        QCOMPARE(Points(window), QStringLiteral("YYYYWWWWWWWW"));
        QVERIFY(Button(window, "Command2")->isEnabled());
        // Run: Intellect and Cleverness (325 each) gain 70; the point stays spent.
        ClickWidget(Button(window, "Command2"));
        QCOMPARE(TextOf(window, QStringLiteral("Label14_4")), QStringLiteral("395 [500]"));
        QCOMPARE(Mental(window), QStringLiteral("YYYWWW----"));
        QCOMPARE(Points(window), QStringLiteral("YYYYWWWWWWWW"));

        // Done restores the main window with its list focused and keeps the values in the template.
        QPointer<QWidget> closing(window);
        ClickWidget(Button(window, "Command1"));
        QCOMPARE(QApplication::focusWidget(), Find<QWidget>(form.get(), QStringLiteral("ListView1")));
        QTRY_VERIFY(closing.isNull());
        QVERIFY(!form->isMinimized());
        QCOMPARE(form->Model().Template().Current[quorvel::Index(quorvel::Attribute::Intellect)], 395);

        // Clear Experiment returns the template to the evaluated values.
        ClickWidget(Button(form.get(), "Command6"));
        QCOMPARE(form->Model().Template().Current[quorvel::Index(quorvel::Attribute::Intellect)], 325);
    }

    void sampleSessionHasNoResetAndStaysOnTop() {
        auto form = MakeForm1();
        LoadSamples(form.get(), {kSample});
        ClickRow(Find<QAbstractItemView>(form.get(), QStringLiteral("ListView1")), 1);
        form->Model().Settings()[quorvel::Setting::OnTop] = true;
        ClickWidget(Button(form.get(), "Command8"));
        QWidget *window = TopLevel(QStringLiteral("Form5"));
        QVERIFY(window);
        QVERIFY(!Button(window, "Command3")->isEnabled());
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
