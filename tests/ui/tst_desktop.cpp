#include "TestSupport.h"

#include "Form1.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTreeWidget>

using namespace testsupport;

namespace {

// Quality 2.5 and Intellect 95 / Hardiness 412 give decimals in the file and in the prediction.
const QString kSample = QStringLiteral("412,388,270,301,95,102,340,298,415,502,Kusak Alpha,18,7,0,2.5");

const QStringList kBoxNames{QStringLiteral("Hardiness"),     QStringLiteral("Fortitude"), QStringLiteral("Dexterity"),
                            QStringLiteral("Endurance"),     QStringLiteral("Intellect"), QStringLiteral("Cleverness"),
                            QStringLiteral("Dependability"), QStringLiteral("Courage"),   QStringLiteral("Fierceness"),
                            QStringLiteral("Power"),         QStringLiteral("Name"),      QStringLiteral("Level")};

QTreeWidget *List(Form1 *form) {
    return Find<QTreeWidget>(form, QStringLiteral("ListView1"));
}

// A key pressed in the main window, made the active window first as a user's click would.
void Press(Form1 *form, const QKeySequence &keys) {
    form->activateWindow();
    if (!QTest::qWaitForWindowActive(form))
        qWarning("main window not active");
    QTest::keySequence(form, keys);
}

QString LabelText(QWidget *window, const QString &name) {
    auto *label = Find<QLabel>(window, name);
    return label ? label->text() : QString();
}

// What a box's colour is called in its accessible name.
QString ColourWord(QWidget *box) {
    const QImage image = box->grab().toImage();
    const QColor colour = image.pixelColor(image.rect().center());
    if (colour == QColor(255, 255, 255))
        return QStringLiteral("white");
    if (colour == QColor(255, 255, 0))
        return QStringLiteral("yellow");
    if (colour == QColor(0, 255, 0))
        return QStringLiteral("green");
    return QStringLiteral("?");
}

// Every shown box of the experimentation window names its place and the colour it shows.
void CheckBoxNames(QWidget *form5) {
    const QStringList categories{QStringLiteral("Physique"), QStringLiteral("Prowess"), QStringLiteral("Mental"),
                                 QStringLiteral("Psychology"), QStringLiteral("Aggressiveness")};
    for (int c = 0; c < 5; ++c) {
        for (int b = 0; b < 10; ++b) {
            auto *box = Find<QWidget>(form5, QStringLiteral("Picture%1_%2").arg(c + 5).arg(b));
            QVERIFY(box);
            if (box->isHidden())
                continue;
            const QString prefix = QStringLiteral("%1 box %2: %3, ").arg(categories[c]).arg(b + 1).arg(ColourWord(box));
            QVERIFY2(box->accessibleName().startsWith(prefix), qPrintable(box->accessibleName()));
        }
    }
    for (int b = 0; b < 12; ++b) {
        auto *box = Find<QWidget>(form5, QStringLiteral("Picture4_%1").arg(b));
        QVERIFY(box);
        const QString prefix = QStringLiteral("Point box %1: %2, ").arg(b + 1).arg(ColourWord(box));
        QVERIFY2(box->accessibleName().startsWith(prefix), qPrintable(box->accessibleName()));
    }
}

// Every named box a user types into or moves carries a name for screen readers (the item
// views' own scroll bars and a combo box's inner line are the toolkit's, without objectName).
void CheckAllBoxesNamed(QWidget *window) {
    for (QWidget *w : window->findChildren<QWidget *>()) {
        const bool box = qobject_cast<QComboBox *>(w) || qobject_cast<QScrollBar *>(w) || qobject_cast<QLineEdit *>(w);
        if (box && !w->objectName().isEmpty() && !w->objectName().startsWith(QLatin1String("qt_")))
            QVERIFY2(!w->accessibleName().isEmpty(),
                     qPrintable(window->objectName() + QLatin1Char('.') + w->objectName()));
    }
}

// Makes the program's folder read-only for the life of the guard.
struct ReadOnlyFolder {
    explicit ReadOnlyFolder(const QString &path) : path_(path), old_(QFile::permissions(path)) {
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                                        QFile::ReadOther | QFile::ExeOther);
    }
    ~ReadOnlyFolder() { QFile::setPermissions(path_, old_); }
    ReadOnlyFolder(const ReadOnlyFolder &) = delete;
    ReadOnlyFolder &operator=(const ReadOnlyFolder &) = delete;
    QString path_;
    QFile::Permissions old_;
};

} // namespace

class TestDesktop : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QLocale::setDefault(QLocale::c());
        QStandardPaths::setTestModeEnabled(true);
        RemoveSettingsFile();
    }
    void cleanup() {
        QLocale::setDefault(QLocale::c());
        CloseAllWindows();
        RemoveSettingsFile();
    }

    void standardKeysRunTheToolbarCommands() {
        const QString file = WriteDnaFile(QStringLiteral("keys.txt"), {kSample});
        auto form = MakeForm1();

        AnswerFileDialog(file);
        Press(form.get(), QKeySequence(QKeySequence::Open));
        QCOMPARE(RowCount(List(form.get())), 1);
        QCOMPARE(form->windowTitle(), QStringLiteral("Quorvel v0.55 [%1]").arg(file));

        // Save writes the loaded file again without a dialog.
        QVERIFY(QFile::remove(file));
        QString title;
        AnswerMessageBox(QMessageBox::Ok, &title);
        Press(form.get(), QKeySequence(QKeySequence::Save));
        QCOMPARE(title, QStringLiteral("Saved"));
        QCOMPARE(ReadFileBytes(file), kSample.toLatin1() + "\r\n");

        // Save As asks for a new name, also where the platform has no key of its own for it.
        const QString copy = TempFolder() + QStringLiteral("/keys-copy.txt");
        AnswerFileDialog(copy);
        AnswerMessageBox(QMessageBox::Yes, &title);
        Press(form.get(), QKeySequence(QStringLiteral("Ctrl+Shift+S")));
        QCOMPARE(title, QStringLiteral("Save DNA"));
        QCOMPARE(ReadFileBytes(copy), kSample.toLatin1() + "\r\n");

        Press(form.get(), QKeySequence(Qt::Key_F1));
        QVERIFY(TopLevel(QStringLiteral("Form4")));

        // Quit runs the window's closing steps, which close the other windows.
        Press(form.get(), QKeySequence(QStringLiteral("Ctrl+Q")));
        QVERIFY(!form->isVisible());
        QVERIFY(!TopLevel(QStringLiteral("Form4")));
    }

    void boxesHaveAccessibleNames() {
        const QString file = WriteDnaFile(QStringLiteral("names.txt"), {kSample});
        auto form = MakeForm1();
        for (int i = 0; i < 12; ++i) {
            if (auto *box = form->findChild<QLineEdit *>(QStringLiteral("Text1_%1").arg(i)))
                QCOMPARE(box->accessibleName(), kBoxNames[i]);
        }
        CheckAllBoxesNamed(form.get());

        ToolbarAction(form.get(), QStringLiteral("Add DNA"))->trigger();
        QWidget *form2 = TopLevel(QStringLiteral("Form2"));
        QVERIFY(form2);
        for (int i = 0; i < 12; ++i)
            QCOMPARE(Find<QLineEdit>(form2, QStringLiteral("Text1_%1").arg(i))->accessibleName(), kBoxNames[i]);
        QCOMPARE(Find<QComboBox>(form2, QStringLiteral("Combo1"))->accessibleName(), QStringLiteral("Quality"));
        QCOMPARE(Find<QComboBox>(form2, QStringLiteral("Combo2"))->accessibleName(), QStringLiteral("Planet"));
        CheckAllBoxesNamed(form2);

        ToolbarAction(form.get(), QStringLiteral("Options"))->trigger();
        QWidget *form3 = TopLevel(QStringLiteral("Form3"));
        QVERIFY(form3);
        CheckAllBoxesNamed(form3);

        // The experimentation window's boxes say their colour, also after a click changes it.
        AnswerFileDialog(file);
        ToolbarAction(form.get(), QStringLiteral("Load"))->trigger();
        ClickRow(List(form.get()), 1);
        ClickWidget(Find<QPushButton>(form.get(), QStringLiteral("Command8")));
        QWidget *form5 = TopLevel(QStringLiteral("Form5"));
        QVERIFY(form5);
        CheckBoxNames(form5);
        QWidget *placed = nullptr;
        for (int b = 0; b < 10 && !placed; ++b) {
            auto *box = Find<QWidget>(form5, QStringLiteral("Picture5_%1").arg(b));
            if (!box->isHidden() && ColourWord(box) == QLatin1String("white"))
                placed = box;
        }
        QVERIFY(placed);
        ClickWidget(placed);
        QCOMPARE(ColourWord(placed), QStringLiteral("green"));
        CheckBoxNames(form5);
    }

    void decimalCommaInWindowsPointInFiles() {
        const QString file = WriteDnaFile(QStringLiteral("comma.txt"), {kSample});
        auto form = MakeForm1();
        AnswerFileDialog(file);
        ToolbarAction(form.get(), QStringLiteral("Load"))->trigger();
        ClickRow(List(form.get()), 1);
        auto *dropLabel = Find<QLabel>(form.get(), QStringLiteral("Label3"));
        QVERIFY(DropOn(dropLabel));
        QStringList withPoint;
        for (int i = 0; i <= 10; ++i)
            withPoint << LabelText(form.get(), QStringLiteral("Label23_%1").arg(i));
        QVERIFY(withPoint.join(QString()).contains(QLatin1Char('.')));

        QLocale::setDefault(QLocale(QLocale::German));
        QVERIFY(DropOn(dropLabel));
        // 95 / 12 + 412 / 60 rounded to two decimals.
        QCOMPARE(LabelText(form.get(), QStringLiteral("Label23_5")), QStringLiteral("14,78%"));
        for (int i = 0; i <= 10; ++i)
            QCOMPARE(LabelText(form.get(), QStringLiteral("Label23_%1").arg(i)),
                     QString(withPoint[i]).replace(QLatin1Char('.'), QLatin1Char(',')));

        const QString saved = TempFolder() + QStringLiteral("/comma-saved.txt");
        AnswerFileDialog(saved);
        AnswerMessageBox(QMessageBox::Yes);
        ToolbarAction(form.get(), QStringLiteral("Save As"))->trigger();
        QCOMPARE(ReadFileBytes(saved), kSample.toLatin1() + "\r\n");
    }

    void readOnlyProgramFolderKeepsSettingsWithTheUser() {
        const QString folder = QCoreApplication::applicationDirPath();
        const QString userFile =
            QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + QStringLiteral("/quorvel.cfg");
        QFile::remove(userFile);
        ReadOnlyFolder readOnly(folder);
        if (QFileInfo(folder).isWritable())
            QSKIP("the program's folder stays writable for this user (root)");

        QDir().mkpath(QFileInfo(userFile).path());
        QFile seeded(userFile);
        QVERIFY(seeded.open(QIODevice::WriteOnly));
        seeded.write("LFocus\r\n");
        seeded.close();

        auto form = MakeForm1();
        QVERIFY(Find<QCheckBox>(form.get(), QStringLiteral("Check1"))->isChecked());
        QVERIFY(QFile::remove(userFile));
        form->close();
        QVERIFY(ReadFileBytes(userFile).startsWith("LFocus\r\n"));
        QVERIFY(!QFile::exists(SettingsPath()));
        QFile::remove(userFile);
    }
};

QTEST_MAIN(TestDesktop)
#include "tst_desktop.moc"
